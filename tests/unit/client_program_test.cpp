#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <boost/asio.hpp>
#include <optional>

#include "unit/running_unit.h"

namespace unit::testing {
namespace {

namespace asio = boost::asio;
using asio::ip::udp;

// The daemon's side of the link.
class Daemon {
  public:
    [[nodiscard]] std::string address() const {
        return "127.0.0.1:" + std::to_string(socket_.local_endpoint().port());
    }

    // The next datagram of a client, and from whom.
    std::string next() {
        std::array<char, 256> buffer{};
        const std::size_t length = socket_.receive_from(asio::buffer(buffer), client_);
        return {buffer.data(), length};
    }

    void send(char kind, std::string first, std::string second) {
        first.resize(64, '\0');
        second.resize(64, '\0');
        socket_.send_to(asio::buffer(kind + std::string(7, '\0') + first + second), client_);
    }

  private:
    asio::io_context loop_;
    udp::socket socket_{loop_, {asio::ip::make_address("127.0.0.1"), 0}};
    udp::endpoint client_;
};

std::uint16_t free_udp_port() {
    asio::io_context loop;
    return udp::socket(loop, {asio::ip::make_address(kUnitAddress), 0}).local_endpoint().port();
}

TEST(ClientProgram, SubscribesShowsCallersAndCarriesCommandsOut) {
    Daemon daemon;
    const RunningUnit unit(daemon.address(), free_udp_port());
    ASSERT_EQ(daemon.next(), "\1");
    EXPECT_TRUE(unit.state_when(
        [](const auto& s) { return s["client"]["subscribed"]; })["client"]["subscribed"]);
    daemon.send(3, "J\xFCrgen", "(503) 555-1234");
    daemon.send(6, "TopLed", "blink");
    daemon.send(6, "MailLed", "purple");
    daemon.send(6, "Beep", "7");
    daemon.send(6, "Screen", "off");
    daemon.send(7, "no", "message");
    daemon.send(6, "Execute", "calc.exe");
    const nlohmann::json state =
        unit.state_when([](const auto& s) { return s["client"]["messages"] == 6; });
    EXPECT_EQ(state["client"]["caller"]["name"], "J\xC3\xBCrgen");
    EXPECT_EQ(state["client"]["caller"]["number"], "(503) 555-1234");
    EXPECT_EQ(state["client"]["command"], "Execute calc.exe");
    EXPECT_EQ(state["top_led"], "blink");
    EXPECT_EQ(state["mail_led"], "off");
    EXPECT_EQ(state["last_sound"], 7);
    EXPECT_EQ(state["awake"], false);
}

TEST(ClientProgram, UnsubscribesOnRequestAndWhenTheUnitEndsAndComesBackWithThePower) {
    Daemon daemon;
    RunningUnit unit(daemon.address(), free_udp_port());
    ASSERT_EQ(daemon.next(), "\1");
    EXPECT_EQ(unit.tell("unsubscribe"), "ok");
    EXPECT_EQ(daemon.next(), "\2");
    EXPECT_EQ(unit.state()["client"]["subscribed"], false);
    EXPECT_EQ(unit.tell("power off"), "ok");
    EXPECT_EQ(unit.tell("subscribe"), "error: this unit is not on");
    EXPECT_EQ(unit.tell("power on"), "ok");
    EXPECT_EQ(daemon.next(), "\1");
    unit.stop();
    EXPECT_EQ(daemon.next(), "\2");
}

TEST(ClientProgram, ASilentUnitHearsNothing) {
    Daemon daemon;
    const RunningUnit unit(daemon.address(), free_udp_port());
    ASSERT_EQ(daemon.next(), "\1");
    EXPECT_EQ(unit.tell("silent"), "ok");
    daemon.send(6, "TopLed", "on");
    daemon.send(3, "Anna", "1");
    while (unit.file("requests.log").find("CALLER\tAnna 1\tsilent") == std::string::npos) {
        (void)unit.state();
    }
    EXPECT_EQ(unit.state()["client"]["messages"], 0);
    EXPECT_EQ(unit.state()["top_led"], "off");
}

TEST(ClientProgram, AUnitWithoutADaemonRefusesToSubscribe) {
    const RunningUnit unit;
    EXPECT_EQ(unit.tell("subscribe"),
              "error: this unit runs no client program; start it with --client-of");
}

}  // namespace
}  // namespace unit::testing
