#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "callerid/call_state.h"
#include "callerid/echo_window.h"

namespace core {
class Instance;
}

namespace host {
class Timer;
}

namespace callerid {

// Codes of the serial line's events.
enum class CommEvent : std::int16_t { Received = 2, Carrier = 3 };

// Puts what a caller-ID modem says together to lines, and the lines to calls. It knows two
// dialects: a line for the name and one for the number, each behind a prefix of the settings; and
// NetCallerID, one record "###DATE...NMBR...NAME...+++" for both. Part of the caller-ID subsystem.
// All members log their own errors; `ProcessModemInput` runs within them, and may pump.
class ModemReader {
  public:
    // Input beyond this is dropped until the program ends (kept).
    static constexpr std::size_t kMostBuffered = 2000;

    // `timer5` gives the timer that ends the wait for a second line, none before it is loaded.
    struct Services {
        core::Instance& instance;
        CallState& call;
        EchoWindow& echo;
        CallListener& listener;
        std::function<host::Timer*()> timer5;
    };

    explicit ModemReader(Services services) : services_(std::move(services)) {}

    // A piece of input, cut anywhere, or another event of the line with its code.
    void ProcessCommData(std::string_view text, std::int16_t code);

    // One line of the plain dialect: a name, a number or "RING". A second line completes a call;
    // without one, the call is complete 500 ms later.
    void DoModem(std::string_view line);

    // One record of the other dialect, without its end mark.
    void DoModemNetCallerID(std::string_view line);

    // The second line has not come.
    void Timer5_Timer();

  private:
    void take_lines();
    void take_records();
    void take_unfinished_line();
    void detect_name(std::string_view name);
    void detect_number(std::string_view number);
    void read_number_field(std::string_view line, std::size_t begin);
    void wait_for_other_line();
    void stop_waiting();

    Services services_;
    std::string CommBuffer_;
};

}  // namespace callerid
