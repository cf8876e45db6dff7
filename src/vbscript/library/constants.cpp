#include <array>
#include <vector>

#include "vbscript/library/functions.h"

namespace vbscript {
namespace {

struct NumberRow {
    std::u16string_view name;
    std::int32_t number;
};

struct TextRow {
    std::u16string_view name;
    std::u16string_view text;
};

constexpr auto kNumbers = std::to_array<NumberRow>({
    // Colours: blue, green and red from the highest byte on.
    {u"vbBlack", 0x000000},
    {u"vbRed", 0x0000FF},
    {u"vbGreen", 0x00FF00},
    {u"vbYellow", 0x00FFFF},
    {u"vbBlue", 0xFF0000},
    {u"vbMagenta", 0xFF00FF},
    {u"vbCyan", 0xFFFF00},
    {u"vbWhite", 0xFFFFFF},

    // How texts are compared.
    {u"vbBinaryCompare", 0},
    {u"vbTextCompare", 1},

    // Days and weeks.
    {u"vbSunday", 1},
    {u"vbMonday", 2},
    {u"vbTuesday", 3},
    {u"vbWednesday", 4},
    {u"vbThursday", 5},
    {u"vbFriday", 6},
    {u"vbSaturday", 7},
    {u"vbUseSystem", 0},
    {u"vbUseSystemDayOfWeek", 0},
    {u"vbFirstJan1", 1},
    {u"vbFirstFourDays", 2},
    {u"vbFirstFullWeek", 3},

    // Forms of dates.
    {u"vbGeneralDate", 0},
    {u"vbLongDate", 1},
    {u"vbShortDate", 2},
    {u"vbLongTime", 3},
    {u"vbShortTime", 4},

    // Errors of objects count from here.
    {u"vbObjectError", -2147221504},

    // Message boxes: buttons, pictures, the default button, and what was pressed.
    {u"vbOKOnly", 0},
    {u"vbOKCancel", 1},
    {u"vbAbortRetryIgnore", 2},
    {u"vbYesNoCancel", 3},
    {u"vbYesNo", 4},
    {u"vbRetryCancel", 5},
    {u"vbCritical", 16},
    {u"vbQuestion", 32},
    {u"vbExclamation", 48},
    {u"vbInformation", 64},
    {u"vbDefaultButton1", 0},
    {u"vbDefaultButton2", 256},
    {u"vbDefaultButton3", 512},
    {u"vbDefaultButton4", 768},
    {u"vbApplicationModal", 0},
    {u"vbSystemModal", 4096},
    {u"vbMsgBoxHelpButton", 16384},
    {u"vbMsgBoxSetForeground", 65536},
    {u"vbMsgBoxRight", 524288},
    {u"vbMsgBoxRtlReading", 1048576},
    {u"vbOK", 1},
    {u"vbCancel", 2},
    {u"vbAbort", 3},
    {u"vbRetry", 4},
    {u"vbIgnore", 5},
    {u"vbYes", 6},
    {u"vbNo", 7},

    // Yes, no, or what the locale says.
    {u"vbUseDefault", -2},
    {u"vbTrue", -1},
    {u"vbFalse", 0},

    // Sub-types.
    {u"vbEmpty", 0},
    {u"vbNull", 1},
    {u"vbInteger", 2},
    {u"vbLong", 3},
    {u"vbSingle", 4},
    {u"vbDouble", 5},
    {u"vbCurrency", 6},
    {u"vbDate", 7},
    {u"vbString", 8},
    {u"vbObject", 9},
    {u"vbError", 10},
    {u"vbBoolean", 11},
    {u"vbVariant", 12},
    {u"vbDataObject", 13},
    {u"vbDecimal", 14},
    {u"vbByte", 17},
    {u"vbArray", 8192},
});

constexpr auto kTexts = std::to_array<TextRow>({
    {u"vbCr", u"\r"},
    {u"vbCrLf", u"\r\n"},
    {u"vbFormFeed", u"\f"},
    {u"vbLf", u"\n"},
    {u"vbNewLine", u"\r\n"},
    {u"vbNullChar", std::u16string_view(u"\0", 1)},
    {u"vbNullString", u""},
    {u"vbTab", u"\t"},
    {u"vbVerticalTab", u"\v"},
});

std::vector<LibraryConstant> gathered() {
    std::vector<LibraryConstant> constants;
    constants.reserve(kNumbers.size() + kTexts.size());
    for (const NumberRow& row : kNumbers) {
        constants.push_back({row.name, Value(row.number)});
    }
    for (const TextRow& row : kTexts) {
        constants.push_back({row.name, Value(row.text)});
    }
    return constants;
}

}  // namespace

std::span<const LibraryConstant> library_constants() {
    static const std::vector<LibraryConstant> kConstants = gathered();
    return kConstants;
}

}  // namespace vbscript
