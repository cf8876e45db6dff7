#pragma once

#include <chrono>
#include <deque>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "platform/asio/local_line_exchange.h"

namespace host {
class Log;
}

namespace app {

// Tells simulated units on this machine what to do, without ever keeping the pump waiting: each
// unit gets its commands one after the other, in order. One that does not arrive is one line in
// the log, and the next one follows. Owned by the daemon.
class UnitMessenger {
  public:
    static constexpr std::size_t kWaitingCommands = 8;  // for each unit; later ones are lost

    // Both must outlive the messenger. `limit` bounds each exchange.
    UnitMessenger(platform::AsioPump& pump, host::Log& log,
                  std::chrono::milliseconds limit = std::chrono::seconds(2))
        : pump_(pump), log_(log), limit_(limit) {}

    UnitMessenger(const UnitMessenger&) = delete;
    UnitMessenger& operator=(const UnitMessenger&) = delete;

    // `occasion` stands in the log line of a failure: "A1 off".
    void tell(const std::filesystem::path& state_directory, const std::string& command,
              const std::string& occasion);

  private:
    struct Message {
        std::string command;
        std::string occasion;
    };

    struct Mailbox {
        std::filesystem::path state_directory;
        std::deque<Message> waiting;  // the front one is on its way
        std::unique_ptr<platform::LocalLineExchange> exchange;
    };

    void send_front(Mailbox& mailbox);
    void end_front(Mailbox& mailbox, const platform::LocalLineExchange::Outcome& outcome);
    void report(const Mailbox& mailbox, const std::string& occasion, const std::string& reason);

    platform::AsioPump& pump_;
    host::Log& log_;
    std::chrono::milliseconds limit_;
    std::map<std::filesystem::path, Mailbox> mailboxes_;  // elements stay where they are
};

}  // namespace app
