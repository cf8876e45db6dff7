#include "platform/asio/asio_network.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "automation/run_time_error.h"
#include "platform/asio/asio_pump.h"

namespace platform {
namespace {

using namespace std::chrono_literals;
using host::SocketState;
using testing::ElementsAre;

constexpr auto kPatience = 5000ms;
constexpr std::int32_t kAll = std::numeric_limits<std::int32_t>::max();

// One end of a conversation: notes what happens, gathers what arrives.
class Party : public host::TcpSocketEvents {
  public:
    explicit Party(AsioNetwork& network) : socket(network.make_tcp_socket(*this)) {}

    void ConnectionRequest(host::ConnectionRequestId request) override { on_request(request); }

    void Connect() override { trace.emplace_back("Connect"); }

    void DataArrival(std::int32_t bytes_total) override { on_data(bytes_total); }

    void SendComplete() override { trace.emplace_back("SendComplete"); }

    void Close() override {
        EXPECT_EQ(socket->State(), SocketState::Closing);
        trace.emplace_back("Close");
    }

    void Error(std::int32_t number, std::string_view description) override {
        trace.push_back(std::to_string(number) + " " + std::string(description));
    }

    std::unique_ptr<host::TcpSocket> socket;
    std::vector<std::string> trace;
    std::string received;
    std::function<void(host::ConnectionRequestId)> on_request = [](auto) {};
    std::function<void(std::int32_t)> on_data = [this](auto) { received += socket->GetData(kAll); };
};

class AsioNetworkTest : public testing::Test {
  protected:
    AsioNetworkTest() {
        listener_.socket->Listen();
        listener_.on_request = [this](auto request) { server_.socket->Accept(request); };
    }

    void connect() {
        client_.socket->Connect("127.0.0.1", listener_.socket->LocalPort());
        run_until([&] { return !client_.trace.empty() && is_connected(server_); });
    }

    [[nodiscard]] static bool is_connected(const Party& party) {
        return party.socket->State() == SocketState::Connected;
    }

    void run_until(const std::function<bool()>& done) {
        EXPECT_TRUE(pump_.run_until(done, kPatience));
    }

    void run_until_traced(const Party& party, const std::string& entry) {
        run_until([&] { return !party.trace.empty() && party.trace.back() == entry; });
    }

