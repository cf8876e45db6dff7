#include "vbscript/value/script_error.h"

#include <algorithm>
#include <array>

namespace vbscript {

namespace {

struct TextRow {
    std::int32_t number;
    std::u16string_view text;
};

constexpr auto kTexts = std::to_array<TextRow>({
    {5, u"Invalid procedure call or argument"},
    {6, u"Overflow"},
    {7, u"Out of memory"},
    {9, u"Subscript out of range"},
    {10, u"This array is fixed or temporarily locked"},
    {11, u"Division by zero"},
    {13, u"Type mismatch"},
    {14, u"Out of string space"},
    {17, u"Can't perform requested operation"},
    {28, u"Out of stack space"},
    {35, u"Sub or Function not defined"},
    {48, u"Error in loading DLL"},
    {51, u"Internal error"},
    {52, u"Bad file name or number"},
    {53, u"File not found"},
    {54, u"Bad file mode"},
    {55, u"File already open"},
    {57, u"Device I/O error"},
    {58, u"File already exists"},
    {61, u"Disk full"},
    {62, u"Input past end of file"},
    {67, u"Too many files"},
    {68, u"Device unavailable"},
    {70, u"Permission denied"},
    {71, u"Disk not ready"},
    {74, u"Can't rename with different drive"},
    {75, u"Path/File access error"},
    {76, u"Path not found"},
    {91, u"Object variable not set"},
    {92, u"For loop not initialized"},
    {94, u"Invalid use of Null"},
    {322, u"Can't create necessary temporary file"},
    {424, u"Object required"},
    {429, u"ActiveX component can't create object"},
    {430, u"Class doesn't support Automation"},
    {432, u"File name or class name not found during Automation operation"},
    {438, u"Object doesn't support this property or method"},
    {440, u"Automation error"},
    {445, u"Object doesn't support this action"},
    {446, u"Object doesn't support named arguments"},
    {447, u"Object doesn't support current locale setting"},
    {448, u"Named argument not found"},
    {449, u"Argument not optional"},
    {450, u"Wrong number of arguments or invalid property assignment"},
    {451, u"Object not a collection"},
    {453, u"Specified DLL function not found"},
    {455, u"Code resource lock error"},
    {457, u"This key is already associated with an element of this collection"},
    {458, u"Variable uses an Automation type not supported in VBScript"},
    {462, u"The remote server machine does not exist or is unavailable"},
    {481, u"Invalid picture"},
    {500, u"Variable is undefined"},
    {501, u"Illegal assignment"},
    {502, u"Object not safe for scripting"},
    {503, u"Object not safe for initializing"},
    {504, u"Object not safe for creating"},
    {505, u"Invalid or unqualified reference"},
    {506, u"Class not defined"},
    {507, u"An exception occurred"},
    {5016, u"Regular Expression object expected"},
    {5017, u"Syntax error in regular expression"},
    {5018, u"Unexpected quantifier"},
    {5019, u"Expected ']' in regular expression"},
    {5020, u"Expected ')' in regular expression"},
    {5021, u"Invalid range in character set"},
    {13028, u"Script execution time-out"},
});

constexpr std::u16string_view kLanguage = u"Microsoft VBScript runtime error";

}  // namespace

std::u16string_view error_text(std::int32_t number) noexcept {
    const auto* row = std::ranges::find(kTexts, number, &TextRow::number);
    return row == kTexts.end() ? std::u16string_view(u"Unknown runtime error") : row->text;
}

ScriptError::ScriptError(ErrorNumber wanted)
    : ScriptError(static_cast<std::int32_t>(wanted),
                  std::u16string(error_text(static_cast<std::int32_t>(wanted))),
                  std::u16string(kLanguage)) {}

ScriptError::ScriptError(ErrorNumber wanted, std::u16string_view what_about) : ScriptError(wanted) {
    subject = what_about;
}

ScriptError::ScriptError(std::int32_t the_number, std::u16string text, std::u16string program)
    : number(the_number), description(std::move(text)), source(std::move(program)) {}

std::u16string ScriptError::message() const {
    std::u16string text = description;
    if (!subject.empty()) {
        text.append(u": '").append(subject).append(u"'");
    }
    return text;
}

}  // namespace vbscript
