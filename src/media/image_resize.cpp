#include "media/image_resize.h"

#include <algorithm>
#include <array>
#include <memory>

#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"
#include "host/files.h"
#include "host/image_resize.h"
#include "media/image_info.h"

namespace media {

namespace {

using automation::ErrorNumber;
using automation::RunTimeError;

// Exactly as spelt: other files keep their size.
constexpr auto kResizedExtensions = std::to_array<std::string_view>({"jpg", "gif", "jpeg"});

std::string with_backslashes(std::string_view path) {
    return automation::replace_all(path, "/", "\\");
}

std::string path_of(const Slide& slide) {
    return with_backslashes(std::string(slide.base) + "\\" + std::string(slide.file));
}

bool needs_resizing(const core::Instance& instance, const Slide& slide) {
    const std::string_view extension = slide.file.substr(slide.file.rfind('.') + 1);
    const bool is_large =
        automation::multiply_int32(slide.width, slide.height) >= instance.settings.MaxPixels;
    return is_large && std::ranges::find(kResizedExtensions, extension) != kResizedExtensions.end();
}

// Nothing where the component is missing: it is an optional one, and no error is left behind.
std::unique_ptr<host::ImageResize> create_component(core::Instance& instance,
                                                    host::ImageResizer& resizer) {
    try {
        return resizer.create();
    } catch (const RunTimeError&) {
        instance.log.clear_pending();
        return nullptr;
    }
}

// At the old height this width would make `MaxPixels`; since the height shrinks too, the copy is
// smaller than that.
double resized_width(const core::Instance& instance, const Slide& slide) {
    if (slide.height == 0) {
        throw RunTimeError(ErrorNumber::DivisionByZero);
    }
    return static_cast<double>(instance.settings.MaxPixels) / slide.height;
}

void log_new_size(core::Instance& instance, const Slide& slide, const std::string& copy) {
    instance.log.debug([&] {
        ImageInfo info(instance);
        info.ReadImageInfo(copy);
        return "Resized " + std::string(slide.file) + " to " + std::to_string(info.Width()) + "x" +
               std::to_string(info.Height());
    });
}

// The name with a backslash before it.
std::string name_of(std::string_view file) {
    const std::string path = with_backslashes(file);
    const std::size_t separator = path.rfind('\\');
    return separator == std::string::npos ? "\\" + path : path.substr(separator);
}

// Sets `result` as soon as it is known: the failure of a later step does not take it back.
void resize_for_unit(core::Instance& instance, host::ImageResizer& resizer, const Slide& slide,
                     std::string& result) {
    const std::unique_ptr<host::ImageResize> component =
        needs_resizing(instance, slide) ? create_component(instance, resizer) : nullptr;
    if (!component) {
        result = slide.file;
        return;
    }
    const std::string name = name_of(slide.file);
    const std::string copy = instance.settings.TempPath + name;
    component->LoadFromFile(path_of(slide));
    component->set_Width(resized_width(instance, slide));
    component->DoResize();
    component->SaveToFile(copy);
    result = "/VeloraTemp" + name;
    log_new_size(instance, slide, copy);
}

std::string copy_for_browser(core::Instance& instance, const Slide& slide) {
    const std::string name(slide.file.substr(slide.file.rfind('\\') + 1));
    instance.platform().files.CopyFile(automation::replace_all(path_of(slide), "\\\\", "\\"),
                                       instance.settings.TempPath + "\\" + name);
    return "/VeloraTemp/" + name;
}

}  // namespace

std::string Resize(core::Instance& instance, host::ImageResizer& resizer, const Slide& slide,
                   SlideClient client) {
    std::string result;
    automation::guarded(instance.log, "Resize ", [&] {
        if (client == SlideClient::Velora) {
            resize_for_unit(instance, resizer, slide, result);
        } else {
            result = copy_for_browser(instance, slide);
        }
    });
    return result;
}

}  // namespace media
