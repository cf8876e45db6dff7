#include <gtest/gtest.h>

#include <vector>

#include "vbscript/value/convert.h"
#include "vbscript/value/date_parts.h"
#include "vbscript/value/locale.h"

namespace vbscript {
namespace {

constexpr int kYear = 2026;

struct Case {
    std::u16string_view text;
    std::string_view expected;  // ISO 8601; the time alone on day 0; "" for no date
};

std::string noted(const std::optional<Date>& date) {
    if (!date) return "";
    const auto parts = parts_of(*date);
    if (!parts) return "outside";
    const bool is_time = date->days >= 0 && date->days < 1;
    const bool is_midnight = parts->hour + parts->minute + parts->second == 0;
    std::u16string_view pattern = u"yyyy-MM-dd HH:mm:ss";
    if (is_midnight) pattern = pattern.substr(0, 10);
    if (is_time) pattern = u"HH:mm:ss";
    return to_utf8(date_text(*find_locale(1033), *parts, pattern));
}

void expect(std::int32_t locale, const std::vector<Case>& cases) {
    for (const Case& row : cases) {
        EXPECT_EQ(noted(parse_date(*find_locale(locale), row.text, kYear)), row.expected)
            << to_utf8(row.text);
    }
}

constexpr std::int32_t kUnitedStates = 1033;
constexpr std::int32_t kUnitedKingdom = 2057;
constexpr std::int32_t kGermany = 1031;

TEST(ParseDate, TheOrderOfTheLocaleComesFirst) {
    expect(kUnitedStates, {
                              {u"3/4/2026", "2026-03-04"},
                              {u"13/4/2026", "2026-04-13"},
                              {u"2026-11-24", "2026-11-24"},
                              {u"2026-24-11", "2026-11-24"},
                              {u"11-24-26", "2026-11-24"},
                              {u"11,24,2026", "2026-11-24"},
                              {u"11 24 2026", "2026-11-24"},
                              {u"1/1/29", "2029-01-01"},
                              {u"1/1/30", "1930-01-01"},
                              {u"1/1/100", "0100-01-01"},
                              {u"12/31/9999", "9999-12-31"},
                          });
    expect(kUnitedKingdom,
           {{u"3/4/2026", "2026-04-03"}, {u"4/13/2026", "2026-04-13"}, {u"1/2", "2026-02-01"}});
    expect(kGermany, {{u"3.4.2026", "2026-04-03"}, {u"27.8", "2026-08-27"}, {u"27.8.", ""}});
}

TEST(ParseDate, PartsThatAreLeftOut) {
    expect(kUnitedStates, {
                              {u"11/24", "2026-11-24"},
                              {u"24/11", "2026-11-24"},
                              {u"2/30", "1930-02-01"},
                              {u"11/2027", "2027-11-01"},
                              {u"2027/11", "2027-11-01"},
                              {u"Nov 24", "2026-11-24"},
                              {u"24 november", "2026-11-24"},
                              {u"Nov 2027", "2027-11-01"},
                              {u"Nov 31", "1931-11-01"},
                          });
}

TEST(ParseDate, MonthNames) {
    expect(kUnitedStates, {
                              {u"24 Nov 2026", "2026-11-24"},
                              {u"Nov 24, 2026", "2026-11-24"},
                              {u"24-Nov-26", "2026-11-24"},
                              {u"2026 Nov 24", "2026-11-24"},
                              {u"24nov2026", "2026-11-24"},
                              {u"29-Feb-01", "2029-02-01"},
                              {u"24 Novem 2026", ""},
                              {u"24 Dezember 2026", ""},
                              {u"Nov Dec 2026", ""},
                              {u"Tuesday, November 24, 2026", ""},
                          });
    expect(kGermany, {
                         {u"24. Dezember 2026", "2026-12-24"},
                         {u"1. M\u00E4rz 2026", "2026-03-01"},
                         {u"1 MRZ 26", "2026-03-01"},
                         {u"1 March 2026", "2026-03-01"},
                     });
}

TEST(ParseDate, Times) {
    expect(kUnitedStates, {
                              {u"16:03", "16:03:00"},
                              {u"4:03:03 PM", "16:03:03"},
                              {u"4PM", "16:00:00"},
                              {u"4 p", "16:00:00"},
                              {u"12:30 am", "00:30:00"},
                              {u"12:30 pm", "12:30:00"},
                              {u"13:55 AM", "13:55:00"},
                              {u"13.50", "13:50:00"},
                              {u"12.25.10", "12:25:10"},
                              {u"12.25.2010", ""},
                              {u"24.12", ""},
                              {u"24:00", ""},
                              {u"12:60", ""},
                              {u"12:30:60", ""},
                              {u"1:2:3:4", ""},
                              {u"12:", ""},
                              {u"11/24/2026 4:03 PM", "2026-11-24 16:03:00"},
                              {u"4:03 PM 11/24/2026", "2026-11-24 16:03:00"},
                              {u"Nov 24, 2026, 4 PM", "2026-11-24 16:00:00"},
                              {u"12/30/1899 6:00", "06:00:00"},
                          });
}

TEST(ParseDate, WhatIsNoDate) {
    expect(kUnitedStates, {
                              {u"", ""},
                              {u" ", ""},
                              {u"5", ""},
                              {u"46350", ""},
                              {u"1/1/99999", ""},
                              {u"2/30/2026", ""},
                              {u"13/13/2026", ""},
                              {u"1//1/2026", ""},
                              {u"/1/1/2026", ""},
                              {u"1/1/2026/", ""},
                              {u"1/1/2026/5", ""},
                              {u"1/1/0099", ""},
                              {u"2026-11-24T16:03:00", ""},
                              {u"-1", ""},
                              {u"hello", ""},
                              {u"1/1/2026 x", ""},
                              {u"1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1", ""},
                          });
}

}  // namespace
}  // namespace vbscript
