#include "home/web/web_site.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "automation/code_page.h"
#include "home/web/packing.h"
#include "home/web/plain_page.h"
#include "home/web/static_file.h"
#include "home/web/url_text.h"

namespace home {
namespace {

// The pages that stand for their folder, the first one wins.
constexpr std::array<std::string_view, 6> kIndexPages{"index.asp",   "index.html",   "index.htm",
                                                      "default.asp", "default.html", "default.htm"};
constexpr std::string_view kScript = ".asp";

// A proxy's request names the server, too.
std::string_view without_server(std::string_view target) {
    const std::size_t scheme = target.find("://");
    if (target.starts_with('/') || scheme == std::string_view::npos) {
        return target;
    }
    const std::size_t path = target.find('/', scheme + 3);
    return path == std::string_view::npos ? "/" : target.substr(path);
}

bool is_script(const SiteEntry& file) {
    return automation::equals_ignoring_case(file.path.extension().string(), kScript);
}

host::HttpResponse not_found(const std::string& place) {
    return plain_page(404, "Not found", "There is no page " + place + " on this site.");
}

// Links of an index page count from its folder, which the browser knows by the slash alone.
host::HttpResponse to_folder(std::string_view target) {
    const std::size_t query = std::min(target.find('?'), target.size());
    const std::size_t path = target.find_first_not_of("/\\");
    std::string location = "/";
    location.append(target.substr(path, query - path)).append("/").append(target.substr(query));
    host::HttpResponse response = plain_page(301, "Moved", "The page is at " + location + ".");
    response.add("Location", location);
    return response;
}

}  // namespace

host::HttpResponse WebSite::answer(const host::HttpRequest& request) {
    const std::string_view target = without_server(request.target);
    const std::string text = percent_decoded(target.substr(0, target.find('?')), Plus::Stays);
    const std::optional<WebPath> place = SiteFiles::resolve({}, text);
    host::HttpResponse response =
        place ? answer_place(request, *place, text.ends_with('/') || text.ends_with('\\'))
              : not_found(text);
    pack(request, response);
    return response;
}

host::HttpResponse WebSite::answer_place(const host::HttpRequest& request, WebPath place,
                                         bool names_folder) {
    std::optional<SiteEntry> entry = files_.find(place);
    if (entry && entry->is_folder) {
        if (!names_folder && !place.empty()) {
            return to_folder(without_server(request.target));
        }
        entry.reset();
        for (const std::string_view index : kIndexPages) {
            place.emplace_back(index);
            entry = files_.find(place);
            if (entry && !entry->is_folder) {
                break;
            }
            place.pop_back();
        }
    } else if (names_folder) {
        entry.reset();
    }
    if (!entry || entry->is_folder) {
        return not_found(text_of(place));
    }
    return is_script(*entry) ? pages_.run(request, place) : answer_file(request, *entry);
}

}  // namespace home
