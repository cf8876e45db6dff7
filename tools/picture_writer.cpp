#include "picture_writer.h"

#include <gd.h>

#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

namespace tools {
namespace {

struct GdDelete {
    void operator()(gdImage* image) const { gdImageDestroy(image); }

    void operator()(char* bytes) const { gdFree(bytes); }
};

using Image = std::unique_ptr<gdImage, GdDelete>;

Image image_of(gdImage* image) {
    if (image == nullptr) {
        throw std::bad_alloc();
    }
    return Image(image);
}

template <typename Bytes>
std::string text_of(Bytes* bytes, int size) {
    const std::unique_ptr<char, GdDelete> owner(static_cast<char*>(bytes));
    if (!owner) {
        throw std::bad_alloc();
    }
    return {owner.get(), static_cast<std::size_t>(size)};
}

void write(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream stream(file, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) {
        throw std::runtime_error("Cannot write " + file.string());
    }
}

// With exactly the colours that there are, as far as a table of 256 takes them.
Image with_palette(const Pixels& pixels) {
    Image image = image_of(gdImageCreate(pixels.width, pixels.height));
    const int clear = gdImageColorAllocate(image.get(), 255, 0, 255);
    gdImageColorTransparent(image.get(), clear);
    for (int i = 0; i < pixels.width * pixels.height; ++i) {
        int index = clear;
        if (const auto& colour = pixels.colours.at(static_cast<std::size_t>(i))) {
            const auto [red, green, blue] = bytes_of(*colour);
            index = gdImageColorResolve(image.get(), red, green, blue);
        }
        gdImageSetPixel(image.get(), i % pixels.width, i / pixels.width, index);
    }
    return image;
}

std::string animation(const std::vector<Pixels>& frames) {
    constexpr int kLocalColours = 1;
    constexpr int kNoSharedColours = 0;
    constexpr int kForEver = 0;
    constexpr int kHalfSecond = 50;
    int size = 0;
    const Image first = with_palette(frames.front());
    std::string bytes;
    auto* const begin = gdImageGifAnimBeginPtr(first.get(), &size, kNoSharedColours, kForEver);
    bytes += text_of(begin, size);
    for (const Pixels& frame : frames) {
        const Image image = with_palette(frame);
        auto* const added = gdImageGifAnimAddPtr(image.get(), &size, kLocalColours, 0, 0,
                                                 kHalfSecond, gdDisposalNone, nullptr);
        bytes += text_of(added, size);
    }
    return bytes + ';';
}

}  // namespace

void write_gif(const std::filesystem::path& file, const std::vector<Pixels>& frames) {
    if (frames.size() > 1) {
        write(file, animation(frames));
        return;
    }
    int size = 0;
    const Image image = with_palette(frames.front());
    auto* const bytes = gdImageGifPtr(image.get(), &size);
    write(file, text_of(bytes, size));
}

void write_jpeg(const std::filesystem::path& file, const Pixels& pixels) {
    constexpr int kQuality = 88;
    const Image image = image_of(gdImageCreateTrueColor(pixels.width, pixels.height));
    for (int i = 0; i < pixels.width * pixels.height; ++i) {
        if (const auto& colour = pixels.colours.at(static_cast<std::size_t>(i))) {
            const auto [red, green, blue] = bytes_of(*colour);
            gdImageSetPixel(image.get(), i % pixels.width, i / pixels.width,
                            gdTrueColor(red, green, blue));
        }
    }
    int size = 0;
    auto* const bytes = gdImageJpegPtr(image.get(), &size, kQuality);
    write(file, text_of(bytes, size));
}

}  // namespace tools
