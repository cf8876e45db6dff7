#include "appliance/jukebox_link.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/house.h"

// The line to the music players of the units, between the event object and the network.
namespace appliance {
namespace {

using namespace std::chrono_literals;
using support::House;
using support::TcpPeer;
using support::TcpPeerServer;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kHall = "192.168.0.20";
constexpr const char* kAttic = "192.168.0.21";
constexpr const char* kPort = "1024";

class JukeboxLinkTest : public testing::Test {
  protected:
    [[nodiscard]] JukeboxLink& link() { return *house_.queue_timer().phJuke(); }

    TcpPeerServer& player_at(const char* address) {
        return house_.machine().network.serve(address, 1024);
    }

    [[nodiscard]] std::chrono::nanoseconds now() { return house_.machine().pump.steady_now(); }

    House house_{{"Hall"}};
};

TEST_F(JukeboxLinkTest, CarriesOneTextAsItStandsOverOneConnection) {
    TcpPeerServer& player = player_at(kHall);
    const auto start = now();
    ASSERT_TRUE(link().ConnectPhJuke(kHall, kPort));
    link().SendPhJuke("play;all");
    EXPECT_EQ(now(), start);
    house_.run_for(0ms);
    EXPECT_THAT(player.packets(), ElementsAre("play;all"));
    EXPECT_TRUE(player.peer(0).closed());
    EXPECT_THAT(house_.queue_timer().running_timers(), IsEmpty());

    ASSERT_TRUE(link().ConnectPhJuke(kHall, kPort));
    link().SendPhJuke("stop");
    EXPECT_EQ(player.peer_count(), 2U);
}

TEST_F(JukeboxLinkTest, KeepsItsConnectionUntilSomethingIsSent) {
    TcpPeerServer& player = player_at(kHall);
    ASSERT_TRUE(link().ConnectPhJuke(kHall, kPort));
    EXPECT_TRUE(link().OpenphJukePort());
    house_.run_for(1min);
    EXPECT_EQ(player.peer_count(), 1U);
    link().ClosePhJukePort();
    house_.run_for(0ms);
    EXPECT_TRUE(player.peer(0).closed());
}

TEST_F(JukeboxLinkTest, GivesUpAfterTwoTimesSixAttempts) {
    const auto silent = [this] { house_.machine().network.silence(kHall); };
    const auto refusing = [] {};
    for (const std::function<void()>& prepare : {std::function<void()>(refusing), {silent}}) {
        prepare();
        auto start = now();
        EXPECT_FALSE(link().ConnectPhJuke(kHall, kPort));
        EXPECT_EQ(now() - start, 24s);
        start = now();
        EXPECT_FALSE(link().OpenphJukePort());
        EXPECT_EQ(now() - start, 12s);
    }
    EXPECT_THAT(house_.log(), IsEmpty());
}

TEST_F(JukeboxLinkTest, FindsAPlayerThatComesUpMeanwhile) {
    for (const auto& delay : {1s, 9s, 15s}) {
        const char* address = kAttic;
        TcpPeerServer* player = nullptr;
        house_.machine().pump.call_later(delay, [&] { player = &player_at(address); });
        const auto start = now();
        EXPECT_TRUE(link().ConnectPhJuke(address, kPort));
        EXPECT_LE(now() - start, delay + 2s);
        EXPECT_GE(now() - start, delay);
        player->close();
    }
}

TEST_F(JukeboxLinkTest, ASendThatNeverCompletesEndsAfterTwoSeconds) {
    TcpPeerServer& player = player_at(kHall);
    player.on_connection = [](TcpPeer& peer) { peer.hold_back(); };
    ASSERT_TRUE(link().ConnectPhJuke(kHall, kPort));
    house_.run_for(0ms);
    const auto start = now();
    link().SendPhJuke("play");
    EXPECT_EQ(now() - start, 2s);
    EXPECT_FALSE(link().SendTimer().enabled());
    EXPECT_TRUE(link().ConnectPhJuke(kHall, kPort));
}

TEST_F(JukeboxLinkTest, ReportsErrorsOfTheSocketOnlyForThoseWhoDebug) {
    house_.instance().log.set_debug_log(true);
    EXPECT_FALSE(link().OpenphJukePort());
    house_.host().forget();
    house_.instance().ShuttingDown = true;
    EXPECT_FALSE(link().ConnectPhJuke(kHall, kPort));
    EXPECT_THAT(house_.log(), IsEmpty());

    house_.instance().ShuttingDown = false;
    EXPECT_FALSE(link().ConnectPhJuke(kHall, kPort));
    ASSERT_EQ(house_.log().size(), 12U);
    EXPECT_THAT(house_.log().front(),
                HasSubstr("zynVelora: phJukeWinsock_Error at State 9, 10061 Connection refused"));
}

TEST_F(JukeboxLinkTest, WhatCannotBeAddressedIsLoggedOnceAndFails) {
    EXPECT_FALSE(link().ConnectPhJuke(kHall, "music"));
    EXPECT_THAT(house_.log(), ElementsAre(HasSubstr("ConnectPhJuke  Line ")));
    house_.host().forget();
    link().SendPhJuke("play");  // without a connection
    EXPECT_THAT(house_.log(), ElementsAre(HasSubstr("SendPhJuke  Line ")));
}

TEST_F(JukeboxLinkTest, ASecondCommandOnTopTakesTheSocketOver) {
    TcpPeerServer& hall = player_at(kHall);
    TcpPeerServer& attic = player_at(kAttic);
    hall.on_connection = [](TcpPeer& peer) { peer.hold_back(); };
    ASSERT_TRUE(link().ConnectPhJuke(kHall, kPort));
    house_.run_for(0ms);
    house_.machine().pump.call_later(500ms, [this] {
        ASSERT_TRUE(link().ConnectPhJuke(kAttic, kPort));
        link().SendPhJuke("inner");
    });
    const auto start = now();
    link().SendPhJuke("outer");
    EXPECT_EQ(now() - start, 500ms);
    house_.run_for(0ms);
    EXPECT_THAT(attic.packets(), ElementsAre("inner"));
    EXPECT_EQ(attic.peer_count(), 1U);
}

// The outer call then tries the address that the inner one has left behind.
TEST_F(JukeboxLinkTest, AConnectInterruptedByAnotherGoesOnAtTheOthersAddress) {
    house_.machine().network.silence(kHall);
    TcpPeerServer& attic = player_at(kAttic);
    house_.machine().pump.call_later(3s, [this] {
        ASSERT_TRUE(link().ConnectPhJuke(kAttic, kPort));
        link().SendPhJuke("inner");
    });
    const auto start = now();
    EXPECT_TRUE(link().ConnectPhJuke(kHall, kPort));
    EXPECT_EQ(now() - start, 3s);
    house_.run_for(0ms);
    EXPECT_EQ(attic.peer_count(), 2U);
}

TEST_F(JukeboxLinkTest, ItsEndEndsTheWaits) {
    house_.machine().network.silence(kHall);
    house_.machine().pump.call_later(3s, [this] { link().shut(); });
    const auto start = now();
    EXPECT_FALSE(link().ConnectPhJuke(kHall, kPort));
    EXPECT_EQ(now() - start, 3s);
    EXPECT_FALSE(link().OpenphJukePort());
}

}  // namespace
}  // namespace appliance
