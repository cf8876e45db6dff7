#include "status/control_name.h"

#include <array>
#include <charconv>

#include "automation/code_page.h"
#include "automation/convert.h"

namespace status {

namespace {

constexpr int kHex = 16;
constexpr std::size_t kDigits = 2;    // of the letter's code
constexpr std::size_t kLetterAt = 1;  // behind the "V"
constexpr std::size_t kNumberAt = kLetterAt + kDigits;

std::string_view behind(std::string_view text, std::size_t at) {
    return at < text.size() ? text.substr(at) : std::string_view();
}

}  // namespace

std::string hex_text(std::int32_t number) {
    std::array<char, 8> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                   static_cast<std::uint32_t>(number), kHex);
    return automation::to_upper(std::string_view(digits.data(), end.ptr));
}

std::string control_name(std::string_view device_code) {
    if (device_code.empty()) {
        return "V00";
    }
    std::string letter = hex_text(static_cast<unsigned char>(device_code.front()));
    letter.insert(0, kDigits - letter.size(), '0');
    return "V" + letter + std::string(device_code.substr(1));
}

std::string device_of_control(std::string_view name) {
    const std::string digits(behind(name, kLetterAt).substr(0, kDigits));
    const double letter = automation::numeric_prefix("&H" + digits);
    return static_cast<char>(automation::checked_byte(letter)) +
           std::string(behind(name, kNumberAt));
}

}  // namespace status
