#include "home/ini/ini_encoding.h"

#include "automation/code_page.h"
#include "automation/utf8.h"

namespace home {

IniEncoding encoding_of(std::string_view content) noexcept {
    return automation::is_well_formed_utf8(content) ? IniEncoding::Utf8 : IniEncoding::CodePage;
}

std::string decode(IniEncoding encoding, std::string_view bytes) {
    return encoding == IniEncoding::Utf8 ? automation::utf8_to_code_page(bytes)
                                         : std::string(bytes);
}

std::string encode(IniEncoding encoding, std::string_view text) {
    return encoding == IniEncoding::Utf8 ? automation::code_page_to_utf8(text) : std::string(text);
}

}  // namespace home
