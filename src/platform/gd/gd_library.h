#pragma once

#include <gd.h>

#include <memory>

namespace platform {

// The functions of libgd. The library is loaded at the first use, since it is an optional one, and
// since a dozen others come with it; it stays loaded. What it has to say goes nowhere: failures
// show in what its functions give.
struct GdLibrary {
    // Throws: RunTimeError 429 without the library, and tries again at the next call.
    static const GdLibrary& of_process();

    decltype(&gdSetErrorMethod) set_error_method;
    decltype(&gdFree) free;
    decltype(&gdImageDestroy) image_destroy;

    decltype(&gdImageCreateFromGifPtr) image_from_gif;
    decltype(&gdImageCreateFromJpegPtr) image_from_jpeg;
    decltype(&gdImageCreateFromPngPtr) image_from_png;
    decltype(&gdImageCreateFromBmpPtr) image_from_bmp;

    decltype(&gdImagePaletteToTrueColor) palette_to_true_color;
    decltype(&gdImageSetInterpolationMethod) set_interpolation_method;
    decltype(&gdImageScale) scale;
    decltype(&gdImageTrueColorToPalette) true_color_to_palette;

    decltype(&gdImageGifPtr) gif_of;
    decltype(&gdImageJpegPtr) jpeg_of;
    decltype(&gdImagePngPtr) png_of;
    decltype(&gdImageBmpPtr) bmp_of;
};

[[nodiscard]] inline const GdLibrary& gd() {
    return GdLibrary::of_process();
}

struct GdImageDeleter {
    void operator()(gdImage* image) const noexcept { gd().image_destroy(image); }
};

using GdImage = std::unique_ptr<gdImage, GdImageDeleter>;

}  // namespace platform
