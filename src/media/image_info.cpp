#include "media/image_info.h"

#include <string>

#include "automation/guarded.h"
#include "host/files.h"

namespace media {

void ImageInfo::ReadImageInfo(std::string_view sFileName) {
    properties_ = {};
    automation::guarded(instance_.log, "ReadImageInfo file " + std::string(sFileName), [&] {
        host::Files& files = instance_.platform().files;
        read_image_properties(files.open_for_reading(sFileName)->read(kImageHeaderBytes),
                              properties_);
    });
}

}  // namespace media
