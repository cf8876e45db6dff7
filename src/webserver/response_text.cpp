#include "webserver/response_text.h"

#include <algorithm>
#include <array>

#include "automation/convert.h"
#include "webserver/request.h"
#include "webserver/request_text.h"

namespace webserver {
namespace {

struct MimeType {
    std::string_view extension;
    std::string_view content_type;
};

// In the order in which they are looked for. ".htm" stands for ".html" too.
constexpr auto kMimeTypes = std::to_array<MimeType>({
    {".txt", "text/plain"},
    {".htm", "text/html"},
    {".jpg", "image/jpg"},
    {".gif", "image/gif"},
    {".bmp", "image/bmp"},
    {".wav", "audio/wav"},
    {".php", "text/html"},
});

constexpr std::string_view kNotFoundPage = "<html><h1>404 File Not Found</h1></html>";

// Each line with its end, in one piece.
template <std::size_t Count>
std::string header_lines(const std::array<std::string, Count>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text.append(line).append(kLineEnd);
    }
    return text;
}

template <typename... Lines>
std::string lines(Lines&&... line) {
    return header_lines(std::array<std::string, sizeof...(Lines)>{std::forward<Lines>(line)...});
}

std::string with_body(std::string header, std::string_view body) {
    header.reserve(header.size() + kLineEnd.size() + body.size());
    return header.append(kLineEnd).append(body);
}

std::string hidden_input(const KeyValuePair& pair) {
    return "<input type='hidden' name='" + pair.key + "' value='" + pair.value + "'>";
}

}  // namespace

std::string_view GetMimeType(std::string_view file) {
    const auto known = std::ranges::find_if(kMimeTypes, [file](const MimeType& type) {
        return file.find(type.extension) != std::string_view::npos;
    });
    return known == kMimeTypes.end() ? "unknown/binary" : known->content_type;
}

std::string page_response(automation::DateTime now, std::string_view page) {
    return with_body(lines("HTTP/1.0 200 OK",                        //
                           "Server: zyn",                            //
                           "Date: " + automation::medium_date(now),  //
                           "Accept-Ranges: bytes",                   //
                           "Content-Type: text/html",                //
                           "Content-Length: " + std::to_string(page.size())),
                     page);
}

std::string text_file_response(automation::DateTime now, automation::DateTime last_modified,
                               std::string_view content) {
    return with_body(lines("HTTP/1.0 200 OK",                        //
                           "Server: zyn",                            //
                           "Date: " + automation::medium_date(now),  //
                           "Accept-Ranges: bytes",                   //
                           "Content-Type: text/html",                //
                           "Last-Modified " + automation::general_date(last_modified),
                           "Content-Length: " + std::to_string(content.size())),
                     content);
}

std::string not_found_response(automation::DateTime now) {
    return with_body(lines("HTTP/1.1 200 Object Not Found",          //
                           "Server: zyn",                            //
                           "Date: " + automation::medium_date(now),  //
                           "Connection: Close",                      //
                           "Content-Type: text/html",                //
                           "Content-Length: " + std::to_string(kNotFoundPage.size())),
                     kNotFoundPage);
}

std::string binary_file_header(automation::DateTime now, automation::DateTime last_modified,
                               std::int64_t length, std::string_view content_type) {
    return with_body(lines("HTTP/1.1 200 OK",                       //
                           "Server: zyn",                           //
                           "Date:" + automation::medium_date(now),  //
                           "Last-Modified: " + automation::general_date(last_modified),
                           "Accept-Ranges: bytes",                       //
                           "Content-Length: " + std::to_string(length),  //
                           "Connection: Close",                          //
                           "Content-Type: " + std::string(content_type)),
                     {});
}

std::string handover_response(Handover handover, automation::DateTime now,
                              std::string_view location, std::string_view query,
                              std::string_view payload) {
    const bool resubmits = handover == Handover::Resubmit;
    std::string header =
        lines(resubmits ? "HTTP/1.0 200 OK" : "HTTP/1.0 307 NoSupport",  //
              "Server: zyn",                                             //
              "Date: " + automation::medium_date(now),                   //
              "Connection: close",                                       //
              "Content-Type: text/html", "Location: http://" + std::string(location).append(query));
    if (automation::trim(payload).empty()) {
        return header;
    }
    header += lines("Content-Length: " + std::to_string(payload.size()));
    return with_body(std::move(header), payload);
}

std::string resubmit_page(const Request& request, std::string_view location) {
    std::string page =
        "<HTML><HEAD><SCRIPT LANGUAGE=\"JavaScript\">"
        "function initialize() {document.redo.submit();}"
        "</script></HEAD><body onLoad='initialize()'>"
        "<form name='redo' action='http://";
    page.append(location).append("' method='").append(request.Method()).append("'>");
    for (const ParameterCollection* pairs : {&request.QueryStringCol(), &request.FormCol()}) {
        for (const KeyValuePair& pair : *pairs) {
            page += hidden_input(pair);
        }
    }
    return page.append("</form></HTML>");
}

}  // namespace webserver
