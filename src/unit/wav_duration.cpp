#include "unit/wav_duration.h"

#include <algorithm>
#include <cstdint>

namespace unit {
namespace {

constexpr std::size_t kFileHeaderSize = 12;
constexpr std::size_t kChunkHeaderSize = 8;
constexpr std::size_t kByteRateOffset = 8;
constexpr std::size_t kSmallestFormat = 16;

// Requires: four bytes at `offset`.
std::uint32_t little_endian(std::string_view bytes, std::size_t offset) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;) {
        value = value << 8 | static_cast<unsigned char>(bytes[offset + i]);
    }
    return value;
}

}  // namespace

std::optional<double> wav_seconds(std::string_view bytes) {
    if (bytes.size() < kFileHeaderSize || !bytes.starts_with("RIFF") ||
        bytes.substr(8, 4) != "WAVE") {
        return std::nullopt;
    }
    std::uint32_t byte_rate = 0;
    std::string_view rest = bytes.substr(kFileHeaderSize);
    while (rest.size() >= kChunkHeaderSize) {
        const std::string_view id = rest.substr(0, 4);
        const std::size_t size = little_endian(rest, 4);
        rest.remove_prefix(kChunkHeaderSize);
        if (id == "fmt " && std::min(size, rest.size()) >= kSmallestFormat) {
            byte_rate = little_endian(rest, kByteRateOffset);
        }
        if (id == "data") {
            return byte_rate == 0 ? std::nullopt
                                  : std::optional(static_cast<double>(std::min(size, rest.size())) /
                                                  byte_rate);
        }
        // Chunks start at even offsets.
        rest.remove_prefix(std::min(size + size % 2, rest.size()));
    }
    return std::nullopt;
}

}  // namespace unit
