#include <gmock/gmock.h>

#include "unit/running_unit.h"

namespace unit {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using testing::RunningUnit;
using ::testing::StartsWith;

const std::string kLedRequest = "GET /led.shtml?t1 HTTP/1.0\r\n\r\n";

bool has_request(const nlohmann::json& state) {
    return state["requests"] == 1;
}

TEST(UnitFaults, SilentTakesTheRequestAndNeverAnswers) {
    const RunningUnit unit;
    EXPECT_EQ(unit.tell("silent"), "ok");
    auto client = unit.connect();
    client.send(kLedRequest);
    const auto state = unit.state_when(has_request);
    EXPECT_EQ(state["fault"], "silent");
    EXPECT_EQ(state["top_led"], "off");
    EXPECT_THAT(unit.file("requests.log"), EndsWith("\tGET\t/led.shtml?t1\tsilent\n"));
    EXPECT_EQ(client.available(), 0U);
    EXPECT_EQ(unit.tell("power off"), "ok");
    EXPECT_EQ(client.rest(), "");
}

TEST(UnitFaults, HangSendsHalfOfTheAnswer) {
    const RunningUnit unit;
    const std::string whole = unit.get("led.shtml?t1");
    EXPECT_EQ(unit.tell("hang"), "ok");
    auto client = unit.connect();
    client.send("GET /led.shtml?t1 HTTP/1.1\r\n\r\n");
    static_cast<void>(unit.state_when([&client](const auto&) { return client.available() > 0; }));
    EXPECT_EQ(unit.tell("power off"), "ok");
    EXPECT_EQ(client.rest(), whole.substr(0, whole.size() / 2));
    EXPECT_THAT(unit.file("requests.log"), EndsWith("\thang\n"));
}

TEST(UnitFaults, DropClosesAtOnce) {
    const RunningUnit unit;
    EXPECT_EQ(unit.tell("drop"), "ok");
    auto client = unit.connect();
    EXPECT_EQ(client.rest(), "");
    EXPECT_THAT(unit.file("requests.log"), EndsWith("\t-\t-\tdrop\n"));
}

TEST(UnitFaults, NotFoundCarriesOutNothing) {
    const RunningUnit unit;
    EXPECT_EQ(unit.tell("not-found"), "ok");
    EXPECT_THAT(unit.get("led.shtml?t1"), StartsWith("HTTP/1.1 404 "));
    EXPECT_EQ(unit.state()["top_led"], "off");
    EXPECT_EQ(unit.tell("normal"), "ok");
    EXPECT_THAT(unit.get("led.shtml?t1"), StartsWith("HTTP/1.1 200 "));
}

TEST(UnitFaults, SlowAnswersLater) {
    const RunningUnit unit;
    EXPECT_EQ(unit.tell("slow 20"), "ok");
    EXPECT_THAT(unit.get("led.shtml?t1"), StartsWith("HTTP/1.1 200 "));
    EXPECT_EQ(unit.tell("slow 600000"), "ok");
    auto client = unit.connect();
    client.send(kLedRequest);
    EXPECT_EQ(unit.tell("power off"), "ok");
    EXPECT_EQ(client.rest(), "");
}

TEST(UnitFaults, PowerCycleBringsBackTheInitialState) {
    const RunningUnit unit;
    static_cast<void>(unit.get("led.shtml?t1"));
    static_cast<void>(unit.get("screen.shtml?0"));
    EXPECT_EQ(unit.tell("power off"), "ok");
    EXPECT_EQ(unit.state()["power"], "off");
    EXPECT_FALSE(unit.connect().is_connected());

    EXPECT_EQ(unit.tell("boot 3600"), "ok");
    EXPECT_EQ(unit.tell("power on"), "ok");
    EXPECT_EQ(unit.state()["power"], "booting");
    EXPECT_FALSE(unit.connect().is_connected());

    EXPECT_EQ(unit.tell("power off"), "ok");
    EXPECT_EQ(unit.tell("boot 0"), "ok");
    EXPECT_EQ(unit.tell("power on"), "ok");
    const auto state = unit.state();
    EXPECT_EQ(state["power"], "on");
    EXPECT_EQ(state["top_led"], "off");
    EXPECT_EQ(state["awake"], true);
    EXPECT_THAT(unit.get("screen.shtml?p"), HasSubstr("<body>1</body>"));
}

TEST(UnitFaults, PowerCutEndsARunningFetch) {
    boost::asio::io_context loop;
    boost::asio::ip::tcp::acceptor server(loop, {boost::asio::ip::address_v4::loopback(), 0});
    const std::string url =
        "http://127.0.0.1:" + std::to_string(server.local_endpoint().port()) + "/x";
    const RunningUnit unit;
    static_cast<void>(unit.get("gotoURL.shtml?M=GOTO_URL&S=" + url));
    auto client = unit.connect();
    client.send("GET /loadWav.shtml?" + url + " HTTP/1.0\r\n\r\n");
    const auto page_fetch = server.accept();
    const auto sound_fetch = server.accept();
    EXPECT_EQ(unit.tell("power off"), "ok");
    EXPECT_EQ(client.rest(), "");
    EXPECT_EQ(unit.state()["browser"]["url"], "");
}

TEST(UnitFaults, AWrongCommandIsExplained) {
    const RunningUnit unit;
    EXPECT_THAT(unit.tell("explode\nsilent"),
                StartsWith("error: unknown command \"explode silent\""));
    EXPECT_EQ(unit.state()["fault"], "normal");
}

}  // namespace
}  // namespace unit
