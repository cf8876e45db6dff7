#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <optional>

#include "system/house_process.h"
#include "system/web_client.h"

// The plug-in's web server over real connections, with the protections of a daemon and without.
namespace system_tests {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr int kCrowd = 60;  // more connections than the server has sockets
constexpr int kSmallBuffer = 4096;

class WebServer : public testing::TestWithParam<bool> {
  protected:
    WebServer() {
        house_.start(is_protected() ? std::vector<std::string>{}
                                    : std::vector<std::string>{"--as-designed"});
        write("HTML/page.htm", "<p>page</p>");
    }

    [[nodiscard]] static bool is_protected() { return GetParam(); }

    void write(const std::string& name, const std::string& content) const {
        std::ofstream(house_.home() / name, std::ios::binary) << content;
    }

    [[nodiscard]] std::string get(const std::string& target) const {
        return system_tests::get(house_.server_port(), target);
    }

    [[nodiscard]] bool serves_a_page() const { return get("/page.htm").ends_with("<p>page</p>"); }

    House house_{"Kitchen"};
};

INSTANTIATE_TEST_SUITE_P(House, WebServer, testing::Bool(),
                         [](const auto& row) { return row.param ? "Protected" : "AsDesigned"; });

TEST_P(WebServer, ACrowdClosesTheListenerOnlyWithoutProtection) {
    std::vector<WebClient> crowd;
    for (int i = 0; i < kCrowd; ++i) {
        crowd.emplace_back(house_.server_port());
    }
    if (is_protected()) {
        EXPECT_TRUE(serves_a_page());
        EXPECT_EQ(crowd.front().rest(), "");
        EXPECT_TRUE(crowd.front().is_closed()) << "nobody has made room";
    } else {
        EXPECT_TRUE(eventually([&] { return !WebClient(house_.server_port()).is_connected(); }));
    }
    house_.call({"VeloraTopLed", "Kitchen", "on"});
    EXPECT_TRUE(house_.shows("Kitchen", "top_led", "on"));
}

TEST_P(WebServer, AFileOutsideOfHtmlIsReachedOnlyWithoutProtection) {
    write("secret.htm", "<p>secret</p>");
    EXPECT_THAT(get("/../secret.htm"), HasSubstr(is_protected() ? "404" : "<p>secret</p>"));
    EXPECT_THAT(get("/images/%2E%2E/../secret.htm"),
                Not(HasSubstr(is_protected() ? "secret" : "404")));
}

TEST_P(WebServer, EachKindOfMissingFileHasItsAnswer) {
    EXPECT_THAT(get("/none.htm"), AllOf(StartsWith("HTTP/1.1 200 Object Not Found\r\n"),
                                        EndsWith("<html><h1>404 File Not Found</h1></html>")));
    EXPECT_THAT(
        get("/none.txt"),
        AllOf(StartsWith("HTTP/1.0 307 NoSupport\r\n"),
              HasSubstr("Location: http://127.0.0.1:" + house_.host_port() + "/none.txt\r\n")));
    WebClient picture(house_.server_port());
    picture.send("GET /none.gif HTTP/1.0\r\n\r\n");
    EXPECT_EQ(picture.rest(is_protected() ? WebClient::kMoment : 500ms), "");
    EXPECT_EQ(picture.is_closed(), is_protected());
    EXPECT_TRUE(serves_a_page());
}

TEST_P(WebServer, AFileGoesInPiecesFilledUpWithBlanks) {
    const std::string picture(2500, 'x');
    write("HTML/a.jpg", picture);
    EXPECT_THAT(get("/a.jpg"), AllOf(HasSubstr("Content-Length: 2500\r\n"),
                                     EndsWith("\r\n\r\n" + picture + std::string(500, ' '))));
}

TEST_P(WebServer, ABodyMayComeBehindItsHeader) {
    WebClient client(house_.server_port());
    client.send("POST /page.asp HTTP/1.0\r\nUser-Agent: Velora\r\n\r\n");
    client.send("name=Kitchen");
    EXPECT_THAT(client.rest(), HasSubstr("<input type='hidden' name='name' value='Kitchen'>"));
}

// A file is served to its end before the next request, so that what the system's buffers do not
// take keeps the others waiting, but no longer than its client stays.
TEST_P(WebServer, AClientThatNeverReadsDoesNotStopTheOthersForEver) {
    write("HTML/short.jpg", std::string(2000, 'x'));
    write("HTML/long.jpg", std::string(20'000'000, 'x'));
    WebClient harmless(house_.server_port(), kSmallBuffer);
    harmless.send("GET /short.jpg HTTP/1.0\r\n\r\n");
    EXPECT_TRUE(serves_a_page());

    std::optional<WebClient> silent(std::in_place, house_.server_port(), kSmallBuffer);
    silent->send("GET /long.jpg HTTP/1.0\r\n\r\n");
    WebClient next(house_.server_port());
    next.send("GET /page.htm HTTP/1.0\r\n\r\n");
    EXPECT_EQ(next.rest(500ms), "");
    house_.call({"VeloraTopLed", "Kitchen", "on"});
    EXPECT_TRUE(house_.shows("Kitchen", "top_led", "on"));
    silent.reset();
    EXPECT_THAT(next.rest(), EndsWith("<p>page</p>"));
}

}  // namespace
}  // namespace system_tests
