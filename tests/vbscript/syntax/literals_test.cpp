#include <gtest/gtest.h>

#include "vbscript/syntax/tree_text.h"

namespace vbscript {
namespace {

TEST(Literals, NumbersTakeTheSmallestType) {
    constexpr TreeCase kCases[] = {
        {u"0", "0"},
        {u"32767", "32767"},
        {u"32768", "32768L"},
        {u"2147483647", "2147483647L"},
        {u"2147483648", "2147483648D"},
        {u"12345678901234567890", "1.23456789012346e+19D"},
        {u"1.0", "1D"},
        {u"5.", "5D"},
        {u".5", "0.5D"},
        {u"1e3", "1000D"},
        {u"1E+3", "1000D"},
        {u"1.5e-3", "0.0015D"},
        {u"1e-999", "0D"},
        {u"007", "7"},
    };
    expect_expressions(kCases);
}

TEST(Literals, HexAndOctalKeepTheirBits) {
    constexpr TreeCase kCases[] = {
        {u"&HFF", "255"},           {u"&hff", "255"},       {u"&HFFFF", "-1"},
        {u"&H8000", "-32768"},      {u"&HFFFF&", "65535L"}, {u"&H1&", "1L"},
        {u"&H10000", "65536L"},     {u"&HFFFFFFFF", "-1L"}, {u"&H80000000", "-2147483648L"},
        {u"&H0000000001", "1"},     {u"&O17", "15"},        {u"&o177777", "-1"},
        {u"&O200000", "65536L"},    {u"&O7&", "7L"},        {u"a&house", "(& a house)"},
        {u"a &b", "(& a b)"},       {u"a&1", "(& a 1)"},    {u"a &other", "(& a other)"},
        {u"&HFF & a", "(& 255 a)"},
    };
    expect_expressions(kCases);
}

TEST(Literals, DatesAreReadAsInTheUnitedStates) {
    constexpr TreeCase kCases[] = {
        {u"#1/2/2003#", "#37623"},
        {u"#2003-01-02#", "#37623"},
        {u"#1 Jan 2003 10:30 PM#", "#37622.9375"},
        {u"#January 1, 2003#", "#37622"},
        {u"#6:00#", "#0.25"},
        {u"#12:00:00 AM#", "#0"},
        {u"#31/1/2003#", "#37652"},
        {u"#1/2/29# ", "#47120"},
    };
    expect_expressions(kCases);
}

TEST(Literals, DatesWithoutAYearAreInTheCurrentOne) {
    const Program program = parse_expression(u"#1/2#", {.current_year = 2003});
    EXPECT_EQ(tree_text(*program.expression()), "#37623");
}

TEST(Literals, TextsAndWords) {
    constexpr TreeCase kCases[] = {
        {u"\"\"", "''"},
        {u"\"a\"\"b\"", "'a\"b'"},
        {u"\"\"\"\"", "'\"'"},
        {u"\"'x _\"", "''x _'"},
        {u"\"a\"&\"b\"", "(& 'a' 'b')"},
        {u"TRUE Or false", "(or true false)"},
        {u"Empty & Null", "(& empty null)"},
        {u"Nothing", "nothing"},
    };
    expect_expressions(kCases);
}

TEST(Literals, FaultsInTokens) {
    constexpr TreeCase kCases[] = {
        {u"\"abc", "1033 1:5"},       {u"\"abc\nd\"", "1033 1:5"},
        {u"\"a\"\"", "1033 1:5"},     {u"1e", "1031 1:2"},
        {u"1e+", "1031 1:2"},         {u"1e999", "1031 1:1"},
        {u"&H123456789", "1031 1:1"}, {u"&O40000000000", "1031 1:1"},
        {u"1abc", "1025 1:2"},        {u"#x#", "1002 1:1"},
        {u"#1/2/2003", "1002 1:1"},   {u"#13/32/2003#", "1002 1:1"},
        {u"[abc", "1007 1:5"},        {u"a ? b", "1032 1:3"},
        {u"a@", "1032 1:2"},          {u"\u00E4 + 1", "1032 1:1"},
        {u"gr\u00F6n", "1032 1:3"},   {u"a\u00A0+ 1", "1032 1:2"},
        {u"_a", "1032 1:1"},          {u"{}", "1032 1:1"},
    };
    expect_expressions(kCases);
}

TEST(Literals, IdentifiersHaveUpTo255Units) {
    const std::u16string longest(255, u'a');
    EXPECT_EQ(parsed_expression(longest), narrow(longest));
    EXPECT_EQ(parsed_expression(longest + u"a"), "1030 1:1");
    EXPECT_EQ(parsed_expression(u"[" + longest + u"]"), narrow(longest));
    EXPECT_EQ(parsed_expression(u"1 + [" + longest + u"a]"), "1030 1:5");
}

TEST(Literals, TextsOutliveTheSource) {
    std::u16string source = u"Title + \"kept\" + \"do\"\"uble\"";
    const Program program = parse_expression(source);
    source.assign(source.size(), u'x');
    EXPECT_EQ(tree_text(*program.expression()), "(+ (+ Title 'kept') 'do\"uble')");
}

}  // namespace
}  // namespace vbscript
