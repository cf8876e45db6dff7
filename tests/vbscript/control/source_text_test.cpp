#include "vbscript/control/source_text.h"

#include <gtest/gtest.h>

#include <vector>

namespace vbscript {
namespace {

using namespace std::string_view_literals;

struct SourceCase {
    std::string_view bytes;
    std::u16string text;
};

TEST(SourceText, EachEncodingIsToldByItsMarkOrItsBytes) {
    const std::vector<SourceCase> cases{
        {"", u""},
        {"Echo 1", u"Echo 1"},
        {"\xEF\xBB\xBF\xC3\xA4", u"\u00E4"},              // UTF-8 with a mark
        {"\xC3\xA4\xE2\x82\xAC", u"\u00E4\u20AC"},        // UTF-8 without one
        {"\xFF\xFE\xE4\x00x\x00"sv, u"\u00E4x"},          // UTF-16, low byte first
        {"\xFE\xFF\x00\xE4\x00x"sv, u"\u00E4x"},          // UTF-16, high byte first
        {"\xE4\x80", u"\u00E4\u20AC"},                    // code page 1252
        {"\xFF\xFEx"sv, u""},                             // half a unit
        {"caf\xE9 \xC3\xA9", u"caf\u00E9 \u00C3\u00A9"},  // one bad sequence: not UTF-8
    };
    for (const SourceCase& each : cases) {
        EXPECT_EQ(source_text(each.bytes), each.text) << each.bytes;
    }
}

}  // namespace
}  // namespace vbscript
