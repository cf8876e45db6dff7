#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "app/picture.h"
#include "app/setup_fields.h"

namespace app {

// Where a field stands on its page.
struct FieldPlace {
    std::size_t field = 0;
    int line = 0;  // from the page's top
    int column = 0;
    int width = 0;
    bool is_narrow = false;  // a choice that shows its chosen text alone
};

struct PageLayout {
    std::vector<FieldPlace> places;  // line by line, from left to right
    std::vector<Piece> labels;       // rows are lines of the page
    int lines = 0;
};

// How the fields of a page are set in a window: units as a table, the slides of the chosen group,
// everything else as one field a line.
[[nodiscard]] PageLayout lay_out_page(const std::vector<SetupField>& fields,
                                      const std::string& page, int columns);

}  // namespace app
