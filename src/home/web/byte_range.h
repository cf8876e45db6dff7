#pragma once

#include <cstdint>
#include <string_view>

namespace home {

enum class RangeKind : std::uint8_t {
    Whole,          // none, several, or something that is not understood
    Part,           // `begin` and `size` tell it
    Unsatisfiable,  // nothing of the file lies in it
};

struct ByteRange {
    RangeKind kind = RangeKind::Whole;
    std::uint64_t begin = 0;
    std::uint64_t size = 0;

    friend bool operator==(const ByteRange&, const ByteRange&) = default;
};

// "bytes=0-99", "bytes=100-" or "bytes=-10" on a file of `size` bytes.
[[nodiscard]] ByteRange parse_range(std::string_view header, std::uint64_t size);

}  // namespace home
