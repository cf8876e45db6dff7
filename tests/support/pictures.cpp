#include "support/pictures.h"

#include <gd.h>

#include <algorithm>
#include <memory>
#include <random>
#include <stdexcept>

namespace support {
namespace {

using Number = std::uint32_t;

char byte_of(Number value) {
    return static_cast<char>(static_cast<unsigned char>(value & 0xFFU));
}

std::string little(Number value, std::size_t bytes) {
    std::string text;
    for (; bytes != 0; --bytes, value >>= 8U) {
        text += byte_of(value);
    }
    return text;
}

std::string big32(Number value) {
    std::string text = little(value, 4);
    std::ranges::reverse(text);
    return text;
}

// Samples of few bits, the first one in the highest bits of its byte or in the lowest ones.
class BitWriter {
  public:
    enum class Order : std::uint8_t { HighFirst, LowFirst };

    explicit BitWriter(Order order) : order_(order) {}

    void add(Number value, Number bits) {
        for (Number i = 0; i < bits; ++i) {
            const Number place = order_ == Order::HighFirst ? bits - 1 - i : i;
            add_bit((value >> place) & 1U);
        }
    }

    // All bytes so far; a last one that is not full is filled with zeros.
    std::string take() {
        std::string taken;
        taken.swap(bytes_);
        used_ = 0;
        return taken;
    }

  private:
    void add_bit(Number bit) {
        if (used_ == 0) {
            bytes_ += '\0';
        }
        const Number place = order_ == Order::HighFirst ? 7 - used_ : used_;
        bytes_.back() = byte_of(static_cast<unsigned char>(bytes_.back()) | bit << place);
        used_ = (used_ + 1) % 8;
    }

    Order order_;
    std::string bytes_;
    Number used_ = 0;  // bits of the last byte
};

bool is_white(Number x, PictureSize size) {
    return x >= size.width / 2;
}

// From black to white, one colour an entry.
std::string grey_table(Number bits, std::size_t bytes_per_colour) {
    const Number last = (1U << bits) - 1;
    std::string table;
    for (Number i = 0; i <= last; ++i) {
        table += std::string(3, byte_of(i * 255 / last)) + std::string(bytes_per_colour - 3, '\0');
    }
    return table;
}

// --- PNG ----------------------------------------------------------------------------------------

Number crc32(std::string_view bytes) {
    Number crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1U) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
        }
    }
    return ~crc;
}

std::string chunk(const std::string& name, const std::string& content) {
    return big32(static_cast<Number>(content.size())) + name + content +
           big32(crc32(name + content));
}

// A zlib stream of blocks that are not compressed.
std::string stored(const std::string& bytes) {
    constexpr std::size_t kLongestBlock = 65535;
    std::string stream = "\x78\x01";
    for (std::size_t at = 0; at < bytes.size(); at += kLongestBlock) {
        const std::string block = bytes.substr(at, kLongestBlock);
        const auto length = static_cast<Number>(block.size());
        stream += byte_of(at + block.size() == bytes.size() ? 1 : 0);
        stream += little(length, 2) + little(~length, 2) + block;
    }
    Number low = 1;
    Number high = 0;
    for (const char byte : bytes) {
        low = (low + static_cast<unsigned char>(byte)) % 65521;
        high = (high + low) % 65521;
    }
    return stream + big32(high << 16U | low);
}

std::string png_header(PictureSize size) {
    return big32(size.width) + big32(size.height);
}

struct PngSamples {
    Number colours = 1;
    bool has_alpha = false;
};

PngSamples samples_of(PngColour colour) {
    switch (colour) {
        case PngColour::Rgb:
            return {3, false};
        case PngColour::GreyAlpha:
            return {1, true};
        case PngColour::RgbAlpha:
            return {3, true};
        case PngColour::Grey:
        case PngColour::Palette:
            break;
    }
    return {};
}

