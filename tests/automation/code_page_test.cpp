#include "automation/code_page.h"

#include <gtest/gtest.h>

#include "automation/text.h"

namespace automation {
namespace {

std::string all_bytes() {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes.push_back(static_cast<char>(byte));
    }
    return bytes;
}

TEST(CodePage, EveryByteSurvivesARoundTrip) {
    EXPECT_EQ(utf16_to_code_page(code_page_to_utf16(all_bytes())), all_bytes());
    EXPECT_EQ(utf8_to_code_page(code_page_to_utf8(all_bytes())), all_bytes());
    EXPECT_EQ(Text::from_code_page(all_bytes()).to_code_page(), all_bytes());
}

TEST(CodePage, KnownCharacters) {
    EXPECT_EQ(code_page_to_utf16("\x80\x9F\xE4\x81"), u"\u20AC\u0178\u00E4\u0081");
    EXPECT_EQ(code_page_to_utf8("\x80 \xE4"), "\xE2\x82\xAC \xC3\xA4");
    EXPECT_EQ(utf16_to_code_page(u"a\u0416\u0080b"), "a??b");
}

TEST(CodePage, MalformedUtf8BecomesOneMark) {
    struct Case {
        std::string_view utf8;
        std::string_view bytes;
    };

    constexpr Case kCases[] = {
        {"a\x80z", "a?z"},             // continuation without a start
        {"a\xC3", "a?"},               // cut off
        {"a\xE2\x82z", "a?z"},         // cut off after two of three
        {"\xF0\x9F\x98z", "?z"},       // cut off after three of four
        {"\xC0\xAF", "??"},            // overlong
        {"\xED\xA0\x80", "???"},       // surrogate
        {"\xF4\x90\x80\x80", "????"},  // above the last character
        {"\xFF", "?"},                 // never a byte of UTF-8
        {"\xF0\x9F\x98\x80!", "?!"},   // well-formed, but not in the page
        {"\xC3\xC3\xA4", "?\xE4"},     // a new start ends the old sequence
    };
    for (const Case& row : kCases) {
        EXPECT_EQ(utf8_to_code_page(row.utf8), row.bytes) << row.bytes;
    }
}

TEST(CodePage, CaseOfAccentedLetters) {
    EXPECT_EQ(to_lower("AZ\xC0\xDE\x8A\x8C\x8E\x9F"), "az\xE0\xFE\x9A\x9C\x9E\xFF");
    EXPECT_EQ(to_upper("az\xE0\xFE\x9A\x9C\x9E\xFF"), "AZ\xC0\xDE\x8A\x8C\x8E\x9F");
    EXPECT_EQ(to_lower("\xD7@["), "\xD7@[");
    EXPECT_EQ(to_upper("\xF7\xDF`{"), "\xF7\xDF`{");
}

TEST(CodePage, ComparesAndFindsIgnoringCase) {
    EXPECT_TRUE(
        equals_ignoring_case("K\xDC"
                             "CHE",
                             "k\xFC"
                             "che"));
    EXPECT_FALSE(equals_ignoring_case("hall", "halls"));
    EXPECT_EQ(find_ignoring_case("The Hall", "hALL"), 4U);
    EXPECT_EQ(find_ignoring_case("The Hall", "halls"), std::string_view::npos);
    EXPECT_EQ(find_ignoring_case("The Hall", ""), 0U);
    EXPECT_EQ(find_ignoring_case("", "x"), std::string_view::npos);
}

}  // namespace
}  // namespace automation
