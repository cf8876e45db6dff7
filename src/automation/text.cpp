#include "automation/text.h"

#include <utility>

#include "automation/code_page.h"

namespace automation {

Text::Text(std::u16string units)
    : units_(units.empty() ? nullptr : std::make_shared<const std::u16string>(std::move(units))) {}

Text Text::from_code_page(std::string_view bytes) {
    return Text(code_page_to_utf16(bytes));
}

std::string Text::to_code_page() const {
    return utf16_to_code_page(units());
}

}  // namespace automation
