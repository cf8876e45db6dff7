#pragma once

#include <charconv>
#include <concepts>
#include <optional>
#include <string_view>
#include <type_traits>

namespace automation {

// A whole number from `lowest` to `highest`, written in digits alone; else nothing.
template <std::signed_integral Number>
[[nodiscard]] std::optional<Number> whole_number(std::string_view text,
                                                 std::type_identity_t<Number> lowest,
                                                 Number highest) {
    Number number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || rest != end || number < lowest || number > highest) {
        return std::nullopt;
    }
    return number;
}

}  // namespace automation
