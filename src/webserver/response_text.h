#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/date.h"

// The bytes of every response. Status lines and header lines differ from one to the other in
// ways that clients have come to know; they stay as they are, spelling included.
namespace webserver {

class Request;

// The content type by the first extension of a fixed list that is found anywhere in the name, as
// written; "unknown/binary" without one.
[[nodiscard]] std::string_view GetMimeType(std::string_view file);

[[nodiscard]] std::string page_response(automation::DateTime now, std::string_view page);

[[nodiscard]] std::string text_file_response(automation::DateTime now,
                                             automation::DateTime last_modified,
                                             std::string_view content);

[[nodiscard]] std::string not_found_response(automation::DateTime now);

// Header alone; the file follows in pieces. `length` in bytes.
[[nodiscard]] std::string binary_file_header(automation::DateTime now,
                                             automation::DateTime last_modified,
                                             std::int64_t length, std::string_view content_type);

// What hands a client over to another server: "307 NoSupport" for browsers, and for units, which
// cannot follow one with their form data, a page that posts the form again.
enum class Handover : std::uint8_t { Redirect, Resubmit };

// `location` is the other server's "address:port" and the path. Without a payload the text ends
// behind its last header line (kept).
[[nodiscard]] std::string handover_response(Handover handover, automation::DateTime now,
                                            std::string_view location, std::string_view query,
                                            std::string_view payload);

// The page that posts the request's parameters to `location`, nothing escaped.
[[nodiscard]] std::string resubmit_page(const Request& request, std::string_view location);

}  // namespace webserver
