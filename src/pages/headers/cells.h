#pragma once

#include <string>
#include <string_view>

namespace pages {

class HostPage;

// One cell of a table. `cell_class` names its look: the style sheet knows it, but for a touch
// screen, which knows none and gets colours and font in the cell itself. `colspan` is a number as
// text; an empty attribute is left out.
[[nodiscard]] std::string FormatCell(HostPage& page, std::string_view text, std::string_view align,
                                     std::string_view colspan, std::string_view cell_class);

}  // namespace pages
