#include "home/web/static_file.h"

#include <string>
#include <string_view>

#include "automation/code_page.h"
#include "home/web/byte_range.h"
#include "home/web/content_type.h"
#include "home/web/http_date.h"
#include "home/web/packing.h"
#include "home/web/plain_page.h"

namespace home {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::size_t kLookAt = 1024;  // bytes in which a page tells its own encoding
constexpr std::uint64_t kMostPacked = std::uint64_t{2} * 1024 * 1024;

// A page that tells its encoding itself is believed.
std::string full_type(const SiteEntry& file, const ContentType& type) {
    std::string text(type.name);
    if (!type.has_charset) {
        return text;
    }
    const std::string start = SiteFiles::beginning(file, kLookAt);
    if (start.starts_with(kUtf8Mark)) {
        text += "; charset=utf-8";
    } else if (automation::find_ignoring_case(start, "charset=") == std::string::npos) {
        text += "; charset=windows-1252";
    }
    return text;
}

bool is_known_to_client(const host::HttpRequest& request, const SiteEntry& file) {
    const auto since = parse_http_date(request.header("If-Modified-Since").value_or(""));
    return since && file.modified <= *since && !request.header("If-None-Match");
}

// A client that continues an older copy gets the whole file instead.
ByteRange wanted_range(const host::HttpRequest& request, const SiteEntry& file) {
    const auto copy = request.header("If-Range");
    if (request.method != "GET" || (copy && parse_http_date(*copy) != file.modified)) {
        return {};
    }
    return parse_range(request.header("Range").value_or(""), file.size);
}

std::string content_range(const ByteRange& range, std::uint64_t size) {
    const std::string whole = "/" + std::to_string(size);
    if (range.kind == RangeKind::Unsatisfiable) {
        return std::string("bytes *").append(whole);
    }
    return "bytes " + std::to_string(range.begin) + "-" +
           std::to_string(range.begin + range.size - 1) + whole;
}

}  // namespace

host::HttpResponse answer_file(const host::HttpRequest& request, const SiteEntry& file) {
    host::HttpResponse response;
    if (request.method == "POST") {
        response = plain_page(405, "Not allowed", "This page takes no form.");
        response.add("Allow", "GET, HEAD");
        return response;
    }
    const ContentType type = content_type_of(file.path.filename().string());
    response.add("Last-Modified", http_date(file.modified));
    if (is_known_to_client(request, file)) {
        response.status = 304;
        return response;
    }
    response.add("Content-Type", full_type(file, type));
    response.add("Accept-Ranges", "bytes");
    const ByteRange range = wanted_range(request, file);
    if (range.kind == RangeKind::Unsatisfiable) {
        response.status = 416;
        response.add("Content-Range", content_range(range, file.size));
    } else if (range.kind == RangeKind::Part) {
        response.status = 206;
        response.add("Content-Range", content_range(range, file.size));
        response.file = {.path = file.path, .begin = range.begin, .size = range.size};
    } else if (type.is_packable && file.size <= kMostPacked && takes_gzip(request)) {
        response.body = SiteFiles::read(file);
        pack(request, response);
    } else {
        response.file = {.path = file.path, .begin = 0, .size = file.size};
    }
    return response;
}

}  // namespace home