    AsioPump pump_;
    AsioNetwork network_{pump_};
    Party listener_{network_};
    Party server_{network_};
    Party client_{network_};
};

std::int32_t error_number_of(const std::function<void()>& action) {
    try {
        action();
    } catch (const automation::RunTimeError& error) {
        return error.number();
    }
    return 0;
}

TEST_F(AsioNetworkTest, AnAcceptedConnectionCarriesBytesBothWays) {
    const std::string all_bytes("a\0\xff\r\n", 5);
    server_.on_data = [&](auto bytes_total) {
        server_.socket->SendData(server_.socket->GetData(bytes_total));
    };
    connect();
    EXPECT_TRUE(is_connected(client_));
    EXPECT_EQ(listener_.socket->State(), SocketState::Listening);
    EXPECT_EQ(listener_.socket->RemoteHostIP(), "127.0.0.1");
    EXPECT_EQ(server_.socket->RemoteHostIP(), "127.0.0.1");
    client_.socket->SendData(all_bytes);
    run_until([&] { return client_.received == all_bytes; });
    EXPECT_THAT(client_.trace, ElementsAre("Connect", "SendComplete"));
}

TEST_F(AsioNetworkTest, ARequestIsRefusedAtTheEndOfItsEvent) {
    host::ConnectionRequestId refused = 0;
    listener_.on_request = [&](auto request) { refused = request; };
    client_.socket->Connect("127.0.0.1", listener_.socket->LocalPort());
    run_until_traced(client_, "Close");
    EXPECT_EQ(error_number_of([&] { server_.socket->Accept(refused); }), 5);
    EXPECT_EQ(server_.socket->State(), SocketState::Closed);
}

TEST_F(AsioNetworkTest, ARequestCanBeAcceptedAfterItsListenerWasClosed) {
    listener_.on_request = [&](auto request) {
        listener_.socket->Close();
        server_.socket->Accept(request);
    };
    connect();
    EXPECT_EQ(listener_.socket->State(), SocketState::Closed);
    EXPECT_EQ(listener_.socket->RemoteHostIP(), "127.0.0.1");
}

TEST_F(AsioNetworkTest, ATakenPortIsToldByItsNumber) {
    const std::int32_t port = listener_.socket->LocalPort();
    server_.socket->set_local_port(port);
    try {
        server_.socket->Listen();
        FAIL();
    } catch (const automation::RunTimeError& error) {
        EXPECT_EQ(error.number(), 10048);
        EXPECT_EQ(error.description(), "Address in use: port " + std::to_string(port));
    }
    listener_.socket->Close();
    EXPECT_EQ(error_number_of([&] { server_.socket->Listen(); }), 0);
}

TEST_F(AsioNetworkTest, AFailedConnectionIsAStateAndAnEvent) {
    const std::int32_t port = listener_.socket->LocalPort();
    listener_.socket->Close();
    client_.socket->Connect("127.0.0.1", port);
    EXPECT_EQ(client_.socket->State(), SocketState::Connecting);
    run_until([&] { return client_.socket->State() == SocketState::Error; });
    EXPECT_THAT(client_.trace, ElementsAre("10061 Connection refused"));
    EXPECT_EQ(error_number_of([&] { client_.socket->SendData("x"); }), 57);
    client_.socket->Close();
    EXPECT_EQ(client_.socket->State(), SocketState::Closed);
}

TEST_F(AsioNetworkTest, QueuedBytesReachThePeerAfterClose) {
    const std::string answer(3'000'000, 'a');
    connect();
    client_.socket->SendData(std::string(200'000, 'q'));  // never read
    server_.on_data = [&](auto) {
        server_.socket->SendData(answer);
        server_.socket->SendData("end");
        server_.socket->Close();
    };
    run_until_traced(client_, "Close");
    EXPECT_EQ(client_.received, answer + "end");
    EXPECT_EQ(server_.socket->State(), SocketState::Closed);
    EXPECT_THAT(server_.trace, ElementsAre());
}

TEST_F(AsioNetworkTest, ThePeerWaitsWhileNobodyTakesItsBytes) {
    const std::string bytes(20'000'000, 'b');
    std::int32_t waiting = 0;
    server_.on_data = [&](auto bytes_total) { waiting = bytes_total; };
    connect();
    client_.socket->SendData(bytes);
    client_.socket->Close();
    run_until([&] { return waiting == 65'536; });
    pump_.run_until([] { return false; }, 5ms);
    EXPECT_EQ(waiting, 65'536);
    EXPECT_THAT(server_.trace, ElementsAre());

    server_.on_data = [&](auto) { server_.received += server_.socket->GetData(kAll); };
    server_.received = server_.socket->GetData(kAll);
    run_until_traced(server_, "Close");
    EXPECT_EQ(server_.received.size(), bytes.size());
}

TEST_F(AsioNetworkTest, NothingArrivesAfterCloseOrTheSocketsEnd) {
    int arrivals = 0;
    server_.on_data = [&](auto) {
        ++arrivals;
        server_.socket->Close();
        client_.socket->SendData("second");
        pump_.run_until([] { return false; }, 5ms);
    };
    connect();
    client_.socket->SendData("first");
    run_until([&] { return arrivals > 0; });
    EXPECT_EQ(arrivals, 1);

    server_.on_data = [&](auto) { ++arrivals; };
    client_.socket->Close();
    client_.trace.clear();
    connect();
    client_.socket->SendData("third");
    server_.socket.reset();
    run_until_traced(client_, "Close");
    EXPECT_EQ(arrivals, 1);
}

class UdpParty : public host::UdpSocketEvents {
  public:
    explicit UdpParty(AsioNetwork& network) : socket(network.make_udp_socket(*this)) {}

    void DataArrival(std::int32_t bytes_total) override { on_data(bytes_total); }

    std::unique_ptr<host::UdpSocket> socket;
    std::vector<std::int32_t> arrivals;
    std::function<void(std::int32_t)> on_data = [this](auto total) { arrivals.push_back(total); };
};

TEST_F(AsioNetworkTest, DatagramsKeepTheirBoundsAndTellTheirSender) {
    AsioNetwork elsewhere(pump_, "127.0.0.2");
    UdpParty server(network_);
    UdpParty client(elsewhere);
    server.socket->Bind();
    for (const char* const name : {"127.0.0.1", "localhost"}) {
        client.socket->set_remote_host(name);
        client.socket->set_remote_port(server.socket->LocalPort());
        client.socket->SendData("one");
        client.socket->SendData("second");
        run_until([&] { return server.arrivals.size() == 2; });
        EXPECT_THAT(server.arrivals, ElementsAre(3, 6));
        EXPECT_EQ(server.socket->GetData(), "one");
        EXPECT_EQ(server.socket->GetData(), "second");
        EXPECT_EQ(server.socket->RemoteHostIP(), "127.0.0.2");
        EXPECT_EQ(server.socket->GetData(), "");
        server.arrivals.clear();
    }
}

TEST_F(AsioNetworkTest, UdpFailures) {
    UdpParty server(network_);
    UdpParty other(network_);
    server.socket->Bind();
    other.socket->set_local_port(server.socket->LocalPort());
    EXPECT_EQ(error_number_of([&] { other.socket->Bind(); }), 10048);
    server.socket->Close();
    EXPECT_EQ(error_number_of([&] { other.socket->Bind(); }), 0);
    EXPECT_EQ(error_number_of([&] { other.socket->SendData("x"); }), 57);
    other.socket->set_remote_host("127.0.0.1");
    other.socket->set_remote_port(65'536);
    EXPECT_EQ(error_number_of([&] { other.socket->SendData("x"); }), 57);
}

TEST(AsioNetwork, AListenAddressIsNumeric) {
    AsioPump pump;
    EXPECT_EQ(error_number_of([&] { AsioNetwork(pump, "localhost"); }), 5);
}

}  // namespace
}  // namespace platform