std::string png_row(PictureSize size, PngColour colour, Number bits) {
    const Number full = (1U << bits) - 1;
    const PngSamples samples = samples_of(colour);
    BitWriter row(BitWriter::Order::HighFirst);
    row.add(0, 8);  // no filter
    for (Number x = 0; x < size.width; ++x) {
        for (Number i = 0; i < samples.colours; ++i) {
            row.add(is_white(x, size) ? full : 0, bits);
        }
        row.add(full, samples.has_alpha ? bits : 0);
    }
    return row.take();
}

// --- GIF ----------------------------------------------------------------------------------------

// LZW without compression: the code table is cleared before its codes would grow.
std::string gif_codes(PictureSize size, Number table_bits) {
    const Number bits = std::max(table_bits, 2U);
    const Number clear = 1U << bits;
    const Number white = (1U << table_bits) - 1;
    BitWriter codes(BitWriter::Order::LowFirst);
    const Number most_codes = clear - 2;
    Number since_clear = most_codes;
    for (Number pixel = 0; pixel < size.width * size.height; ++pixel) {
        if (since_clear == most_codes) {
            codes.add(clear, bits + 1);
            since_clear = 0;
        }
        codes.add(is_white(pixel % size.width, size) ? white : 0, bits + 1);
        ++since_clear;
    }
    codes.add(clear + 1, bits + 1);
    return codes.take();
}

std::string gif_blocks(const std::string& bytes) {
    constexpr std::size_t kLongestBlock = 255;
    std::string blocks;
    for (std::size_t at = 0; at < bytes.size(); at += kLongestBlock) {
        const std::string block = bytes.substr(at, kLongestBlock);
        blocks += byte_of(static_cast<Number>(block.size())) + block;
    }
    return blocks + '\0';
}

// --- JPEG ---------------------------------------------------------------------------------------

struct GdDelete {
    void operator()(gdImage* image) const { gdImageDestroy(image); }

    void operator()(char* bytes) const { gdFree(bytes); }
};

int as_int(Number number) {
    return static_cast<int>(number);
}

std::unique_ptr<gdImage, GdDelete> drawn(PictureSize size) {
    std::unique_ptr<gdImage, GdDelete> image(
        gdImageCreateTrueColor(as_int(size.width), as_int(size.height)));
    if (!image) {
        throw std::bad_alloc();
    }
    gdImageFilledRectangle(image.get(), as_int(size.width / 2), 0, as_int(size.width),
                           as_int(size.height), gdTrueColor(255, 255, 255));
    return image;
}

}  // namespace

std::string png_picture(PictureSize size, PngColour colour, Number bits) {
    std::string rows;
    for (Number y = 0; y < size.height; ++y) {
        rows += png_row(size, colour, bits);
    }
    const std::string header = png_header(size) + byte_of(bits) +
                               byte_of(static_cast<Number>(colour)) + std::string(3, '\0');
    const std::string palette =
        colour == PngColour::Palette ? chunk("PLTE", grey_table(bits, 3)) : "";
    return "\x89PNG\r\n\x1A\n" + chunk("IHDR", header) + palette + chunk("IDAT", stored(rows)) +
           chunk("IEND", "");
}

std::string with_png_size(std::string png, PictureSize size) {
    constexpr std::size_t kHeader = 16;
    png.replace(kHeader, 8, png_header(size));
    png.replace(kHeader + 13, 4, big32(crc32(std::string_view(png).substr(kHeader - 4, 17))));
    return png;
}

std::string gif_picture(PictureSize size, Number table_bits, std::string_view version) {
    constexpr Number kHasTable = 0x80;
    const std::string measures = little(size.width, 2) + little(size.height, 2);
    const Number flags = kHasTable | (table_bits - 1) << 4U | (table_bits - 1);
    std::string gif = "GIF" + std::string(version) + measures + byte_of(flags);
    gif += std::string(2, '\0') + grey_table(table_bits, 3);
    gif += ',' + std::string(4, '\0') + measures + '\0' + byte_of(std::max(table_bits, 2U));
    return gif + gif_blocks(gif_codes(size, table_bits)) + ';';
}

