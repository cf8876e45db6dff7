#include "vbscript/objects/object_errors.h"

#include <algorithm>
#include <array>
#include <string>

namespace vbscript {
namespace {

struct Row {
    ObjectError error;
    std::int32_t number;
    std::u16string_view text;
    std::u16string_view source;
};

constexpr std::u16string_view kLanguage = u"Microsoft VBScript runtime error";
constexpr std::u16string_view kRecordset = u"ADODB.Recordset";
constexpr std::u16string_view kFields = u"ADODB.Fields";
constexpr std::u16string_view kField = u"ADODB.Field";

constexpr auto kRows = std::to_array<Row>({
    {ObjectError::DuplicateKey, 457,
     u"This key is already associated with an element of this collection", kLanguage},
    {ObjectError::ElementNotFound, 32811, u"Element not found", kLanguage},
    {ObjectError::NoCurrentRecord, 3021,
     u"Either BOF or EOF is True, or the current record has been deleted. Requested operation "
     u"requires a current record.",
     kRecordset},
    {ObjectError::ItemNotInCollection, 3265,
     u"Item cannot be found in the collection corresponding to the requested name or ordinal.",
     kFields},
    {ObjectError::ObjectAlreadyOpen, 3705, u"Operation is not allowed when the object is open.",
     kRecordset},
    {ObjectError::ObjectClosed, 3704, u"Operation is not allowed when the object is closed.",
     kRecordset},
    {ObjectError::WrongArgument, 3001,
     u"Arguments are of the wrong type, are out of acceptable range, or are in conflict with one "
     u"another.",
     kRecordset},
    {ObjectError::ItemAlreadyInCollection, 3367, u"Object is already in collection. Cannot append.",
     kFields},
    {ObjectError::WrongValueType, 3421,
     u"Application uses a value of the wrong type for the current operation.", kField},
    {ObjectError::NoConnection, 3709,
     u"The connection cannot be used to perform this operation. It is either closed or invalid in "
     u"this context.",
     kRecordset},
    {ObjectError::ValueTooLong, -2147217887,
     u"Multiple-step operation generated errors. Check each status value.", kField},
});

}  // namespace

ScriptError object_error(ObjectError error) {
    const auto* row = std::ranges::find(kRows, error, &Row::error);
    return {row->number, std::u16string(row->text), std::u16string(row->source)};
}

}  // namespace vbscript
