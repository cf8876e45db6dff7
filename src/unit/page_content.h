#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace unit {

// What a page asks the browser to load by and by instead of it. An empty address means the page
// itself.
struct PageRefresh {
    std::chrono::seconds after{};  // at least one
    std::string address;
};

// The first refresh among the page's meta tags, nothing without one that tells its seconds.
[[nodiscard]] std::optional<PageRefresh> page_refresh(std::string_view html);

// The addresses of the page's pictures as they stand there, at most `most`.
[[nodiscard]] std::vector<std::string> picture_addresses(std::string_view html, std::size_t most);

// An address on a page as a whole one: with scheme and server, or below the server's root, or
// beside the page.
[[nodiscard]] std::string whole_address(std::string_view page, std::string_view address);

}  // namespace unit
