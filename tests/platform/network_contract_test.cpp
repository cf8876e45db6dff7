#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <chrono>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "automation/run_time_error.h"
#include "host/sockets.h"
#include "platform/asio/asio_network.h"
#include "platform/asio/asio_pump.h"
#include "support/memory_network.h"
#include "support/virtual_pump.h"

namespace {

using namespace std::chrono_literals;
using host::SocketState;
using testing::ElementsAre;

constexpr auto kPatience = 5000ms;
constexpr std::int32_t kAll = std::numeric_limits<std::int32_t>::max();

// One end of a conversation: notes what happens, gathers what arrives.
class Party : public host::TcpSocketEvents {
  public:
    explicit Party(host::Network& network) : socket(network.make_tcp_socket(*this)) {}

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

std::int32_t error_number_of(const std::function<void()>& action) {
    try {
        action();
    } catch (const automation::RunTimeError& error) {
        return error.number();
    }
    return 0;
}

// The network of the machine, and another machine on it.
struct AsioMachines {
    static constexpr const char* kName = "Asio";
    static constexpr const char* kAddress = "127.0.0.1";
    static constexpr const char* kElsewhere = "127.0.0.2";

    platform::AsioPump pump;
    platform::AsioNetwork network{pump, kAddress};
    platform::AsioNetwork elsewhere{pump, kElsewhere};
};

// The network of tests; both sockets of a datagram are the house's.
struct MemoryMachines {
    static constexpr const char* kName = "Memory";
    static constexpr const char* kAddress = "10.0.0.2";
    static constexpr const char* kElsewhere = kAddress;

    support::VirtualPump pump;
    support::MemoryNetwork network{pump, kAddress};
    support::MemoryNetwork& elsewhere = network;
};

template <typename Machines>
class NetworkContract : public testing::Test {
  protected:
    NetworkContract() {
        listener_.socket->Listen();
        listener_.on_request = [this](auto request) { server_.socket->Accept(request); };
    }

    void connect() {
        client_.socket->Connect(Machines::kAddress, listener_.socket->LocalPort());
        run_until([&] { return !client_.trace.empty() && is_connected(server_); });
    }

    [[nodiscard]] static bool is_connected(const Party& party) {
        return party.socket->State() == SocketState::Connected;
    }

    void run_until(const std::function<bool()>& done) {
        EXPECT_TRUE(machines_.pump.run_until(done, kPatience));
    }

    void rest() {
        machines_.pump.run_until([] { return false; }, 5ms);
    }

    void run_until_traced(const Party& party, const std::string& entry) {
        run_until([&] { return !party.trace.empty() && party.trace.back() == entry; });
    }

