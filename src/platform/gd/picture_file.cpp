#include "platform/gd/picture_file.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>

namespace platform {
namespace {

using Found = std::optional<PictureFile>;

// The bytes of a file; past its end all are 0.
class Bytes {
  public:
    explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

    [[nodiscard]] std::size_t size() const { return bytes_.size(); }

    [[nodiscard]] std::uint32_t at(std::size_t place) const {
        return place < bytes_.size() ? static_cast<unsigned char>(bytes_[place]) : 0;
    }

    // The place of this byte, or the file's end.
    [[nodiscard]] std::size_t find(std::uint32_t byte, std::size_t from) const {
        return std::min(bytes_.find(static_cast<char>(byte), from), bytes_.size());
    }

    [[nodiscard]] std::uint32_t little16(std::size_t place) const {
        return at(place) | at(place + 1) << 8U;
    }

    [[nodiscard]] std::uint32_t big16(std::size_t place) const {
        return at(place) << 8U | at(place + 1);
    }

    [[nodiscard]] std::uint32_t little32(std::size_t place) const {
        return little16(place) | little16(place + 2) << 16U;
    }

    [[nodiscard]] std::uint32_t big32(std::size_t place) const {
        return big16(place) << 16U | big16(place + 2);
    }

  private:
    std::string_view bytes_;
};

// --- PNG (ISO/IEC 15948) ------------------------------------------------------------------------

Found examine_png(const Bytes& file) {
    constexpr std::size_t kEndOfSize = 24;
    if (file.size() < kEndOfSize) {
        return std::nullopt;
    }
    return PictureFile{PictureFormat::Png, file.big32(16), file.big32(20)};
}

// --- GIF (CompuServe's specification, 87a and 89a) ----------------------------------------------

// Bytes of the colour table that these flags announce.
std::size_t colour_table_bytes(std::uint32_t flags) {
    constexpr std::uint32_t kHasTable = 0x80;
    constexpr std::size_t kBytesPerColour = 3;
    return (flags & kHasTable) != 0 ? kBytesPerColour << ((flags & 7U) + 1) : 0;
}

// The place behind a chain of sub-blocks, whose last one is empty; absent when it is cut off.
std::optional<std::size_t> end_of_blocks(const Bytes& file, std::size_t at) {
    while (at < file.size()) {
        const std::uint32_t length = file.at(at);
        at += 1 + length;
        if (length == 0) {
            return at;
        }
    }
    return std::nullopt;
}

// True when the picture of the frame that begins here is in the file to its end.
bool has_whole_frame(const Bytes& file, std::size_t at) {
    constexpr std::size_t kDescriptor = 10;
    constexpr std::size_t kCodeSize = 1;
    const std::size_t blocks = at + kDescriptor + colour_table_bytes(file.at(at + 9)) + kCodeSize;
    return end_of_blocks(file, blocks).has_value();
}

// A frame is never larger than the screen, whose size stands in the header.
Found examine_gif(const Bytes& file) {
    constexpr std::uint32_t kExtension = 0x21;
    constexpr std::uint32_t kFrame = 0x2C;
    constexpr std::uint32_t kEnd = 0x3B;
    constexpr std::size_t kHeader = 13;
    std::size_t at = kHeader + colour_table_bytes(file.at(10));
    while (at < file.size() && file.at(at) != kEnd) {
        if (file.at(at) == kFrame) {
            return has_whole_frame(file, at)
                       ? Found({PictureFormat::Gif, file.little16(6), file.little16(8)})
                       : std::nullopt;
        }
        at = file.at(at) == kExtension ? end_of_blocks(file, at + 2).value_or(file.size()) : at + 1;
    }
    return std::nullopt;
}

// --- BMP ----------------------------------------------------------------------------------------

// The height is negative where the rows go from the top down.
Found examine_bmp(const Bytes& file) {
    constexpr std::uint32_t kCoreHeader = 12;
    constexpr std::size_t kEndOfSize = 26;
    if (file.size() < kEndOfSize) {
        return std::nullopt;
    }
    if (file.little32(14) == kCoreHeader) {
        return PictureFile{PictureFormat::Bmp, file.little16(18), file.little16(20)};
    }
    const std::int64_t height = static_cast<std::int32_t>(file.little32(22));
    return PictureFile{PictureFormat::Bmp, file.little32(18), std::abs(height)};
}

// --- JPEG (ITU-T T.81) --------------------------------------------------------------------------

constexpr std::uint32_t kMark = 0xFF;

// The marker at or behind a place. Other bytes are passed over, those of a scan among them, in
// which a zero follows each mark; and a mark may stand many times.
std::size_t next_marker(const Bytes& file, std::size_t at) {
    while (at < file.size()) {
        at = file.find(kMark, at);
        while (file.at(at) == kMark) {
            ++at;
        }
        if (file.at(at) != 0) {
            break;
        }
    }
    return at;
}

bool begins_frame(std::uint32_t marker) {
    constexpr std::uint32_t kHuffmanTables = 0xC4;
    constexpr std::uint32_t kExtension = 0xC8;
    constexpr std::uint32_t kArithmeticTables = 0xCC;
    return marker >= 0xC0 && marker <= 0xCF && marker != kHuffmanTables && marker != kExtension &&
           marker != kArithmeticTables;
}

bool stands_alone(std::uint32_t marker) {
    constexpr std::uint32_t kTemporary = 0x01;
    return marker == kTemporary || (marker >= 0xD0 && marker <= 0xD7);
}

// The first frame's size counts; a second frame is a fault that decoders find.
Found examine_jpeg(const Bytes& file) {
    constexpr std::uint32_t kEndOfImage = 0xD9;
    Found found;
    std::size_t at = next_marker(file, 2);
    while (at < file.size()) {
        const std::uint32_t marker = file.at(at);
        if (marker == kEndOfImage) {
            return found;
        }
        if (begins_frame(marker) && !found) {
            found = PictureFile{PictureFormat::Jpeg, file.big16(at + 6), file.big16(at + 4)};
        }
        const std::size_t length = stands_alone(marker) ? 0 : file.big16(at + 1);
        at = next_marker(file, at + 1 + length);
    }
    return std::nullopt;
}

struct Signature {
    std::string_view text;
    Found (*examine)(const Bytes& file);
};

constexpr auto kSignatures = std::to_array<Signature>({
    {"\x89PNG\r\n\x1A\n", examine_png},
    {"GIF8", examine_gif},
    {"\xFF\xD8\xFF", examine_jpeg},
    {"BM", examine_bmp},
});

}  // namespace

std::optional<PictureFile> examine_picture(std::string_view bytes) {
    for (const Signature& signature : kSignatures) {
        if (bytes.starts_with(signature.text)) {
            return signature.examine(Bytes(bytes));
        }
    }
    return std::nullopt;
}

}  // namespace platform
