#include "vbscript/syntax/syntax_errors.h"

#include <algorithm>

namespace vbscript {
namespace {

std::string log_text(SyntaxErrorNumber number) {
    std::string text;
    for (const char16_t unit : syntax_error_text(number)) {
        text += static_cast<char>(unit);  // the table is plain ASCII
    }
    return text + " (" + std::to_string(static_cast<std::int32_t>(number)) + ")";
}

}  // namespace

std::u16string_view syntax_error_text(SyntaxErrorNumber number) noexcept {
    const auto found = std::ranges::find(kSyntaxErrorTexts, number, &SyntaxErrorText::number);
    return found == kSyntaxErrorTexts.end() ? u"Syntax error" : found->text;
}

SyntaxError::SyntaxError(SyntaxErrorNumber number, ast::Position position,
                         std::u16string_view source_line)
    : std::runtime_error(log_text(number)),
      number_(number),
      position_(position),
      source_line_(source_line) {}

}  // namespace vbscript
