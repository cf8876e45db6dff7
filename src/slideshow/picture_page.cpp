#include "slideshow/picture_page.h"

#include <string_view>

#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "media/image_info.h"
#include "pages/dump_string.h"

namespace slideshow {

namespace {

constexpr std::int32_t kScreenWidth = 620;  // pixels
constexpr std::int32_t kScreenHeight = 460;

std::string with_slashes(std::string_view path) {
    return automation::replace_all(path, "\\", "/");
}

// A side in thousandths of the screen's.
std::int32_t per_mille(std::int32_t side, std::int32_t of_screen) {
    return automation::checked_int32(static_cast<double>(automation::multiply_int32(side, 1000)) /
                                     of_screen);
}

std::string pinned_side(const ShownPicture& picture) {
    const std::int32_t height = per_mille(picture.height, kScreenHeight);
    const std::int32_t width = per_mille(picture.width, kScreenWidth);
    return picture.width < 1 || width <= height ? " height = '460'" : " width = '620'";
}

std::string image_source(core::Instance& instance, const ShownPicture& picture) {
    if (instance.settings.Wallpaper) {
        return "/images/Velora/blank5x5.gif' width='625'>";
    }
    const std::string path = media::Resize(instance, instance.platform().image_resizer,
                                           {.file = picture.file,
                                            .base = picture.base,
                                            .width = picture.width,
                                            .height = picture.height},
                                           picture.client);
    return picture.server + with_slashes(path) + "'>";
}

std::string page_of(core::Instance& instance, const ShownPicture& picture) {
    const core::UtilitySettings& settings = instance.settings;
    std::string page = "<html><head><meta http-equiv=\"Refresh\" content=\"" + picture.dwell +
                       "; URL=/VeloraSlideshow.asp\"></head><body bgcolor='black'";
    if (settings.Wallpaper) {
        page += " background='" + with_slashes(picture.file) + "'";
    }
    page +=
        "><div align='center'>  <center>"
        "  <table height='460' border='0' cellpadding='0' cellspacing='0'>    <tr>"
        "      <td valign='center' align='center'><a href=\"http://";
    page += settings.HomeseerIP + ":" + settings.unit_port() +
            "/VeloraSlideshow.asp?ClientAction=links\"><img border='0' ";
    page += pinned_side(picture) + " src='" + image_source(instance, picture);
    page += "</a></td>    </tr>  </table>  </center></div></body></html>";
    return page;
}

}  // namespace

std::string BuildSlideshow(core::Instance& instance, const ShownPicture& picture) {
    return automation::guarded(instance.log, "BuildSlideshow: ", [&] {
        instance.log.debug([&] {
            return "Now Showing slide " + picture.file + " with original size of " +
                   std::to_string(picture.width) + "x" + std::to_string(picture.height);
        });
        std::string page = page_of(instance, picture);
        if (instance.log.DebugLog()) {
            pages::DumpStringToFile(instance, "ac", page);
        }
        return page;
    });
}

void read_size(core::Instance& instance, const std::string& base, const std::string& file,
               std::int32_t& width, std::int32_t& height) {
    if (width >= 0 || instance.settings.Wallpaper) {
        return;
    }
    media::ImageInfo info(instance);
    info.ReadImageInfo(automation::replace_all(base + "\\" + file, "/", "\\"));
    width = info.Width();
    height = info.Height();
}

}  // namespace slideshow
