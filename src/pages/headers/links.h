#pragma once

#include <string>
#include <string_view>

namespace pages {

class HostPage;

inline constexpr std::string_view kNoFile = "No File";

// The whole text of a file below the application path, named with its leading backslash;
// "No File" when it is not there.
[[nodiscard]] std::string FileContents(HostPage& page, std::string_view file);

// The same of \html\<stem>.htm, of \html\<stem>_touchscreen.htm for a touch screen, with "" for a
// file that is not there.
[[nodiscard]] std::string optional_page_part(HostPage& page, std::string_view stem);

// The page's row of links from a file, in enhanced security the one of the user's level first;
// "No File" without one.
[[nodiscard]] std::string LinkFile(HostPage& page);

// The host's own row of links.
[[nodiscard]] std::string HSLinks(HostPage& page);

}  // namespace pages
