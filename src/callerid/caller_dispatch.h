#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "appliance/caller_display.h"
#include "callerid/call_state.h"
#include "callerid/xap_callers.h"

namespace core {
class Instance;
}

namespace devices {
class StatusBoard;
}

namespace fleet {
class Fleet;
}

namespace host {
class Timer;
}

namespace udp {
class ClientLink;
}

namespace callerid {

class EchoWindow;
class PhonebookDictionary;

// Carries a call to all its destinations: the host's caller device, the xAP network, client
// programs, units (by speech and by page) and the host's log, always in this order. A call comes by
// four roads: the modem's lines, a message on xAP, the host's telephone add-on, and scripts. Part
// of the caller-ID subsystem. All members log their own errors, which end that call; all may pump.
class CallerDispatch final : public appliance::CallerDisplay, public CallListener {
  public:
    struct Services {
        core::Instance& instance;
        CallState& call;
        EchoWindow& echo;
        PhonebookDictionary& phonebook;
        fleet::Fleet& fleet;
        udp::ClientLink& clients;
        devices::StatusBoard& status_board;
        std::function<host::Timer*()> timer4;  // none before they are loaded
        std::function<host::Timer*()> timer5;
    };

    explicit CallerDispatch(Services services) : services_(std::move(services)) {}

    // None again for nullptr.
    void set_xap(XapCallers* xap) noexcept { xap_ = xap; }

    // While this is set, calls come from xAP and do not go back there.
    void set_xap_incoming(bool incoming) noexcept { xap_incoming_ = incoming; }

    // The call state is complete. Empties it, unless a step has failed.
    void ProcessModemInput() override;

    // The last call of the telephone add-on as "number : name"; a fixed one without the add-on.
    std::string MessageCIDEvent(Datagram datagram, std::string_view ip) override;

    void CID(appliance::Velora& unit) override;

    // To the client programs of the reachable ones of these units, which wake up. Gives "".
    std::string InternalSendCID(const std::string& whichVeloras, const std::string& name,
                                const std::string& number);

    // The telephone add-on has a call. Gives "".
    std::string InternalSendHspCID(const std::string& whichVeloras);

    // Asks the add-on once for each reachable unit and drops the answers (kept). Gives "".
    std::string InternalSendHspBrowserCID(const std::string& whichVeloras);

    // The device has shown the call for long enough.
    void Timer4_Timer();

  private:
    struct ShownCall;

    void dispatch(const ShownCall& call);
    void show_on_device(const std::string& text);
    void send_sentry(const std::string& caller_text);
    void send_xap(const std::string& caller_text);
    void play_or_speak(const std::string& names, const std::string& caller_text);
    std::string serve_units(const std::string& whichVeloras, bool& wants_last);
    [[nodiscard]] std::string names_of_units_that_want_callers(bool& wants_last);
    [[nodiscard]] std::vector<std::string> names_and_addresses() const;
    [[nodiscard]] std::string time_line() const;

    Services services_;
    XapCallers* xap_ = nullptr;
    bool xap_incoming_ = false;
};

}  // namespace callerid
