#include "vbscript/value/convert.h"

#include <gtest/gtest.h>

#include "vbscript/support/fake_context.h"
#include "vbscript/support/typed.h"

namespace vbscript {
namespace {

template <auto convert>
Value converted(Context& context, const Value& value) {
    return Value(convert(context, value));
}

struct Case {
    Value (*convert)(Context& context, const Value& value);
    Value value;
    std::string_view expected;
};

void expect(const std::vector<Case>& cases, std::int32_t locale = 1033) {
    FakeContext context;
    context.set_locale(locale);
    for (const Case& row : cases) {
        EXPECT_EQ(typed_result(context, [&] { return row.convert(context, row.value); }),
                  row.expected)
            << noted_result(context, [&] { return row.value; });
    }
}

constexpr auto kBoolean = converted<to_boolean>;
constexpr auto kByte = converted<to_byte>;
constexpr auto kInteger = converted<to_integer>;
constexpr auto kLong = converted<to_long>;
constexpr auto kSingle = converted<to_single>;
constexpr auto kDouble = converted<to_double>;
constexpr auto kCurrency = converted<to_currency>;
constexpr auto kDate = converted<to_date>;
constexpr auto kText = converted<to_text>;

TEST(Convert, FractionsRoundToEvenAndRangesHold) {
    expect({
        {kInteger, Value(2.5), "Integer 2"},
        {kInteger, Value(3.5), "Integer 4"},
        {kInteger, Value(-2.5), "Integer -2"},
        {kInteger, Value(32767.4), "Integer 32767"},
        {kInteger, Value(32767.5), "error 6"},
        {kInteger, text(u"0.5"), "Integer 0"},
        {kLong, Value(2147483647.4), "Long 2147483647"},
        {kLong, Value(2147483648.0), "error 6"},
        {kByte, integer(255), "Byte 255"},
        {kByte, integer(256), "error 6"},
        {kByte, integer(-1), "error 6"},
        {kByte, Value(true), "Byte 255"},
        {kSingle, Value(1e39), "error 6"},
        {kSingle, Value(0.1), "Single 0.1"},
        {kCurrency, Value(0.03125), "Currency 0.0312"},
        {kCurrency, Value(0.09375), "Currency 0.0938"},
        {kCurrency, Value(1e15), "error 6"},
        {kDate, Value(0.5), "Date 12:00:00 PM"},
        {kDate, Value(2958466.0), "error 6"},
        {kDate, Value(-657434.0), "Date 1/1/0100"},
        {kDate, Value(-657435.0), "error 6"},
    });
}

TEST(Convert, TextsOfNumbersAreNumbers) {
    expect({
        {kDouble, text(u"12"), "Double 12"},
        {kDouble, text(u" -1,234.5 "), "Double -1234.5"},
        {kDouble, text(u"(5)"), "Double -5"},
        {kDouble, text(u"$5.25"), "Double 5.25"},
        {kDouble, text(u"1e3"), "Double 1000"},
        {kDouble, text(u".5"), "Double 0.5"},
        {kDouble, text(u"&HFFFF"), "Double -1"},
        {kDouble, text(u"&O17"), "Double 15"},
        {kDouble, text(u"1e999"), "error 6"},
        {kDouble, text(u""), "error 13"},
        {kDouble, text(u"1 2"), "error 13"},
        {kDouble, text(u"\u0661"), "error 13"},
        {kDouble, text(u"5\u20AC"), "error 13"},
        {kInteger, text(u"True"), "error 13"},
        {kCurrency, text(u"922337203685477.5807"), "Currency 922337203685477.5807"},
        {kCurrency, text(u"-922337203685477.5808"), "Currency -922337203685477.5808"},
        {kCurrency, text(u"922337203685477.5808"), "error 6"},
        {kCurrency, text(u"1.00006"), "Currency 1.0001"},
        {kCurrency, text(u"."), "error 13"},
        {kCurrency, text(u"-"), "error 13"},
    });
}

TEST(Convert, TheLocaleHasItsOwnMarks) {
    constexpr std::int32_t kGermany = 1031;
    expect(
        {
            {kDouble, text(u"1.234,5"), "Double 1234,5"},
            {kDouble, text(u"5,25 \u20AC"), "Double 5,25"},
            {kDouble, text(u"$5"), "error 13"},
            {kText, Value(1.5), "String 1,5"},
            {kText, Value(0.25F), "String 0,25"},
            {kText, currency(-12500), "String -1,25"},
            {kText, Value(true), "String True"},
            {kText, moment(2026, 11, 24, 16, 3, 3), "String 24.11.2026 16:03:03"},
            {kDate, text(u"24.11.2026"), "Date 24.11.2026"},
        },
        kGermany);
    constexpr std::int32_t kUnitedKingdom = 2057;
    expect({{kDate, text(u"3/4/2026"), "Date 03/04/2026"}, {kDouble, text(u"\u00A35"), "Double 5"}},
           kUnitedKingdom);
}

TEST(Convert, TruthValues) {
    expect({
        {kBoolean, text(u"true"), "Boolean True"},
        {kBoolean, text(u"FALSE"), "Boolean False"},
        {kBoolean, text(u"0.1"), "Boolean True"},
        {kBoolean, text(u"yes"), "error 13"},
        {kBoolean, Value(0.0), "Boolean False"},
        {kBoolean, currency(1), "Boolean True"},
        {kBoolean, Value(), "Boolean False"},
        {kDouble, Value(true), "Double -1"},
    });
}

TEST(Convert, WhatHasNoSuchForm) {
    for (const auto convert :
         {kBoolean, kByte, kInteger, kLong, kSingle, kDouble, kCurrency, kDate, kText}) {
        expect({
            {convert, Value(kNull), "error 94"},
            {convert, nothing(), "error 91"},
            {convert, Value(Ref<Object>(make<StandIn>())), "error 438"},
            {convert, Value(make<Array>()), "error 13"},
            {convert, stand_in(Value(make<Array>())), "error 13"},
        });
    }
    expect({{kLong, stand_in(stand_in(text(u"7"))), "Long 7"}, {kLong, missing(), "error 13"}});
}

TEST(Convert, TextsOfValues) {
    expect({
        {kText, Value(), "String "},
        {kText, Value(1.0 / 3), "String 0.333333333333333"},
        {kText, Value(1.0F / 3), "String 0.3333333"},
        {kText, Value(999999999999999.0), "String 999999999999999"},
        {kText, Value(1e15), "String 1E+15"},
        {kText, Value(-1e-7), "String -0.0000001"},
        {kText, Value(16777216.0F), "String 1.677722E+07"},
        {kText, Value(-0.0), "String 0"},
        {kText, currency(10001), "String 1.0001"},
        {kText, Value(ErrorCode{5}), "String Error 5"},
        {kText, moment(2026, 11, 24), "String 11/24/2026"},
        {kText, moment(1899, 12, 30), "String 12:00:00 AM"},
    });
}

TEST(Convert, ATextIsSharedNotCopied) {
    FakeContext context;
    const Value value = text(u"abc");
    EXPECT_EQ(to_text(context, value).get(), &value.text());
}

TEST(Convert, Utf8GoesBothWaysAndMalformedBytesAreReplaced) {
    const std::string utf8 = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80";
    EXPECT_EQ(from_utf8(utf8), u"a\u00E4\u20AC\U0001F600");
    EXPECT_EQ(to_utf8(from_utf8(utf8)), utf8);
    EXPECT_EQ(from_utf8("\x80x"), u"\uFFFDx");
    EXPECT_EQ(from_utf8("\xC0\x80"), u"\uFFFD\uFFFD");
    EXPECT_EQ(from_utf8("\xE2\x82"), u"\uFFFD");
    EXPECT_EQ(from_utf8("\xE2\x82x"), u"\uFFFDx");
    EXPECT_EQ(from_utf8("\xED\xA0\x80"), u"\uFFFD");
    EXPECT_EQ(from_utf8("\xF4\x90\x80\x80"), u"\uFFFD");
    const std::u16string halves{0xDC00, u'x', 0xD800};
    EXPECT_EQ(to_utf8(halves), "\xEF\xBF\xBDx\xEF\xBF\xBD");
}

TEST(Convert, EveryLetterOfTwoCasesComesBack) {
    int letters = 0;
    for (int code = 0; code < 0x10000; ++code) {
        const auto unit = static_cast<char16_t>(code);
        if (to_lower(unit) == unit) continue;
        ++letters;
        EXPECT_EQ(to_upper(to_lower(unit)), unit) << code;
        EXPECT_EQ(to_upper(unit), unit) << code;
        EXPECT_EQ(to_lower(to_lower(unit)), to_lower(unit)) << code;
    }
    EXPECT_GT(letters, 1000);
    EXPECT_EQ(to_lower(u"\u00C4\u0178\u0416\u03A9\u00D7"), u"\u00E4\u00FF\u0436\u03C9\u00D7");
    EXPECT_EQ(to_upper(u'\u00DF'), u'\u00DF');
    EXPECT_EQ(to_upper(u'\u00F7'), u'\u00F7');
}

}  // namespace
}  // namespace vbscript
