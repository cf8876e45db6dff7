#pragma once

#include <string_view>

namespace core {
class Instance;
}

namespace pages {

// Appends a text to HTML\<name>.html, which is made if it is missing, for a look at what was
// generated. The file grows as long as nobody deletes it. A failure is logged.
void DumpStringToFile(core::Instance& instance, std::string_view name, std::string_view text);

}  // namespace pages
