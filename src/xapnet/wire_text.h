#pragma once

#include <string>
#include <string_view>

// The edge between the network's bytes and the texts inside, which are in code page 1252. Programs
// of a house send UTF-8 or that page and do not tell which.
namespace xapnet {

// Bytes that are valid UTF-8 are read as such, and what the page does not have becomes '?'. Any
// other bytes are in the page already.
[[nodiscard]] std::string text_from_wire(std::string_view bytes);

// In UTF-8.
[[nodiscard]] std::string wire_from_text(std::string_view text);

}  // namespace xapnet
