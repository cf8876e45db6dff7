#include "automation/run_time_error.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace automation {
namespace {

struct Description {
    std::int32_t number;
    std::string_view text;
};

constexpr auto kDescriptions = std::to_array<Description>({
    {3, "Return without GoSub"},
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {7, "Out of memory"},
    {9, "Subscript out of range"},
    {10, "This array is fixed or temporarily locked"},
    {11, "Division by zero"},
    {13, "Type mismatch"},
    {14, "Out of string space"},
    {17, "Can't perform requested operation"},
    {28, "Out of stack space"},
    {35, "Sub or Function not defined"},
    {48, "Error in loading DLL"},
    {51, "Internal error"},
    {52, "Bad file name or number"},
    {53, "File not found"},
    {54, "Bad file mode"},
    {55, "File already open"},
    {57, "Device I/O error"},
    {58, "File already exists"},
    {61, "Disk full"},
    {62, "Input past end of file"},
    {67, "Too many files"},
    {68, "Device unavailable"},
    {70, "Permission denied"},
    {71, "Disk not ready"},
    {74, "Can't rename with different drive"},
    {75, "Path/File access error"},
    {76, "Path not found"},
    {91, "Object variable or With block variable not set"},
    {92, "For loop not initialized"},
    {94, "Invalid use of Null"},
    {322, "Can't create necessary temporary file"},
    {424, "Object required"},
    {429, "ActiveX component can't create object"},
    {430, "Class does not support Automation"},
    {432, "File name or class name not found during Automation operation"},
    {438, "Object doesn't support this property or method"},
    {445, "Object doesn't support this action"},
    {446, "Object doesn't support named arguments"},
    {447, "Object doesn't support current locale setting"},
    {448, "Named argument not found"},
    {449, "Argument not optional"},
    {450, "Wrong number of arguments or invalid property assignment"},
    {451, "Object not a collection"},
    {453, "Specified DLL function not found"},
    {457, "This key is already associated with an element of this collection"},
    {458, "Variable uses an Automation type not supported"},
    {462, "The remote server machine does not exist or is unavailable"},
    {481, "Invalid picture"},
    {500, "Variable is undefined"},
    {501, "Illegal assignment"},
    {10048, "Address in use"},
});

}  // namespace

std::string standard_description(ErrorNumber number) {
    const auto row =
        std::ranges::find(kDescriptions, static_cast<std::int32_t>(number), &Description::number);
    if (row == kDescriptions.end()) {
        return "Application-defined or object-defined error";
    }
    return std::string(row->text);
}

RunTimeError::RunTimeError(ErrorNumber number, std::source_location where)
    : RunTimeError(number, standard_description(number), {}, where) {}

RunTimeError::RunTimeError(ErrorNumber number, const std::string& description, std::string source,
                           std::source_location where)
    : RunTimeError(static_cast<std::int32_t>(number), description, std::move(source), where) {}

RunTimeError::RunTimeError(std::int32_t number, const std::string& description, std::string source,
                           std::source_location where)
    : std::runtime_error(description),
      number_(number),
      source_(std::move(source)),
      line_(where.line()) {}

RunTimeError RunTimeError::with_description(const std::string& description) const {
    RunTimeError told(number_, description, source_);
    told.line_ = line_;
    return told;
}

}  // namespace automation
