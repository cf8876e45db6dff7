#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

namespace xapnet {

// A whole number from `lowest` to `highest`, written in digits alone; else nothing.
[[nodiscard]] inline std::optional<std::int32_t> whole_number(std::string_view text,
                                                              std::int32_t lowest,
                                                              std::int32_t highest) {
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || rest != end || number < lowest || number > highest) {
        return std::nullopt;
    }
    return number;
}

}  // namespace xapnet
