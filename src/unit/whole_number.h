#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

namespace unit {

// A whole number from `lowest` to `highest`, written in digits alone; else nothing.
[[nodiscard]] inline std::optional<std::int64_t> whole_number(std::string_view text,
                                                              std::int64_t lowest,
                                                              std::int64_t highest) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || rest != end || number < lowest || number > highest) {
        return std::nullopt;
    }
    return number;
}

}  // namespace unit
