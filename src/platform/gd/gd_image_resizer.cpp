#include "platform/gd/gd_image_resizer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "host/files.h"
#include "platform/gd/gd_library.h"
#include "platform/gd/picture_file.h"

namespace platform {
namespace {

using automation::ErrorNumber;
using automation::RunTimeError;

[[noreturn]] void fail(ErrorNumber number, const std::string& what) {
    throw RunTimeError(number, "Pictures: " + what);
}

// --- reading ------------------------------------------------------------------------------------

std::string read_file(host::Files& files, std::string_view path) {
    const std::int64_t size = files.describe(path).size;
    if (size > kLargestPictureFile) {
        fail(ErrorNumber::OutOfMemory, std::string(path) + " has " + std::to_string(size) +
                                           " bytes, more than " +
                                           std::to_string(kLargestPictureFile));
    }
    return files.read(path);
}

bool is_too_large(std::int64_t width, std::int64_t height) {
    return height > 0 && width > kMostPixels / height;
}

// Null when the library finds a fault in it. The number of bytes fits: the file's size is limited.
GdImage decode(PictureFormat format, std::string& bytes) {
    const auto size = static_cast<int>(bytes.size());
    switch (format) {
        case PictureFormat::Gif:
            return GdImage(gd().image_from_gif(size, bytes.data()));
        case PictureFormat::Png:
            return GdImage(gd().image_from_png(size, bytes.data()));
        case PictureFormat::Bmp:
            return GdImage(gd().image_from_bmp(size, bytes.data()));
        case PictureFormat::Jpeg:
            return GdImage(gd().image_from_jpeg(size, bytes.data()));
    }
    return nullptr;
}

int on_black(int pixel) {
    const int opacity = gdAlphaMax - gdTrueColorGetAlpha(pixel);
    const int red = gdTrueColorGetRed(pixel) * opacity / gdAlphaMax;
    const int green = gdTrueColorGetGreen(pixel) * opacity / gdAlphaMax;
    const int blue = gdTrueColorGetBlue(pixel) * opacity / gdAlphaMax;
    return gdTrueColor(red, green, blue);
}

void put_on_black(gdImage& image) {
    for (int y = 0; y < image.sy; ++y) {
        int* const row = image.tpixels[y];
        for (int x = 0; x < image.sx; ++x) {
            if (gdTrueColorGetAlpha(row[x]) != gdAlphaOpaque) {
                row[x] = on_black(row[x]);
            }
        }
    }
}

// The picture with one colour of its own for each pixel, all opaque.
GdImage load(std::string& bytes, const std::string& name) {
    const std::optional<PictureFile> file = examine_picture(bytes);
    if (!file) {
        fail(ErrorNumber::InvalidProcedureCall, name + " is no picture, or is cut off");
    }
    if (is_too_large(file->width, file->height)) {
        fail(ErrorNumber::OutOfMemory, name + " has " + std::to_string(file->width) + " x " +
                                           std::to_string(file->height) + " pixels, more than " +
                                           std::to_string(kMostPixels));
    }
    GdImage image = decode(file->format, bytes);
    if (!image || gd().palette_to_true_color(image.get()) == 0) {
        fail(ErrorNumber::InvalidProcedureCall, name + " is damaged");
    }
    if (file->format != PictureFormat::Jpeg) {
        put_on_black(*image);
    }
    return image;
}

// --- writing ------------------------------------------------------------------------------------

struct GdFree {
    void operator()(char* bytes) const noexcept { gd().free(bytes); }
};

using EncodedBytes = std::unique_ptr<char, GdFree>;

template <typename Bytes>
EncodedBytes owned(Bytes* bytes) {
    return EncodedBytes(static_cast<char*>(bytes));
}

EncodedBytes encode_gif(gdImage& image, int& size) {
    constexpr int kColours = 256;
    constexpr int kDithered = 1;
    gd().true_color_to_palette(&image, kDithered, kColours);
    return owned(gd().gif_of(&image, &size));
}

EncodedBytes encode_jpeg(gdImage& image, int& size) {
    constexpr int kQuality = 85;
    return owned(gd().jpeg_of(&image, &size, kQuality));
}

EncodedBytes encode_png(gdImage& image, int& size) {
    return owned(gd().png_of(&image, &size));
}

EncodedBytes encode_bmp(gdImage& image, int& size) {
    constexpr int kUncompressed = 0;
    return owned(gd().bmp_of(&image, &size, kUncompressed));
}

struct Encoder {
    std::string_view extension;
    EncodedBytes (*encode)(gdImage& image, int& size);
};

constexpr auto kEncoders = std::to_array<Encoder>({
    {"jpg", encode_jpeg},
    {"jpeg", encode_jpeg},
    {"gif", encode_gif},
    {"png", encode_png},
    {"bmp", encode_bmp},
});

const Encoder& encoder_for(std::string_view path) {
    const std::string extension = automation::to_lower(path.substr(path.rfind('.') + 1));
    const auto encoder = std::ranges::find(kEncoders, extension, &Encoder::extension);
    if (encoder == kEncoders.end()) {
        fail(ErrorNumber::InvalidProcedureCall,
             "no format is known for the name " + std::string(path));
    }
    return *encoder;
}

// --- the object ---------------------------------------------------------------------------------

class GdImageResize final : public host::ImageResize {
  public:
    explicit GdImageResize(host::Files& files) : files_(files) {}

    void LoadFromFile(std::string_view path) override {
        image_.reset();
        std::string bytes = read_file(files_, path);
        image_ = load(bytes, std::string(path));
    }

    void set_Width(double pixels) override { width_ = pixels; }

    void DoResize() override {
        require_image();
        if (!(width_ > 0)) {
            fail(ErrorNumber::InvalidProcedureCall, "a width is positive");
        }
        const double width = std::max(1.0, std::nearbyint(width_));
        const double height = std::max(1.0, std::nearbyint(width * image_->sy / image_->sx));
        if (width * height > static_cast<double>(kMostPixels)) {
            fail(ErrorNumber::OutOfMemory, "the new picture would be too large");
        }
        // Each new pixel is a weighted mean of all old ones around it: fine lines grow pale, but do
        // not break.
        gd().set_interpolation_method(image_.get(), GD_TRIANGLE);
        GdImage resized(
            gd().scale(image_.get(), static_cast<unsigned>(width), static_cast<unsigned>(height)));
        if (!resized) {
            fail(ErrorNumber::OutOfMemory, "no memory for the new picture");
        }
        image_ = std::move(resized);
    }

    void SaveToFile(std::string_view path) override {
        require_image();
        int size = 0;
        const EncodedBytes bytes = encoder_for(path).encode(*image_, size);
        if (!bytes) {
            fail(ErrorNumber::OutOfMemory, "no memory for " + std::string(path));
        }
        files_.write(path, {bytes.get(), static_cast<std::size_t>(size)});
    }

  private:
    void require_image() const {
        if (!image_) {
            fail(ErrorNumber::InvalidProcedureCall, "no picture is loaded");
        }
    }

    host::Files& files_;
    GdImage image_;
    double width_ = 0;
};

}  // namespace

std::unique_ptr<host::ImageResize> GdImageResizer::create() {
    GdLibrary::of_process();
    return std::make_unique<GdImageResize>(files_);
}

}  // namespace platform
