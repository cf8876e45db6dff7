#include "platform/asio/asio_network.h"

#include <boost/asio/ip/address.hpp>
#include <string>

#include "automation/run_time_error.h"
#include "platform/asio/asio_pump_internal.h"
#include "platform/asio/tcp_socket.h"
#include "platform/asio/udp_socket.h"
#include "platform/asio/waiting_requests.h"

namespace platform {
namespace {

boost::asio::ip::address address_of(std::string_view text) {
    boost::system::error_code error;
    auto address = boost::asio::ip::make_address(text, error);
    if (error) {
        throw automation::RunTimeError(automation::ErrorNumber::InvalidProcedureCall,
                                       "Invalid address: " + std::string(text));
    }
    return address;
}

}  // namespace

struct AsioNetwork::Core {
    boost::asio::io_context& context;
    boost::asio::ip::address listen_address;
    std::shared_ptr<WaitingRequests> requests = std::make_shared<WaitingRequests>();
};

AsioNetwork::AsioNetwork(AsioPump& pump, std::string_view listen_address)
    : core_(std::make_unique<Core>(
          Core{AsioPumpAccess::io_context_of(pump), address_of(listen_address)})) {}

AsioNetwork::~AsioNetwork() = default;

std::unique_ptr<host::TcpSocket> AsioNetwork::make_tcp_socket(host::TcpSocketEvents& events) {
    return std::make_unique<AsioTcpSocket>(core_->context, core_->listen_address, core_->requests,
                                           events);
}

std::unique_ptr<host::UdpSocket> AsioNetwork::make_udp_socket(host::UdpSocketEvents& events) {
    return std::make_unique<AsioUdpSocket>(core_->context, core_->listen_address, events);
}

}  // namespace platform
