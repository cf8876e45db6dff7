#pragma once

#include <functional>

#include "callerid/call_state.h"
#include "callerid/caller_dispatch.h"
#include "callerid/echo_window.h"
#include "callerid/modem_port.h"
#include "callerid/modem_reader.h"
#include "callerid/phonebook_dictionary.h"

namespace callerid {

// The caller-ID subsystem: modem, phonebook and dispatch, with the one call that is being put
// together. Owned by the plug-in instance.
class CallerId {
  public:
    struct Services {
        core::Instance& instance;
        fleet::Fleet& fleet;
        udp::ClientLink& clients;
        devices::StatusBoard& status_board;
        std::function<host::Timer*()> timer4;  // none before they are loaded
        std::function<host::Timer*()> timer5;
    };

    explicit CallerId(const Services& services)
        : phonebook_(services.instance),
          dispatch_({services.instance, call_, echo_, phonebook_, services.fleet, services.clients,
                     services.status_board, services.timer4, services.timer5}),
          reader_({services.instance, call_, echo_, dispatch_, services.timer5}),
          port_(services.instance, echo_, [this](std::string_view bytes) {
              reader_.ProcessCommData(bytes, static_cast<std::int16_t>(CommEvent::Received));
          }) {}

    CallerId(const CallerId&) = delete;
    CallerId& operator=(const CallerId&) = delete;
    ~CallerId() = default;

    // Closes the modem's port and drops the phonebook.
    void release() {
        port_.release();
        phonebook_.clear();
    }

    [[nodiscard]] EchoWindow& echo() noexcept { return echo_; }

    [[nodiscard]] const EchoWindow& echo() const noexcept { return echo_; }

    [[nodiscard]] PhonebookDictionary& phonebook() noexcept { return phonebook_; }

    [[nodiscard]] const PhonebookDictionary& phonebook() const noexcept { return phonebook_; }

    [[nodiscard]] CallerDispatch& dispatch() noexcept { return dispatch_; }

    [[nodiscard]] CallState& call() noexcept { return call_; }

    [[nodiscard]] ModemReader& reader() noexcept { return reader_; }

    [[nodiscard]] ModemPort& port() noexcept { return port_; }

    [[nodiscard]] const ModemPort& port() const noexcept { return port_; }

  private:
    CallState call_;
    EchoWindow echo_;
    PhonebookDictionary phonebook_;
    CallerDispatch dispatch_;
    ModemReader reader_;
    ModemPort port_;
};

}  // namespace callerid
