#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

// What every target is: libFuzzer calls it with one input after the other.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

// A rule that no input may break; a broken one ends the run and keeps the input.
inline void expect(bool holds, const char* rule) {
    if (!holds) {
        std::fprintf(stderr, "Broken rule: %s\n", rule);
        std::abort();
    }
}

[[nodiscard]] inline std::string_view as_text(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace fuzz
