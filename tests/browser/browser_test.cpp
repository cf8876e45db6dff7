#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "system/house_process.h"

// The pages of a house in a real browser. What it has seen stays in the folder of screenshots.
namespace browser_tests {
namespace {

using system_tests::House;

constexpr const char* kUnit = "Wall";

struct Story {
    int exit_code = 0;
    std::string output;  // both streams
};

// Runs a script of this folder. The arguments hold neither blanks at an end nor quotes.
Story run_story(const std::string& name, const std::vector<std::string>& arguments) {
    std::string command = "node '" ZYN_STORIES "/" + name + ".mjs'";
    for (const std::string& argument : arguments) {
        command.append(" '").append(argument).append("'");
    }
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen((command + " 2>&1").c_str(), "r"),
                                                     [](FILE*) { return 0; });
    Story story;
    std::array<char, 4096> piece{};
    for (std::size_t size = 0;
         (size = std::fread(piece.data(), 1, piece.size(), pipe.get())) > 0;) {
        story.output.append(piece.data(), size);
    }
    const int status = ::pclose(pipe.get());
    story.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return story;
}

class Browser : public testing::Test {
  protected:
    Browser() { std::filesystem::create_directories(ZYN_SCREENSHOTS); }

    // Expects that the script sees what it says it sees, as the unit's browser.
    void expect_story(const std::string& name, const std::string& server_port,
                      const std::vector<std::string>& more = {}) {
        const std::string address = house_.address_of(kUnit);
        std::vector<std::string> arguments = {"http://127.0.0.1:" + server_port,
                                              address.substr(0, address.find(':')),
                                              ZYN_SCREENSHOTS};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Story story = run_story(name, arguments);
        EXPECT_EQ(story.exit_code, 0) << story.output;
    }

    House house_{kUnit};
};

TEST_F(Browser, ASlideshowGoesOnUntilItsPictureIsTouched) {
    house_.set("SlideshowPath", "slides/pictures");
    house_.set("SlideshowUpdateInterval", "2");
    house_.set("Links", "links_touchscreen.htm");
    house_.set("0SlideASP", "slides\\pictures,4");
    house_.set("1SlideASP", "slides\\pictures\\morning.jpg,2");
    house_.set("2SlideASP", "slides\\clock.asp,2");
    house_.set_slideshow_group(1);
    house_.start();
    expect_story("slideshow", house_.server_port());
    EXPECT_THAT(house_.device("[1").at("text").get<std::string>(),
                testing::HasSubstr("links_touchscreen.htm"));
}

TEST_F(Browser, ATextMessageStandsUnderTheLinksOfTheHouse) {
    house_.set("TextBackground", "Blue");
    house_.set("TextForeground", "Yellow");
    house_.set("IncludeHeaderLinks", "1");
    house_.set("LinksFile", "links_touchscreen.htm");
    house_.start();
    house_.call({"VeloraText", kUnit, "Dinner is ready"});
    const std::string page = "VeloraTemp/VeloraTempFilewall1.html";
    ASSERT_TRUE(system_tests::eventually([&] {
        const auto requests = house_.requests(kUnit);
        return !requests.empty() && requests.back().ends_with("/" + page);
    }));
    expect_story("message", house_.server_port(), {page, "Dinner is ready"});
}

TEST_F(Browser, TheStatusPageShowsSwitchesAndSetsUpTheHouse) {
    house_.set("MyOwnKey", "kept");
    house_.put_before_units("; a comment of mine\n");
    house_.start();
    expect_story("status", house_.server_port(),
                 {house_.unit_folder(kUnit) / "state.json",
                  house_.home() / "Config" / "zynVeloraUtilities.ini"});
}

TEST_F(Browser, TheHouseHasAStartPage) {
    house_.start();
    expect_story("site", house_.host_port(), {kUnit});
}

}  // namespace
}  // namespace browser_tests
