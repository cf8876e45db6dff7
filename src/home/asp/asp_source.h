#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "home/web/site_files.h"

namespace home {

// A page with all that it includes, as one script. What stands outside of "<% %>" is a list of
// texts, which the script writes by their number with `Response.WriteBlock`.
struct AspSource {
    // Where a line of the script comes from.
    struct Place {
        std::size_t file = 0;  // into `files`
        std::int32_t line = 0;
    };

    std::string code;
    std::vector<std::string> blocks;
    std::vector<Place> places;       // one for each line of `code`
    std::vector<std::string> files;  // as the site names them, the page first

    // The place of a line of the script, from 1; the last one for a line behind the end.
    // Requires: a script that is not empty.
    [[nodiscard]] const Place& place_of(std::int32_t line) const;
};

// Reads a page. Includes are read by their place in the file ("file", as seen from the folder of
// the file that includes) or on the site ("virtual"), and never from outside of the site.
// Throws: AspFailure for a page or include that is not there, an include within itself or too deep,
// a block that is not closed, another language than VBScript, and a page that grows too large.
[[nodiscard]] AspSource read_asp(const SiteFiles& files, const WebPath& page);

}  // namespace home
