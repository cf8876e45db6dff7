#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// What a modem says, after a pause.
struct CaptureStep {
    std::chrono::milliseconds pause{};
    std::string bytes;

    bool operator==(const CaptureStep&) const = default;
};

// A session of a caller-ID modem as a text that a person can write:
//
//     # a remark
//     @ 2000                          a pause, in milliseconds, 0 to 60000
//     NMBR = 5035551234               a line of the modem, sent with CR LF
//     +++\r\                          \r \n \\ stand for themselves; a "\" at the end of the line
//                                     sends it without CR LF
//
// Empty lines are passed over. Line ends may be LF or CR LF.
// Throws: CommandFailure with `name` and the line at fault.
[[nodiscard]] std::vector<CaptureStep> parse_modem_capture(std::string_view text,
                                                           const std::string& name);

}  // namespace app
