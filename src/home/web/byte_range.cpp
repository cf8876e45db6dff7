#include "home/web/byte_range.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace home {
namespace {

constexpr std::string_view kUnit = "bytes=";

// Absent when the text is no number of its own.
std::optional<std::uint64_t> number_of(std::string_view text) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return number;
}

ByteRange part(std::uint64_t begin, std::uint64_t size) {
    return {.kind = size == 0 ? RangeKind::Unsatisfiable : RangeKind::Part,
            .begin = begin,
            .size = size};
}

}  // namespace

ByteRange parse_range(std::string_view header, std::uint64_t size) {
    if (!header.starts_with(kUnit)) {
        return {};
    }
    const std::string_view range = header.substr(kUnit.size());
    const std::size_t dash = range.find('-');
    if (dash == std::string_view::npos) {
        return {};
    }
    const auto first = number_of(range.substr(0, dash));
    const auto last = number_of(range.substr(dash + 1));
    if (dash == 0 && last) {
        const std::uint64_t tail = std::min(*last, size);
        return part(size - tail, tail);
    }
    const bool is_open = dash + 1 == range.size();
    if (!first || (!last && !is_open) || (last && *last < *first)) {
        return {};
    }
    if (*first >= size) {
        return {.kind = RangeKind::Unsatisfiable};
    }
    const std::uint64_t end = is_open ? size : std::min(*last, size - 1) + 1;
    return part(*first, end - *first);
}

}  // namespace home
