#pragma once

#include <string>
#include <vector>

namespace app {

// The body of a message as a person writes it on the command line: one word for each item,
// "BLOCK.KEY=VALUE", where the last "." before the "=" ends the block's name; a word without "="
// is a block without items.
struct XapBody {
    std::string section;  // the first block
    std::string data;     // as the transport takes it; see xapnet::compose
};

// The texts are UTF-8, the body is in code page 1252.
// Throws: CommandFailure that names the word at fault.
[[nodiscard]] XapBody xap_body_of(const std::vector<std::string>& words);

}  // namespace app
