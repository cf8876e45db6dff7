#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace unit {

// The parts of an "http://host[:port][/path][?query]" address. `target` is path and query as they
// stand in a request line; blanks of the address are "%20" there, and a fragment is left out.
struct WebAddress {
    std::string host;
    std::uint16_t port = 80;
    std::string target = "/";
};

// Nothing when the text has another scheme, no host, or no port from 1 to 65535 behind its colon.
[[nodiscard]] std::optional<WebAddress> parse_web_address(std::string_view url);

// The last part of the path, without characters that a file system or a shell could take amiss,
// at most 80 characters; "sound" when nothing is left.
[[nodiscard]] std::string file_name_of(std::string_view url);

}  // namespace unit
