#include <gmock/gmock.h>

#include "unit/running_unit.h"

namespace unit {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using testing::OneAnswerServer;
using testing::RunningUnit;
using ::testing::StartsWith;

TEST(Unit, AnswersACommandAndRecordsIt) {
    const RunningUnit unit;
    EXPECT_THAT(unit.get("led.shtml?t2"), StartsWith("HTTP/1.1 200 OK\r\n"));
    EXPECT_THAT(unit.get("screen.shtml?p"), HasSubstr("Connection: close\r\n\r\n"));
    EXPECT_THAT(unit.get("screen.shtml?p"), HasSubstr("<body>1</body>"));
    EXPECT_THAT(unit.get("beep.shtml?0 5"), HasSubstr("<body>Sound 5</body>"));
    EXPECT_THAT(unit.get("<none>"), StartsWith("HTTP/1.1 404 Not Found\r\n"));

    const auto state = nlohmann::json::parse(unit.file("state.json"));
    EXPECT_EQ(state, unit.state());
    EXPECT_EQ(state["name"], "hall");
    EXPECT_EQ(state["top_led"], "blink");
    EXPECT_EQ(state["last_sound"], 5);
    EXPECT_EQ(state["requests"], 5);
    EXPECT_THAT(unit.file("requests.log"),
                MatchesRegex("20..-..-..T..:..:..\\....Z\tGET\t/led.shtml.t2\t200 OK\n(.|\n)*\t"
                             "/beep.shtml.0 5\t200 OK\n.*\t/<none>\t404 Not Found\n"));
}

TEST(Unit, RefusesWhatIsNoRequest) {
    const RunningUnit unit;
    const auto answer_to = [&unit](const std::string& bytes) {
        auto client = unit.connect();
        client.send(bytes);
        return client.rest();
    };
    EXPECT_THAT(answer_to("\x16\x03\x01 nonsense\n"), StartsWith("HTTP/1.0 400 "));
    EXPECT_THAT(answer_to("GET /" + std::string(70000, 'x')), StartsWith("HTTP/1.0 413 "));
    EXPECT_THAT(answer_to("POST /scrOff.shtml HTTP/1.1\r\n\r\n"), StartsWith("HTTP/1.1 501 "));
    EXPECT_EQ(unit.state()["backlight"], true);
}

TEST(Unit, FetchesASoundBeforeItAnswers) {
    using std::string_literals::operator""s;
    const std::string wav =
        "RIFF\x2c\0\0\0WAVEfmt \x10\0\0\0\x01\0\x01\0\x40\x1f\0\0\x40\x1f\0\0\x01\0\x08\0"
        "data\x08\0\0\0abcdefgh"s;
    OneAnswerServer server("HTTP/1.1 200 OK\r\nDate:24-Nov-26\r\nContent-Length: " +
                           std::to_string(wav.size()) + "\r\n\r\n" + wav + std::string(900, ' '));
    const RunningUnit unit;
    EXPECT_THAT(unit.get("loadWav.shtml?" + server.url("/VeloraTemp/hi.wav")),
                HasSubstr("<body>Playing http://127.0.0.1"));
    EXPECT_EQ(unit.file("sounds/1-hi.wav"), wav);
    const auto playing = unit.state()["playing"];
    EXPECT_EQ(playing["file"], "sounds/1-hi.wav");
    EXPECT_EQ(playing["bytes"], wav.size());
    EXPECT_EQ(playing["seconds"], 0.001);
    EXPECT_EQ(server.client_address(), testing::kUnitAddress);
    EXPECT_THAT(server.request(), StartsWith("GET /VeloraTemp/hi.wav HTTP/1.0\r\n"));
    EXPECT_THAT(server.request(),
                HasSubstr("\r\nUser-Agent: Mozilla/4.0 (compatible; Velora hall)\r\n"));
}

TEST(Unit, SaysThatASoundWasNotLoaded) {
    OneAnswerServer server("HTTP/1.0 404 Not Found\r\n\r\n");
    const RunningUnit unit;
    EXPECT_THAT(unit.get("loadWav.shtml?" + server.url("/x.wav")),
                HasSubstr("not loaded: HTTP/1.0 404 Not Found"));
    EXPECT_THAT(unit.get("loadWav.shtml?http://127.0.0.1:1/x.wav"),
                HasSubstr("not loaded: Connection refused"));
    EXPECT_THAT(unit.get("loadWav.shtml?http://:/"), HasSubstr("not a web address"));
    EXPECT_EQ(unit.state()["playing"]["file"], "");
}

TEST(Unit, ShowsAPageInTheBackground) {
    OneAnswerServer server("HTTP/1.0 200 OK\r\nLast-Modified 11/24/2026 1:02:03 PM\r\n\r\n<p>Hi");
    const RunningUnit unit;
    EXPECT_THAT(unit.get("gotoURL.shtml?M=GOTO_URL&S=" + server.url("/a.htm")),
                HasSubstr("200 OK"));
    const auto state =
        unit.state_when([](const auto& now) { return now["browser"]["status"] != "loading"; });
    EXPECT_EQ(state["browser"]["url"], server.url("/a.htm"));
    EXPECT_EQ(state["browser"]["status"], "HTTP/1.0 200 OK");
    EXPECT_EQ(state["browser"]["bytes"], 5);
    EXPECT_EQ(unit.file("page.html"), "<p>Hi");
}

TEST(Unit, BrowserLoadsThePicturesOfAPageAndWhatReplacesIt) {
    OneAnswerServer next("HTTP/1.0 200 OK\r\n\r\n<p>Next");
    OneAnswerServer picture("HTTP/1.0 200 OK\r\n\r\nGIF89a");
    OneAnswerServer first("HTTP/1.0 200 OK\r\n\r\n<meta http-equiv=\"Refresh\" content=\"0; URL=" +
                          next.url("/next.htm") + "\"><img src='" + picture.url("/a.gif") + "'>");
    const RunningUnit unit;
    EXPECT_THAT(unit.get("gotoURL.shtml?M=GOTO_URL&S=" + first.url("/a.htm")), HasSubstr("200 OK"));
    EXPECT_THAT(picture.request(), StartsWith("GET /a.gif HTTP/1.0\r\n"));
    EXPECT_THAT(next.request(), StartsWith("GET /next.htm HTTP/1.0\r\n"));
    (void)unit.state_when([](const auto& now) { return now["browser"]["bytes"] == 7; });
    EXPECT_EQ(unit.file("page.html"), "<p>Next");
    (void)unit.state_when([&unit](const auto&) {
        return unit.file("requests.log").find("REFRESH") != std::string::npos;
    });
    const std::string log = unit.file("requests.log");
    EXPECT_THAT(log, HasSubstr("\tPICTURE\t" + picture.url("/a.gif") + "\tHTTP/1.0 200 OK\n"));
    EXPECT_THAT(log, EndsWith("\tREFRESH\t" + next.url("/next.htm") + "\tHTTP/1.0 200 OK\n"));
}

TEST(Unit, LeavesNoSocketBehind) {
    RunningUnit unit;
    auto client = unit.connect();
    EXPECT_EQ(std::filesystem::status(unit.directory() / "control.sock").permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    unit.stop();
    EXPECT_EQ(client.rest(), "");
    EXPECT_FALSE(std::filesystem::exists(unit.directory() / "control.sock"));
    EXPECT_THROW(static_cast<void>(unit.tell("state")), std::runtime_error);
}

std::string failure_of(const UnitOptions& options) {
    try {
        const Unit unit(options);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
}

TEST(Unit, KeepsASecondOneOut) {
    const RunningUnit running;
    const testing::TemporaryDirectory other;
    EXPECT_EQ(failure_of({"x", "127.0.0.1:0", running.directory()}),
              "a unit is already running in " + running.directory().string());
    EXPECT_EQ(running.tell("normal"), "ok");
    EXPECT_EQ(failure_of({"x", running.address(), other.path()}),
              "cannot listen on " + running.address() + ": Address already in use");
    EXPECT_FALSE(std::filesystem::exists(other.path() / "control.sock"));
}

TEST(Unit, SaysWhyItCannotStart) {
    const testing::TemporaryDirectory other;
    for (const char* listen : {"", "127.0.0.1", "house:80", "127.0.0.1:x", "127.0.0.1:65536"}) {
        EXPECT_THAT(failure_of({"x", listen, other.path()}), EndsWith(listen)) << listen;
    }
    EXPECT_THAT(failure_of({"x", "127.0.0.1:0", other.path() / std::string(120, 'x')}),
                EndsWith("File name too long"));
}

TEST(Unit, CanBeStoppedBeforeItRuns) {
    const testing::TemporaryDirectory directory;
    Unit unit({"x", "127.0.0.1:0", directory.path()});
    unit.stop();
    unit.run();
    EXPECT_FALSE(std::filesystem::exists(directory.path() / "control.sock"));
}

TEST(Unit, TakesOverWhatADeadOneLeftBehind) {
    const testing::TemporaryDirectory directory;
    const auto path = directory.path() / "control.sock";
    {
        boost::asio::io_context loop;
        const boost::asio::local::stream_protocol::acceptor dead(loop, path.string());
    }
    ASSERT_TRUE(std::filesystem::exists(path));
    EXPECT_EQ(failure_of({"x", "127.0.0.1:0", directory.path()}), "");
}

}  // namespace
}  // namespace unit
