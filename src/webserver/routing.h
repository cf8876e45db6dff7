#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace webserver {

// Who answers a request.
enum class Destination : std::uint8_t { SlideshowPage, StatusPage, BinaryFile, TextFile, Host };

struct Route {
    Destination destination = Destination::Host;
    std::string type;  // four characters from the last dot, "" without one
    std::string file;  // below the HTML folder, cut behind its extension; for files only

    friend bool operator==(const Route&, const Route&) = default;
};

// A requested path in the form in which routes and file names are chosen: lower case, with
// backslashes.
[[nodiscard]] std::string routing_page(std::string_view requested_path);

// The route of a page in that form.
[[nodiscard]] Route route_of(std::string_view page);

// Whether a file name would lead out of the folder that it is appended to: by a ".." part or a
// drive letter.
[[nodiscard]] bool leaves_root(std::string_view file);

}  // namespace webserver
