#include "home/web/content_type.h"

#include <algorithm>
#include <array>
#include <string>

#include "automation/code_page.h"

namespace home {
namespace {

struct Row {
    std::string_view extension;
    ContentType type;
};

constexpr ContentType kHtml{"text/html", true, true};
constexpr ContentType kJpeg{"image/jpeg", false, false};
constexpr ContentType kBytes{"application/octet-stream", false, false};

constexpr std::array kRows{
    Row{".asp", kHtml},
    Row{".htm", kHtml},
    Row{".html", kHtml},
    Row{".txt", {"text/plain", true, true}},
    Row{".csv", {"text/csv", true, true}},
    Row{".css", {"text/css", true, true}},
    Row{".js", {"text/javascript", true, true}},
    Row{".json", {"application/json", false, true}},
    Row{".xml", {"text/xml", false, true}},
    Row{".svg", {"image/svg+xml", false, true}},
    Row{".jpg", kJpeg},
    Row{".jpeg", kJpeg},
    Row{".gif", {"image/gif", false, false}},
    Row{".png", {"image/png", false, false}},
    Row{".bmp", {"image/bmp", false, true}},
    Row{".webp", {"image/webp", false, false}},
    Row{".ico", {"image/x-icon", false, true}},
    Row{".wav", {"audio/wav", false, false}},
    Row{".mp3", {"audio/mpeg", false, false}},
    Row{".ogg", {"audio/ogg", false, false}},
    Row{".mp4", {"video/mp4", false, false}},
    Row{".pdf", {"application/pdf", false, false}},
    Row{".zip", {"application/zip", false, false}},
    Row{".woff2", {"font/woff2", false, false}},
};

}  // namespace

ContentType content_type_of(std::string_view file_name) {
    const std::size_t dot = file_name.rfind('.');
    const std::string extension =
        dot == std::string_view::npos ? "" : automation::to_lower(file_name.substr(dot));
    const auto* const row = std::ranges::find(kRows, extension, &Row::extension);
    return row == kRows.end() ? kBytes : row->type;
}

bool is_packable(std::string_view content_type) {
    const std::string name = automation::to_lower(content_type.substr(0, content_type.find(';')));
    return std::ranges::any_of(
        kRows, [&name](const Row& row) { return row.type.name == name && row.type.is_packable; });
}

}  // namespace home
