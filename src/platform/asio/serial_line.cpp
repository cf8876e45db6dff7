#include "platform/asio/serial_line.h"

#include <string>
#include <vector>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"

namespace platform {

namespace {

constexpr std::uint32_t kFastest = 4'000'000;

[[noreturn]] void refuse(std::string_view text, const std::string& reason) {
    throw automation::RunTimeError(
        automation::ErrorNumber::InvalidProcedureCall,
        "The serial line '" + std::string(text) + "' is not like 9600,n,8,1: " + reason);
}

std::uint32_t number_in(std::string_view text, const std::string& field, std::uint32_t least,
                        std::uint32_t most, const std::string& name) {
    const auto number = automation::parse_number(field);
    if (!number || *number < least || *number > most || *number != static_cast<int>(*number)) {
        refuse(text, name + " '" + field + "'");
    }
    return static_cast<std::uint32_t>(*number);
}

Parity parity_in(std::string_view text, const std::string& field) {
    const std::string letter = automation::to_lower(field);
    if (letter == "n") {
        return Parity::None;
    }
    if (letter == "e") {
        return Parity::Even;
    }
    if (letter != "o") {
        refuse(text, "parity '" + field + "'");
    }
    return Parity::Odd;
}

}  // namespace

SerialLine parse_serial_line(std::string_view text) {
    constexpr std::size_t kFields = 4;
    std::vector<std::string> fields = automation::split(text, ',');
    if (fields.size() != kFields) {
        refuse(text, "there are four fields");
    }
    for (std::string& field : fields) {
        field = automation::trim(field);
    }
    return {.bits_a_second = number_in(text, fields[0], 50, kFastest, "speed"),
            .parity = parity_in(text, fields[1]),
            .data_bits = number_in(text, fields[2], 5, 8, "data bits"),
            .stop_bits = number_in(text, fields[3], 1, 2, "stop bits")};
}

}  // namespace platform
