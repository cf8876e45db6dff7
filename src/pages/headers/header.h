#pragma once

#include <string>

namespace pages {

class HostPage;

// What a page wants of its header. What is "" comes from the host's includes.ini, or is left to
// the host's looks.
struct HeaderArguments {
    std::string title{};        // strPageTitle, shown in the title row too; may hold mark-up
    std::string links{};        // strShowLinks: "No" for none, "OldStyle" for the host's old sheet
    std::string style_sheet{};  // file name of one that takes the place of the host's own
    std::string header{};       // strHeader: "No" leaves the title row out
    std::string background{};   // colour of the page
};

// The page up to its content: head, body tag, links, menu, logo bar and title row. A failure
// leaves out what comes behind it.
[[nodiscard]] std::string CustomHeader(HostPage& page, const HeaderArguments& arguments);

}  // namespace pages