    Machines machines_;
    Party listener_{machines_.network};
    Party server_{machines_.network};
    Party client_{machines_.network};
};

struct MachineNames {
    template <typename Machines>
    static std::string GetName(int) {
        return Machines::kName;
    }
};

using Networks = testing::Types<AsioMachines, MemoryMachines>;
TYPED_TEST_SUITE(NetworkContract, Networks, MachineNames);

TYPED_TEST(NetworkContract, AnAcceptedConnectionCarriesBytesBothWays) {
    const std::string all_bytes("a\0\xff\r\n", 5);
    this->server_.on_data = [&](auto bytes_total) {
        this->server_.socket->SendData(this->server_.socket->GetData(bytes_total));
    };
    this->connect();
    EXPECT_TRUE(this->is_connected(this->client_));
    EXPECT_EQ(this->listener_.socket->State(), SocketState::Listening);
    EXPECT_EQ(this->listener_.socket->RemoteHostIP(), TypeParam::kAddress);
    EXPECT_EQ(this->server_.socket->RemoteHostIP(), TypeParam::kAddress);
    this->client_.socket->SendData(all_bytes);
    this->run_until([&] { return this->client_.received == all_bytes; });
    EXPECT_THAT(this->client_.trace, ElementsAre("Connect", "SendComplete"));
}

TYPED_TEST(NetworkContract, ARequestIsRefusedAtTheEndOfItsEvent) {
    host::ConnectionRequestId refused = 0;
    this->listener_.on_request = [&](auto request) { refused = request; };
    this->client_.socket->Connect(TypeParam::kAddress, this->listener_.socket->LocalPort());
    this->run_until_traced(this->client_, "Close");
    EXPECT_EQ(error_number_of([&] { this->server_.socket->Accept(refused); }), 5);
    EXPECT_EQ(this->server_.socket->State(), SocketState::Closed);
}

TYPED_TEST(NetworkContract, ARequestCanBeAcceptedAfterItsListenerWasClosed) {
    this->listener_.on_request = [&](auto request) {
        this->listener_.socket->Close();
        this->server_.socket->Accept(request);
    };
    this->connect();
    EXPECT_EQ(this->listener_.socket->State(), SocketState::Closed);
    EXPECT_EQ(this->listener_.socket->RemoteHostIP(), TypeParam::kAddress);
}

TYPED_TEST(NetworkContract, ATakenPortIsToldByItsNumber) {
    const std::int32_t port = this->listener_.socket->LocalPort();
    this->server_.socket->set_local_port(port);
    try {
        this->server_.socket->Listen();
        FAIL();
    } catch (const automation::RunTimeError& error) {
        EXPECT_EQ(error.number(), 10048);
        EXPECT_EQ(error.description(), "Address in use: port " + std::to_string(port));
    }
    this->listener_.socket->Close();
    EXPECT_EQ(error_number_of([&] { this->server_.socket->Listen(); }), 0);
}

TYPED_TEST(NetworkContract, AFailedConnectionIsAStateAndAnEvent) {
    const std::int32_t port = this->listener_.socket->LocalPort();
    this->listener_.socket->Close();
    this->client_.socket->Connect(TypeParam::kAddress, port);
    EXPECT_EQ(this->client_.socket->State(), SocketState::Connecting);
    this->run_until([&] { return this->client_.socket->State() == SocketState::Error; });
    EXPECT_THAT(this->client_.trace, ElementsAre("10061 Connection refused"));
    EXPECT_EQ(error_number_of([&] { this->client_.socket->SendData("x"); }), 57);
    this->client_.socket->Close();
    EXPECT_EQ(this->client_.socket->State(), SocketState::Closed);
}

TYPED_TEST(NetworkContract, QueuedBytesReachThePeerAfterClose) {
    const std::string answer(3'000'000, 'a');
    this->connect();
    this->client_.socket->SendData(std::string(200'000, 'q'));  // never read
    this->server_.on_data = [&](auto) {
        this->server_.socket->SendData(answer);
        this->server_.socket->SendData("end");
        this->server_.socket->Close();
    };
    this->run_until_traced(this->client_, "Close");
    EXPECT_EQ(this->client_.received, answer + "end");
    EXPECT_EQ(this->server_.socket->State(), SocketState::Closed);
    EXPECT_THAT(this->server_.trace, ElementsAre());
}

TYPED_TEST(NetworkContract, NothingArrivesAfterCloseOrTheSocketsEnd) {
    int arrivals = 0;
    this->server_.on_data = [&](auto) {
        ++arrivals;
        this->server_.socket->Close();
        this->client_.socket->SendData("second");
        this->rest();
    };
    this->connect();
    this->client_.socket->SendData("first");
    this->run_until([&] { return arrivals > 0; });
    EXPECT_EQ(arrivals, 1);

    this->server_.on_data = [&](auto) { ++arrivals; };
    this->client_.socket->Close();
    this->client_.trace.clear();
    this->connect();
    this->client_.socket->SendData("third");
    this->server_.socket.reset();
    this->run_until_traced(this->client_, "Close");
    EXPECT_EQ(arrivals, 1);
}

class UdpParty : public host::UdpSocketEvents {
  public:
    explicit UdpParty(host::Network& network) : socket(network.make_udp_socket(*this)) {}

    void DataArrival(std::int32_t bytes_total) override { on_data(bytes_total); }

    std::unique_ptr<host::UdpSocket> socket;
    std::vector<std::int32_t> arrivals;
    std::function<void(std::int32_t)> on_data = [this](auto total) { arrivals.push_back(total); };
};

TYPED_TEST(NetworkContract, DatagramsKeepTheirBoundsAndTellTheirSender) {
    UdpParty server(this->machines_.network);
    UdpParty client(this->machines_.elsewhere);
    server.socket->Bind();
    for (const char* const name : {TypeParam::kAddress, "localhost"}) {
        client.socket->set_remote_host(name);
        client.socket->set_remote_port(server.socket->LocalPort());
        client.socket->SendData("one");
        client.socket->SendData("second");
        this->run_until([&] { return server.arrivals.size() == 2; });
        EXPECT_THAT(server.arrivals, ElementsAre(3, 6));
        EXPECT_EQ(server.socket->GetData(), "one");
        EXPECT_EQ(server.socket->GetData(), "second");
        EXPECT_EQ(server.socket->RemoteHostIP(), TypeParam::kElsewhere);
        EXPECT_EQ(server.socket->GetData(), "");
        server.arrivals.clear();
    }
}

TYPED_TEST(NetworkContract, UdpFailures) {
    UdpParty server(this->machines_.network);
    UdpParty other(this->machines_.network);
    server.socket->Bind();
    other.socket->set_local_port(server.socket->LocalPort());
    EXPECT_EQ(error_number_of([&] { other.socket->Bind(); }), 10048);
    server.socket->Close();
    EXPECT_EQ(error_number_of([&] { other.socket->Bind(); }), 0);
    EXPECT_EQ(error_number_of([&] { other.socket->SendData("x"); }), 57);
    other.socket->set_remote_host(TypeParam::kAddress);
    other.socket->set_remote_port(65'536);
    EXPECT_EQ(error_number_of([&] { other.socket->SendData("x"); }), 57);
}

// --- the machine's network alone ----------------------------------------------------------------

using AsioNetworkTest = NetworkContract<AsioMachines>;

TEST_F(AsioNetworkTest, ThePeerWaitsWhileNobodyTakesItsBytes) {
    const std::string bytes(20'000'000, 'b');
    std::int32_t waiting = 0;
    server_.on_data = [&](auto bytes_total) { waiting = bytes_total; };
    connect();
    client_.socket->SendData(bytes);
    client_.socket->Close();
    run_until([&] { return waiting == 65'536; });
    rest();
    EXPECT_EQ(waiting, 65'536);
    EXPECT_THAT(server_.trace, ElementsAre());

    server_.on_data = [&](auto) { server_.received += server_.socket->GetData(kAll); };
    server_.received = server_.socket->GetData(kAll);
    run_until_traced(server_, "Close");
    EXPECT_EQ(server_.received.size(), bytes.size());
}

TEST_F(AsioNetworkTest, AConnectionThatThePeerBreaksIsAnError) {
    boost::asio::io_context elsewhere;
    boost::asio::ip::tcp::socket peer(elsewhere);
    const auto port = static_cast<std::uint16_t>(listener_.socket->LocalPort());
    peer.connect({boost::asio::ip::make_address(AsioMachines::kAddress), port});
    run_until([&] { return is_connected(server_); });
    peer.set_option(boost::asio::socket_base::linger(true, 0));
    peer.close();
    run_until_traced(server_, "10054 Connection reset by peer");
    EXPECT_EQ(server_.socket->State(), SocketState::Error);
}

TEST_F(AsioNetworkTest, AListenAddressIsNumeric) {
    EXPECT_EQ(error_number_of([&] { platform::AsioNetwork(machines_.pump, "localhost"); }), 5);
}

// --- the network of tests alone
// -------------------------------------------------------------------

using MemoryNetworkTest = NetworkContract<MemoryMachines>;

TEST_F(MemoryNetworkTest, AServerElsewhereAnswersHoldsBackAndBreaksOff) {
    support::TcpPeerServer& jukebox = machines_.network.serve("10.0.0.21", 1024);
    jukebox.on_packet = [](support::TcpPeer& peer, std::string_view packet) {
        peer.send("got " + std::string(packet));
    };
    client_.socket->Connect("10.0.0.21", 1024);
    rest();
    client_.socket->SendData("a");
    client_.socket->SendData("b");
    rest();
    EXPECT_EQ(client_.received, "got agot b");
    EXPECT_THAT(client_.trace, ElementsAre("Connect", "SendComplete"));

    jukebox.peer(0).hold_back();
    client_.socket->SendData("c");
    rest();
    EXPECT_EQ(client_.trace.size(), 2U) << "nothing completes";
    jukebox.peer(0).read_on();
    rest();
    EXPECT_EQ(client_.trace.back(), "SendComplete");
    EXPECT_THAT(jukebox.packets(), ElementsAre("a", "b", "c"));

    jukebox.peer(0).reset();
    rest();
    EXPECT_EQ(client_.trace.back(), "10054 Connection reset by peer");
    EXPECT_EQ(client_.socket->State(), SocketState::Error);
}

TEST_F(MemoryNetworkTest, AMachineWithoutPowerNeitherAcceptsNorRefuses) {
    machines_.network.serve("10.0.0.21", 1024);
    machines_.network.silence("10.0.0.21");
    client_.socket->Connect("10.0.0.21", 1024);
    rest();
    EXPECT_EQ(client_.socket->State(), SocketState::Connecting);
    EXPECT_THAT(client_.trace, ElementsAre());
}

TEST_F(MemoryNetworkTest, DatagramsReachOneMachineOrAllOfThem) {
    UdpParty house(machines_.network);
    house.socket->set_local_port(4550);
    house.socket->Bind();
    support::UdpPeer& hall = machines_.network.udp("10.0.0.21", 4550);
    support::UdpPeer& kitchen = machines_.network.udp("10.0.0.22", 4550);
    house.socket->set_remote_port(4550);
    for (const char* receiver : {"10.0.0.21", "10.0.0.99", "255.255.255.255"}) {
        house.socket->set_remote_host(receiver);
        house.socket->SendData(receiver);
    }
    kitchen.send(MemoryMachines::kAddress, 4550, "hello");
    rest();
    EXPECT_THAT(hall.received(), ElementsAre("10.0.0.21", "255.255.255.255"));
    EXPECT_THAT(kitchen.received(), ElementsAre("255.255.255.255"));
    EXPECT_EQ(house.socket->GetData(), "255.255.255.255");
    EXPECT_EQ(house.socket->GetData(), "hello");
    EXPECT_EQ(house.socket->RemoteHostIP(), "10.0.0.22");
}

}  // namespace
