#include <gtest/gtest.h>

#include "webserver/server_house.h"

namespace webserver {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST(ServerStart, MakesFoldersAndListens) {
    ServerHouse house;
    house.start();
    EXPECT_EQ(house.server().upper_bound(), 5);
    EXPECT_TRUE(house.server().loaded());
    EXPECT_TRUE(house.files().FolderExists("C:\\HomeSeer\\Data\\zynVelora"));
    EXPECT_THAT(house.log(), IsEmpty());
}

TEST(ServerStart, IsDeafWithoutAPort) {
    ServerHouse house;
    house.set_port("");
    house.start();
    EXPECT_TRUE(house.server().loaded());
    EXPECT_EQ(house.server().upper_bound(), 0);
    EXPECT_THAT(house.log(), IsEmpty());
}

TEST(ServerStart, TakesTheNumberAtThePortsBeginning) {
    for (const char* port : {"\"8080\"", "8080 or so", " 8080"}) {
        ServerHouse house;
        house.set_port(port);
        house.start();
        EXPECT_TRUE(house.hears_a_new_connection()) << port;
    }
}

TEST(ServerStart, LeavesAnUnchangedPortAlone) {
    ServerHouse house;
    house.start();
    auto& client = house.connect();
    house.server().Form_Load();
    EXPECT_EQ(house.server().SocketsOpen(), 1);
    EXPECT_FALSE(client.closed());
    EXPECT_THAT(house.log(), IsEmpty());
}

TEST(ServerStart, ReportsATakenPortAndGoesOn) {
    ServerHouse first;
    first.start();
    TCPServerModule second(first.instance(), first);
    second.server().Form_Load();
    EXPECT_TRUE(second.server().loaded());
    EXPECT_THAT(first.log(), ElementsAre(AllOf(StartsWith("Server Form_Load  Line "),
                                               HasSubstr(ServerHouse::kPort))));
}

TEST(ServerStart, BeginsItsDebugLogAnew) {
    const std::string file = "C:\\HomeSeer\\Data\\zynVelora\\zynVelora_TCPServerDebug.txt";
    ServerHouse house;
    house.files().put(file, "of yesterday");
    house.start();
    house.start_debug_log();
    house.connect();
    EXPECT_EQ(house.files().read(file),
              "11/24/2026 10:00:00 AM | ConnectionRequest for socket 1 RequestID=1, "
              "Sockets Defined=5, Sockets Open=1\r\n");
}

TEST(ServerStop, ClosesEveryConnection) {
    ServerHouse house;
    house.start();
    auto& client = house.connect();
    house.server().Form_Unload();
    house.run_for(1s);
    EXPECT_TRUE(client.closed());
    EXPECT_FALSE(house.server().loaded());
    EXPECT_EQ(house.server().upper_bound(), -1);
}

TEST(Connections, KeepFourSocketsSpareUpToFifty) {
    ServerHouse house;
    house.start();
    for (const auto& [connections, upper_bound] :
         {std::pair{1, 5}, {2, 6}, {3, 7}, {45, 49}, {46, 50}, {48, 50}}) {
        house.connect_until(connections);
        EXPECT_EQ(house.server().upper_bound(), upper_bound) << connections;
        EXPECT_EQ(house.server().SocketsOpen(), connections);
    }
}

TEST(Connections, OverloadClosesThemAllAndTheListener) {
    ServerHouse house;
    house.start();
    house.connect_until(49);
    EXPECT_EQ(house.server().SocketsOpen(), 49);

    auto& last = house.connect();
    EXPECT_EQ(house.server().SocketsOpen(), 1);
    EXPECT_EQ(house.server().upper_bound(), 5);
    EXPECT_FALSE(last.closed());
    EXPECT_TRUE(house.client(0).closed());
    EXPECT_EQ(house.server().Socket(0).State(), host::SocketState::Closed);
    EXPECT_FALSE(house.hears_a_new_connection());
}

TEST(Connections, BrokenOnesAreForgottenAtTheNextRequest) {
    ServerHouse house;
    house.start();
    house.connect_until(3);
    house.client(0).reset();
    house.client(1).reset();
    house.run_for(1ms);
    EXPECT_EQ(house.server().SocketsOpen(), 3);
    EXPECT_EQ(house.server().Socket(1).State(), host::SocketState::Error);
    house.connect();
    EXPECT_EQ(house.server().SocketsOpen(), 2);
    EXPECT_EQ(house.server().Socket(1).State(), host::SocketState::Closed);
}

TEST(Connections, TakeFreeSocketsInTurnAndNeverTheListener) {
    ServerHouse house;
    house.start();
    house.start_debug_log();
    std::vector<std::string> sockets;
    for (int turn = 0; turn < 7; ++turn) {
        house.exchange("GET /missing.htm HTTP/1.0\r\n\r\n");
    }
    for (const std::string& line : house.debug_lines()) {
        if (line.starts_with("ConnectionRequest for socket ")) {
            sockets.push_back(line.substr(29, 1));
        }
    }
    EXPECT_THAT(sockets, ElementsAre("1", "2", "3", "4", "5", "1", "2"));
}

TEST(Connections, WaitFiftyMillisecondsForTheRestOfABurst) {
    ServerHouse house;
    house.start();
    auto& client = house.connect();
    client.send("GET /missing.htm HTTP/1.0\r\n\r\n");
    house.run_for(45ms);
    EXPECT_EQ(house.server().queue_length(), 1U);
    EXPECT_EQ(client.received(), "");
    house.run_for(10ms);
    EXPECT_EQ(house.server().queue_length(), 0U);
    EXPECT_THAT(client.received(), HasSubstr("404"));
    EXPECT_TRUE(client.closed());
}

TEST(Connections, PeerThatClosesLosesOnlyItsOldestPacket) {
    ServerHouse house;
    house.start();
    house.start_debug_log();
    auto& client = house.connect();
    client.send("GET /one.htm");
    house.run_for(5ms);
    client.send(" HTTP/1.0\r\n\r\n");
    house.run_for(5ms);
    EXPECT_EQ(house.server().queue_length(), 2U);
    client.close();
    house.run_for(5ms);
    EXPECT_EQ(house.server().queue_length(), 1U);
    EXPECT_THAT(house.debug_lines(),
                ElementsAre(StartsWith("ConnectionRequest for socket 1 RequestID="),
                            "Pushing Index 1 for socket 1", "Pushing Index 2 for socket 1",
                            "Pending Request Removed for socket 1, 1~GET /one.htm",
                            "ConnectionClose for socket 1, Sockets Open=0, state was 8, "
                            "open count was 1"));
}

TEST(Requests, SplitOverTwoPacketsAreTwoRequests) {
    ServerHouse house;
    house.start();
    house.start_debug_log();
    auto& client = house.connect();
    client.send("GET /missing");
    house.run_for(5ms);
    client.send(".htm HTTP/1.0\r\n\r\n");
    house.run_for(1s);
    EXPECT_THAT(house.debug_lines(), Contains("Poping socket 1 type= for page "));
    EXPECT_THAT(client.received(), StartsWith("HTTP/1.0 307 NoSupport"));
}

TEST(Requests, PostTakesItsBodyFromItsOwnOrTheFollowingPackets) {
    const struct {
        std::vector<std::string> packets;
        std::string form;
    } rows[] = {
        {{"POST /status HTTP/1.0\r\n\r\na=1&b=2"}, "[a=1][b=2]"},
        {{"POST /status HTTP/1.0\r\n\r\n", "a=1&b=2"}, "[a=1][b=2]"},
        {{"POST /status HTTP/1.0\r\n\r\n", "a=1", "b=2"}, "[a=1][b=2]"},
        {{"POST /status HTTP/1.0\r\n\r\n"}, ""},
    };

    for (const auto& row : rows) {
        ServerHouse house;
        house.start();
        auto& client = house.connect();
        for (const std::string& packet : row.packets) {
            client.send(packet);
            house.run_for(2ms);
        }
        house.run_for(1s);
        EXPECT_THAT(client.received(), HasSubstr("form " + row.form + " end"));
    }
}

TEST(Requests, BodyThatComesLateIsARequestOfItsOwn) {
    ServerHouse house;
    house.start();
    house.start_debug_log();
    auto& client = house.connect();
    client.send("POST /status HTTP/1.0\r\n\r\n");
    house.run_for(48ms);
    client.hold_back();  // the response is under way when the body comes
    house.run_for(10ms);
    client.send("a=1&b=2");
    house.run_for(1s);
    EXPECT_THAT(house.debug_lines(), Contains("Poping socket 1 type= for page "));
}

TEST(Requests, MissingBodyTurnsForEver) {
    ServerHouse house;
    house.start();
    house.start_debug_log(LogLines{12});  // the log then fails, which ends the loop
    auto& post = house.connect();
    auto& other = house.connect();
    post.send("POST /status HTTP/1.0\r\n\r\n");
    other.send("GET /missing.htm HTTP/1.0\r\n\r\n");
    house.run_for(1s);
    EXPECT_EQ(house.server().queue_length(), 1U);
    EXPECT_THAT(house.debug_lines(),
                Contains("Post data expected from socket 1 but next packet was from socket 2")
                    .Times(testing::Ge(3)));
    EXPECT_THAT(house.log(), ElementsAre(StartsWith("ProcessRequestQueue  Line ")));
}

TEST(Requests, FailureStallsTheQueueForGood) {
    ServerHouse house;
    house.start();
    house.page_fails = true;
    auto& failed = house.connect();
    failed.send("GET /status HTTP/1.0\r\n\r\n");
    house.run_for(1s);
    house.page_fails = false;
    EXPECT_THAT(house.log(), ElementsAre(StartsWith("ProcessRequestQueue  Line ")));
    EXPECT_FALSE(failed.closed());

    auto& next = house.connect();
    next.send("GET /status HTTP/1.0\r\n\r\n");
    house.run_for(1h);
    EXPECT_EQ(next.received(), "");
    EXPECT_EQ(house.server().queue_length(), 1U);
}

}  // namespace
}  // namespace webserver
