#pragma once

#include <cstdint>
#include <string_view>

#include "automation/run_time_error.h"

namespace core {
class Instance;
}

namespace webserver {

class TCPServer;

// The log of a routine that serves one connection, for `automation::guarded`: what fails there is
// reported, and with `stalled_queue_restarts` the connection is closed, which would otherwise
// stay open until the peer closes it. A value for one call.
class FailedRequest {
  public:
    FailedRequest(core::Instance& instance, TCPServer& server, std::int16_t index)
        : instance_(instance), server_(server), index_(index) {}

    void report(std::string_view where, const automation::RunTimeError& error);

  private:
    core::Instance& instance_;
    TCPServer& server_;
    std::int16_t index_;
};

}  // namespace webserver
