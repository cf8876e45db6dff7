#include "xapnet/wire_text.h"

#include <algorithm>

#include "automation/code_page.h"
#include "automation/utf8.h"

namespace xapnet {

std::string text_from_wire(std::string_view bytes) {
    const bool is_ascii =
        std::ranges::all_of(bytes, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (is_ascii || !automation::is_well_formed_utf8(bytes)) {
        return std::string(bytes);
    }
    return automation::utf8_to_code_page(bytes);
}

std::string wire_from_text(std::string_view text) {
    return automation::code_page_to_utf8(text);
}

}  // namespace xapnet
