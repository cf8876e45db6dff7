#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <map>
#include <optional>
#include <utility>

#include "host/sockets.h"

namespace platform {

// Connections whose `ConnectionRequest` event runs at this moment, at any listener of a network.
class WaitingRequests {
  public:
    using Socket = boost::asio::ip::tcp::socket;

    // Refuses the connection at the end of its event, unless somebody has taken it over.
    class Request {
      public:
        Request(WaitingRequests& requests, Socket socket)
            : requests_(requests), id_(++requests.latest_id_) {
            requests_.sockets_.emplace(id_, std::move(socket));
        }

        Request(const Request&) = delete;
        Request& operator=(const Request&) = delete;

        ~Request() { requests_.sockets_.erase(id_); }

        [[nodiscard]] host::ConnectionRequestId id() const noexcept { return id_; }

      private:
        WaitingRequests& requests_;
        host::ConnectionRequestId id_;
    };

    // Gives nothing for a request that is over or has been taken.
    [[nodiscard]] std::optional<Socket> take(host::ConnectionRequestId id) {
        auto found = sockets_.extract(id);
        return found ? std::optional(std::move(found.mapped())) : std::nullopt;
    }

  private:
    std::map<host::ConnectionRequestId, Socket> sockets_;
    host::ConnectionRequestId latest_id_ = 0;
};

}  // namespace platform
