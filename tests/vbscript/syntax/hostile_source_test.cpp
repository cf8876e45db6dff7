#include <gtest/gtest.h>

#include "vbscript/syntax/tree_text.h"

namespace vbscript {
namespace {

std::u16string repeated(std::u16string_view part, std::size_t count) {
    std::u16string text;
    for (std::size_t index = 0; index < count; ++index) {
        text += part;
    }
    return text;
}

std::string number_of(const std::u16string& source) {
    const std::string result = parsed(source);
    return result.substr(0, result.find(' '));
}

TEST(HostileSource, NestingIsBounded) {
    constexpr std::size_t kFar = 20'000;
    for (const std::u16string_view part :
         {u"(", u"-", u"Not ", u"f(", u"1 ^ -", u"a Imp b Or Not c = d & e + f * g ^ ("}) {
        EXPECT_EQ(number_of(u"x = " + repeated(part, kFar)), "1001") << narrow(part);
    }
    for (const std::u16string_view part :
         {u"If a Then\n", u"Do\n", u"While a\n", u"With a\n", u"For Each x In a\n", u"If a Then ",
          u"Select Case a\nCase 1\n", u"If a Then\nElse "}) {
        EXPECT_EQ(number_of(repeated(part, kFar)), "1001") << narrow(part);
    }
    EXPECT_EQ(number_of(u"Const a = " + repeated(u"(", kFar)), "1001");
}

TEST(HostileSource, LongChainsAreBounded) {
    EXPECT_EQ(number_of(u"x = 1" + repeated(u" & 1", ast::kMostHeight)), "1001");
    EXPECT_EQ(number_of(u"x = a" + repeated(u".a", ast::kMostHeight)), "1001");
    EXPECT_EQ(number_of(u"a" + repeated(u"(1)", ast::kMostHeight)), "1001");
    EXPECT_NE(number_of(u"x = 1" + repeated(u" & 1", ast::kMostHeight - 1)), "1001");
}

TEST(HostileSource, RealDepthsPass) {
    constexpr std::size_t kDeep = 200;
    EXPECT_NE(number_of(u"x = " + repeated(u"(", kDeep) + u"1" + repeated(u")", kDeep)), "1001");
    EXPECT_EQ(number_of(repeated(u"If a Then\n", kDeep) + repeated(u"End If\n", kDeep)), "(if");
}

TEST(HostileSource, MegabytesAreRead) {
    constexpr std::size_t kLines = 25'000;
    const Program program =
        parse(repeated(u"alpha(1).beta = gamma & \"text\" + 12 ' note\n", kLines));
    EXPECT_EQ(program.body().size(), kLines);
    EXPECT_EQ(program.names().size(), 3U);
    EXPECT_EQ(parse(u"f " + repeated(u"1, ", kLines)).body().size(), 1U);
    EXPECT_EQ(
        parse(u"If a Then\n" + repeated(u"ElseIf b Then\n", kLines) + u"End If").body().size(), 1U);
}

TEST(HostileSource, EveryCutOfAScriptEndsInATreeOrAnError) {
    const std::u16string source =
        u"Option Explicit\nClass C\nPublic Default Property Get p(i) : p = i : End Property\n"
        u"End Class\nSub f(ByVal a, b())\nIf a Then b = 1 Else c &HFF, #1/1/2000#, \"x\"\n"
        u"For i = 1.5e3 To -2 Step .5\nDo Until a.b(1, , 2)\nLoop\nNext\n"
        u"Select Case x\nCase 1, 2 : y\nCase Else\nEnd Select\nEnd Sub\n"
        u"With [a b] : .c = Not d ^ -e : End With _\n";
    for (std::size_t length = 0; length <= source.size(); ++length) {
        const std::u16string_view cut(source.data(), length);
        EXPECT_NO_THROW((void)parsed(cut)) << length;
        EXPECT_NO_THROW((void)parsed(source.substr(length))) << length;
    }
}

TEST(HostileSource, UnitsOutsideTheLanguageAreInvalid) {
    for (char16_t unit = 0x7F; unit < 0x300; ++unit) {
        EXPECT_EQ(parsed(std::u16string(u"x = ") + unit), "1032 1:5") << static_cast<int>(unit);
    }
    EXPECT_EQ(parsed(std::u16string_view(u"x\0y", 3)), "1032 1:2");
}

}  // namespace
}  // namespace vbscript
