#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <map>
#include <random>
#include <thread>

#include "automation/run_time_error.h"
#include "platform/asio/local_line_client.h"
#include "system/house_process.h"

// A daemon that is killed while it writes: what it had acknowledged is there afterwards.
namespace system_tests {
namespace {

using namespace std::chrono_literals;
using platform::LocalLineClient;
using testing::HasSubstr;

constexpr int kKills = 50;
constexpr auto kLimit = 100s;  // a fifth of it on a machine that has nothing else to do

// What the house holds. A change that was under way when the daemon died may have come in or not.
struct Contents {
    int value = 0;                       // of the device
    std::map<std::string, bool> events;  // whether enabled
    bool has_attic = false;              // a unit that comes and goes in the settings

    friend bool operator==(const Contents&, const Contents&) = default;
};

void PrintTo(const Contents& contents, std::ostream* out) {
    *out << contents.value << (contents.has_attic ? " attic" : "");
    for (const auto& [name, enabled] : contents.events) {
        *out << " " << name << (enabled ? "" : "(disabled)");
    }
}

// Changes devices, events and settings, one request at a time, until the daemon is gone.
class Writer {
  public:
    Writer(House& house, std::mt19937& random, Contents contents)
        : house_(house), random_(random), acknowledged_(std::move(contents)) {
        under_way_ = acknowledged_;
    }

    void run() {
        try {
            LocalLineClient line(house_.home() / "control.sock");
            while (write(line)) {
                acknowledged_ = under_way_;
                ++writes_;
            }
        } catch (const automation::RunTimeError&) {
            // Killed between two requests.
        }
    }

    [[nodiscard]] int writes() const { return writes_; }

    [[nodiscard]] const Contents& acknowledged() const { return acknowledged_; }

    [[nodiscard]] const Contents& under_way() const { return under_way_; }

  private:
    bool write(LocalLineClient& line) {
        const std::string request = next_request();
        line.send_line(request);
        const auto answer = line.read_line(kPatience);
        if (answer && answer->find("\"error\"") != std::string::npos) {
            ADD_FAILURE() << request << ": " << *answer;
            return false;
        }
        return answer.has_value();
    }

    std::string next_request() {
        const bool has_events = !under_way_.events.empty();
        const auto choice = random_() % 16;
        if (choice == 0) {
            return toggle_attic();
        }
        if (choice < 6) {
            return under_way_.events.size() < 6 ? add_event() : remove_event();
        }
        return choice < 9 && has_events ? toggle_event() : set_device();
    }

    std::string set_device() {
        under_way_.value = static_cast<int>(random_() % 30000);
        return R"({"do":"set","code":"[10","value":")" + std::to_string(under_way_.value) + "\"}";
    }

    std::string add_event() {
        const std::string name = "event " + std::to_string(random_());
        under_way_.events[name] = true;
        return R"({"do":"add_event","name":")" + name +
               R"(","when":"at 03:00","actions":["set [10 = 1","press x"]})";
    }

    std::string remove_event() {
        const std::string name = under_way_.events.begin()->first;
        under_way_.events.erase(name);
        return R"({"do":"remove_event","name":")" + name + "\"}";
    }

    std::string toggle_event() {
        auto& [name, enabled] = *under_way_.events.rbegin();
        enabled = !enabled;
        return std::string(R"({"do":")") + (enabled ? "enable" : "disable") +
               R"(_event","name":")" + name + "\"}";
    }

    // The daemon gives the new unit its devices and writes their first one to the settings.
    std::string toggle_attic() {
        std::string text = house_.settings();
        if (under_way_.has_attic) {
            const auto at = text.rfind('\n', text.find("Attic")) + 1;
            text.erase(at, text.find('\n', at) + 1 - at);
        } else {
            text.insert(text.find("[Velora Names]\n") + 15, "127.0.1.99=Attic,,,,0,,\n");
        }
        under_way_.has_attic = !under_way_.has_attic;
        house_.replace_settings(text);
        return R"({"do":"call","operation":"VeloraReloadSettings"})";
    }

    House& house_;
    std::mt19937& random_;
    Contents acknowledged_;
    Contents under_way_;
    std::atomic<int> writes_ = 0;
};

Json answer_of(House& house, const std::string& request, const std::string& member) {
    LocalLineClient line(house.home() / "control.sock");
    line.send_line(request);
    const auto answer = line.read_line(kPatience);
    return answer ? Json::parse(*answer).at(member) : Json();
}

Contents contents_of(House& house) {
    Contents contents;
    contents.value =
        answer_of(house, R"({"do":"device","code":"[10"})", "device").at("value").get<int>();
    for (const Json& event : answer_of(house, R"({"do":"events"})", "events")) {
        EXPECT_EQ(event.at("actions").size(), 2U);
        contents.events[event.at("name")] = event.at("enabled");
    }
    contents.has_attic = house.settings().find("Attic") != std::string::npos;
    return contents;
}

// All units that stand in the settings have their ten devices, and their block stands there too.
void expect_whole_settings(House& house) {
    const std::string settings = house.settings();
    for (const char* part :
         {"PhJukeCommandPort=", "SleepMonitorInterval=0\n", "\"Kitchen,~11,A1,", "HouseCode="}) {
        EXPECT_THAT(settings, HasSubstr(part));
    }
    std::map<std::string, int> devices;
    for (const Json& device : answer_of(house, R"({"do":"devices"})", "devices")) {
        ++devices[device.at("location")];
    }
    EXPECT_EQ(devices["kitchen"], 10);
    EXPECT_EQ(devices["attic"], settings.find("\"Attic,~1") == std::string::npos ? 0 : 10);
}

TEST(Kill, WhatWasAcknowledgedIsThereAfterEachOfFiftyKills) {
    std::mt19937 random(20261124);
    House house({"Kitchen"});
    house.start_daemon();
    Contents contents = contents_of(house);
    const auto end = std::chrono::steady_clock::now() + kLimit;
    for (int kill = 0; kill < kKills; ++kill) {
        ASSERT_LT(std::chrono::steady_clock::now(), end) << "too slow, after " << kill;
        Writer writer(house, random, contents);
        const int writes = static_cast<int>(random() % 12);
        const std::chrono::microseconds delay(random() % 6000);
        std::thread thread([&writer] { writer.run(); });
        EXPECT_TRUE(eventually([&] { return writer.writes() >= writes; }));
        std::this_thread::sleep_for(delay);
        house.daemon().kill();
        thread.join();

        house.start_daemon();
        contents = contents_of(house);
        EXPECT_THAT(contents, testing::AnyOf(writer.acknowledged(), writer.under_way()))
            << "kill " << kill << " after " << writer.writes() << " writes";
        expect_whole_settings(house);
    }
    EXPECT_EQ(house.daemon().err(), "");
}

}  // namespace
}  // namespace system_tests