std::string bmp_picture(PictureSize size, Number bits, BmpHeader header) {
    constexpr Number kLongestTable = 8;
    constexpr std::size_t kFileHeader = 14;
    const auto header_bytes = static_cast<std::size_t>(header);
    const bool is_core = header == BmpHeader::Core;
    std::string rows;
    for (Number y = 0; y < size.height; ++y) {
        BitWriter row(BitWriter::Order::HighFirst);
        for (Number x = 0; x < size.width; ++x) {
            row.add(is_white(x, size) ? 0xFFFFFFFF >> (32 - bits) : 0, bits);
        }
        const std::string bytes = row.take();
        rows += bytes + std::string((4 - bytes.size() % 4) % 4, '\0');
    }
    std::string info = little(static_cast<Number>(header_bytes), 4);
    info += little(size.width, is_core ? 2 : 4) + little(size.height, is_core ? 2 : 4);
    info += little(1, 2) + little(bits, 2);
    info.resize(header_bytes, '\0');
    info += bits <= kLongestTable ? grey_table(bits, is_core ? 3 : 4) : "";
    const auto offset = static_cast<Number>(kFileHeader + info.size());
    return "BM" + little(offset + static_cast<Number>(rows.size()), 4) + little(0, 4) +
           little(offset, 4) + info + rows;
}

std::string jpeg_picture(PictureSize size, JpegKind kind) {
    constexpr int kQuality = 90;
    const auto image = drawn(size);
    gdImageInterlace(image.get(), kind == JpegKind::Progressive ? 1 : 0);
    int length = 0;
    const std::unique_ptr<char, GdDelete> bytes(
        static_cast<char*>(gdImageJpegPtr(image.get(), &length, kQuality)));
    if (!bytes) {
        throw std::bad_alloc();
    }
    return {bytes.get(), static_cast<std::size_t>(length)};
}

std::string with_exif(const std::string& jpeg, std::size_t total) {
    constexpr std::size_t kMarker = 2;
    const auto length = static_cast<Number>(total - kMarker);
    std::string segment = "\xFF\xE1";
    segment += byte_of(length >> 8U);
    segment += byte_of(length);
    segment += std::string("Exif\0\0", 6);
    segment += jpeg_picture({.width = 160, .height = 120});
    segment.resize(total, '\xFF');
    return std::string(jpeg).insert(2, segment);
}

std::size_t frame_of(const std::string& jpeg, JpegKind kind) {
    return jpeg.find(kind == JpegKind::Progressive ? "\xFF\xC2" : "\xFF\xC0");
}

std::string damaged(std::string bytes, std::uint32_t seed) {
    constexpr int kDamages = 4;
    std::mt19937 random(seed);
    for (int i = 0; i < kDamages; ++i) {
        bytes.at(random() % bytes.size()) = byte_of(static_cast<Number>(random()));
    }
    return bytes;
}

ShownPicture shown_by(std::string bytes) {
    const auto size = static_cast<int>(bytes.size());
    for (const auto read : {gdImageCreateFromJpegPtr, gdImageCreateFromGifPtr,
                            gdImageCreateFromPngPtr, gdImageCreateFromBmpPtr}) {
        const std::unique_ptr<gdImage, GdDelete> image(read(size, bytes.data()));
        if (image) {
            const int width = gdImageSX(image.get());
            const int height = gdImageSY(image.get());
            const auto colour = [&](int x) {
                return static_cast<Number>(gdImageGetTrueColorPixel(image.get(), x, height / 2));
            };
            return {{static_cast<Number>(width), static_cast<Number>(height)},
                    colour(width / 4),
                    colour(width * 3 / 4)};
        }
    }
    throw std::invalid_argument("no picture");
}

}  // namespace support
