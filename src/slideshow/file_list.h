#pragma once

#include <string_view>

#include "core/instance.h"
#include "slideshow/picture_list.h"

namespace slideshow {

// Adds the pictures of a folder, and of all folders below it, to a list: those whose ending is
// ".jpg", "jpeg", ".gif" or ".bmp" in any case and switched on in the settings. The list has their
// paths without `base`. A folder that cannot be read is logged and left out.
void BuildFileList(core::Instance& instance, std::string_view folder, std::string_view base,
                   PictureList& list);

}  // namespace slideshow
