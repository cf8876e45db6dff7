#include "platform/gd/gd_library.h"

#include <cstdarg>

#include "platform/system/shared_library.h"

namespace platform {
namespace {

void say_nothing(int, const char*, va_list) {}

}  // namespace

const GdLibrary& GdLibrary::of_process() {
    static const GdLibrary library = [] {
        const SharedLibrary file("Pictures", "libgd.so.3");
        GdLibrary functions{};
        file.find("gdSetErrorMethod", functions.set_error_method);
        file.find("gdFree", functions.free);
        file.find("gdImageDestroy", functions.image_destroy);
        file.find("gdImageCreateFromGifPtr", functions.image_from_gif);
        file.find("gdImageCreateFromJpegPtr", functions.image_from_jpeg);
        file.find("gdImageCreateFromPngPtr", functions.image_from_png);
        file.find("gdImageCreateFromBmpPtr", functions.image_from_bmp);
        file.find("gdImagePaletteToTrueColor", functions.palette_to_true_color);
        file.find("gdImageSetInterpolationMethod", functions.set_interpolation_method);
        file.find("gdImageScale", functions.scale);
        file.find("gdImageTrueColorToPalette", functions.true_color_to_palette);
        file.find("gdImageGifPtr", functions.gif_of);
        file.find("gdImageJpegPtr", functions.jpeg_of);
        file.find("gdImagePngPtr", functions.png_of);
        file.find("gdImageBmpPtr", functions.bmp_of);
        functions.set_error_method(say_nothing);
        return functions;
    }();
    return library;
}

}  // namespace platform
