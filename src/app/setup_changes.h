#pragma once

#include <string>
#include <vector>

#include "app/json.h"

// The setup dialog without a screen: as lines, and as words of a command line. Texts are UTF-8.
namespace app {

// A table of all controls that hold something, of what the daemon answers to "setup".
[[nodiscard]] std::vector<std::string> setup_table(const Json& setup);

// "NAME=VALUE" words as the daemon takes them to "setup_ok". A name is that of a control or that of
// the setting that it edits, without regard to case; one of an array has ".PLACE" behind it. A
// group of option buttons takes the number of the button. Throws: CommandFailure for a word without
// "=" and for a name that is none.
[[nodiscard]] Json parse_changes(const Json& setup, const std::vector<std::string>& words);

// A box of text with its lines as a terminal may show them.
[[nodiscard]] std::string printable_lines(const std::string& text);

}  // namespace app
