#include "webserver/routing.h"

#include <algorithm>
#include <array>

#include "automation/code_page.h"

namespace webserver {
namespace {

struct ServedType {
    std::string_view extension;
    Destination destination;
};

constexpr auto kServedTypes = std::to_array<ServedType>({
    {".jpg", Destination::BinaryFile},
    {".gif", Destination::BinaryFile},
    {".wav", Destination::BinaryFile},
    {".htm", Destination::TextFile},
    {".css", Destination::TextFile},
});

constexpr std::string_view kLongTextExtension = ".html";
constexpr std::size_t kTypeLength = 4;  // with its dot

std::size_t extension_length(std::string_view from_dot) {
    return from_dot.starts_with(kLongTextExtension) ? kLongTextExtension.size() : kTypeLength;
}

}  // namespace

std::string routing_page(std::string_view requested_path) {
    std::string page = automation::to_lower(requested_path);
    std::ranges::replace(page, '/', '\\');
    return page;
}

Route route_of(std::string_view page) {
    const auto dot = page.rfind('.');
    const std::string type(dot == std::string_view::npos ? "" : page.substr(dot, kTypeLength));
    if (page == "\\veloraslideshow.asp") {
        return {Destination::SlideshowPage, type, {}};
    }
    if (page == "\\status") {
        return {Destination::StatusPage, type, {}};
    }
    const auto served = std::ranges::find(kServedTypes, type, &ServedType::extension);
    if (served == kServedTypes.end()) {
        return {Destination::Host, type, {}};
    }
    const std::size_t length = extension_length(page.substr(dot));
    return {served->destination, type, std::string(page.substr(0, dot + length))};
}

bool leaves_root(std::string_view file) {
    if (file.find(':') != std::string_view::npos) {
        return true;
    }
    for (;;) {
        const auto separator = file.find_first_of("\\/");
        if (file.substr(0, separator) == "..") {
            return true;
        }
        if (separator == std::string_view::npos) {
            return false;
        }
        file.remove_prefix(separator + 1);
    }
}

}  // namespace webserver
