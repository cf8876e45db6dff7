#include "vbscript/objects/regexp.h"

#include "vbscript/objects/object_test.h"

namespace vbscript {
namespace {

class RegExpTest : public ObjectTest {
  protected:
    RegExpTest() { object = make<RegExp>(); }

    // Letters of `flags`: g, i, m.
    void set(std::u16string_view pattern, std::string_view flags) {
        const auto has = [&](char flag) {
            return Value(flags.find(flag) != std::string_view::npos);
        };
        ASSERT_EQ(let(u"Pattern", {Value(pattern)}), "");
        ASSERT_EQ(let(u"Global", {has('g')}), "");
        ASSERT_EQ(let(u"IgnoreCase", {has('i')}), "");
        ASSERT_EQ(let(u"MultiLine", {has('m')}), "");
    }

    // The first match between brackets, "none", or the error.
    [[nodiscard]] std::string matched(std::u16string_view pattern, std::string_view flags,
                                      std::u16string_view subject) {
        set(pattern, flags);
        return noted_result(context, [&] {
            const Value matches = call(u"Execute", {Value(subject)});
            if (noted(vbscript::call(context, object_of(matches), u"Count")) == "0") {
                return Value(u"none");
            }
            const Value match = vbscript::call(context, object_of(matches), u"Item", {integer(0)});
            return Value(u"<" + to_units(context, context.plain(match)) + u">");
        });
    }

    [[nodiscard]] std::string replaced(std::u16string_view pattern, std::string_view flags,
                                       std::u16string_view subject, std::u16string_view with) {
        set(pattern, flags);
        return result(u"Replace", {Value(subject), Value(with)});
    }
};

struct MatchCase {
    std::u16string_view pattern;
    std::string_view flags;
    std::u16string_view subject;
    std::string_view expected;
};

TEST_F(RegExpTest, SyntaxIsTheLanguagesOwn) {
    const std::vector<MatchCase> cases{
        {u"a.c", "", u"a\nc abc", "<abc>"},
        {u"a.c", "", u"a\rc", "<a\rc>"},
        {u"\\d+", "", u"\u0663 42", "<42>"},
        {u"\\w+", "", u"\u00E4bc_9", "<bc_9>"},
        {u"\\W", "i", u"ab\u00E4", "<\u00E4>"},
        {u"\\bb", "i", u"\u00E4b", "<b>"},
        {u"\\bB\u00E4", "i", u"\u00E4b\u00C4", "<b\u00C4>"},
        {u"a\\B", "", u"a ab", "<a>"},
        {u"\\s\\S", "", u"x \u00A0y", "< \u00A0>"},
        {u"x{2}", "", u"xxx", "<xx>"},
        {u"x{2,}?", "", u"xxx", "<xx>"},
        {u"x{1,2}", "", u"xxx", "<xx>"},
        {u"x{0,99999}", "", u"xxx", "<xxx>"},
        {u"x{,2}", "", u"x{,2}", "<x{,2}>"},
        {u"{a}", "", u"{a}", "<{a}>"},
        {u"(?:a|b)+(?=c)(?!cd)", "", u"abcd abce", "<ab>"},
        {u"(a)|b\\1c", "", u"bc", "<bc>"},
        {u"(.)\\1", "i", u"xAa", "<Aa>"},
        {u"(a)\\2", "", u"a\x02", "<a\x02>"},
        {u"(a)\\11", "", u"aa1", "<aa1>"},
        {u"\\101\\x42\\u0043\\cA", "", u"ABC\x01", "<ABC\x01>"},
        {u"\\xZ\\uZ\\c1\\8", "", u"xZuZc18", "<xZuZc18>"},
        {u"[\\w-.]+", "", u"!a-b.c!", "<a-b.c>"},
        {u"[a\\]\\-\\b]+", "", u"]-a\b", "<]-a\b>"},
        {u"[^a-c]", "i", u"aBd", "<d>"},
        {u"[[:alpha:]]", "", u"a:]", "<:]>"},
        {u"[]", "", u"a", "none"},
        {u"a[^]b", "", u"a\nb", "<a\nb>"},
        {u"[\\D]", "", u"1a", "<a>"},
        {u"\u00E4", "i", u"\u00C4", "<\u00C4>"},
        {u"[\u0430-\u044F]+", "i", u"\u0416\u0436", "<\u0416\u0436>"},
        {u"a$", "", u"a\n", "none"},
        {u"a$", "m", u"a\rb", "<a>"},
        {u"^b$", "m", u"a\rb\nc", "<b>"},
        {u"^b", "", u"a\nb", "none"},
        {u"a\\.b\\*\\/", "", u"a.b*/", "<a.b*/>"},
        {u"(*UTF)", "", u"", "error 5018"},
        {u"\\Qa\\E", "", u"QaE", "<QaE>"},
        {u"a #b", "", u"a #b", "<a #b>"},
        {u"a||b", "", u"b", "<>"},
        {u"(?=a)*b", "", u"b", "<b>"},
    };
    for (const MatchCase& row : cases) {
        EXPECT_EQ(matched(row.pattern, row.flags, row.subject), row.expected)
            << to_utf8(row.pattern);
    }
}

TEST_F(RegExpTest, WhatIsNoPatternIsAnErrorWhenItIsUsed) {
    const std::vector<std::pair<std::u16string_view, std::string_view>> cases{
        {u"a)", "error 5017"},
        {u"a\\", "error 5017"},
        {u"a{3,2}", "error 5017"},
        {u"a{70000}", "error 5017"},
        {u"*a", "error 5018"},
        {u"a**", "error 5018"},
        {u"a++", "error 5018"},
        {u"a{2}{3}", "error 5018"},
        {u"^*", "error 5018"},
        {u"a|*", "error 5018"},
        {u"(?<=a)b", "error 5018"},
        {u"(?<n>a)", "error 5018"},
        {u"(?>a)", "error 5018"},
        {u"(?i)a", "error 5018"},
        {u"(?P<n>a)", "error 5018"},
        {u"[a", "error 5019"},
        {u"[a\\", "error 5019"},
        {u"[a-", "error 5019"},
        {u"[]a", "none"},
        {u"(a", "error 5020"},
        {u"(?:a", "error 5020"},
        {u"[z-a]", "error 5021"},
    };
    for (const auto& [pattern, expected] : cases) {
        EXPECT_EQ(matched(pattern, "", u"x"), expected) << to_utf8(pattern);
    }
}

TEST_F(RegExpTest, MatchesTellWhereTheyAreAndWhatTheirGroupsHold) {
    set(u"(\\w)(x)?=(\\d+)", "g");
    const Ref<Object> matches = object_of(call(u"Execute", {Value(u"a=1, bx=22")}));
    EXPECT_EQ(noted(vbscript::call(context, matches, u"Count")), "2");
    const Ref<Object> second = object_of(vbscript::call(context, matches, u"Item", {integer(1)}));
    EXPECT_EQ(noted(vbscript::call(context, second, u"FirstIndex")), "5");
    EXPECT_EQ(noted(vbscript::call(context, second, u"Length")), "5");
    EXPECT_EQ(noted(vbscript::call(context, second, u"Value")), "bx=22");
    EXPECT_EQ(noted(vbscript::call(context, second, u"SubMatches", {integer(2)})), "22");
    const Ref<Object> first = object_of(vbscript::call(context, matches, u"Item", {integer(0)}));
    const Ref<Object> groups = object_of(vbscript::call(context, first, u"SubMatches"));
    EXPECT_EQ(walked(context, groups), "[a, Empty, 1]");
    EXPECT_EQ(walked(context, matches), "[IMatch2, IMatch2]");
    for (const auto& collection : {matches, groups}) {
        EXPECT_EQ(noted_result(
                      context,
                      [&] { return vbscript::call(context, collection, u"Item", {integer(3)}); }),
                  "error 5");
    }
}

TEST_F(RegExpTest, ReplacementsReferToTheMatch) {
    EXPECT_EQ(replaced(u"(\\w+) (\\w+)", "", u"one two three", u"$2-$1"), "two-one three");
    EXPECT_EQ(replaced(u"b", "", u"abc", u"[$`|$&|$'|$$|$1|$x|$"), "a[a|b|c|$|$1|$x|$c");
    EXPECT_EQ(replaced(u"(a)(x)?", "g", u"aba", u"<$1$2$3>"), "<a$3>b<a$3>");
    EXPECT_EQ(replaced(u"(.)(.)(.)(.)(.)(.)(.)(.)(.)(.)", "", u"0123456789", u"$10$01$11"), "9001");
    EXPECT_EQ(replaced(u"a*", "g", u"baac", u"x"), "xbxxcx");
    EXPECT_EQ(replaced(u"z", "g", u"abc", u"x"), "abc");
    EXPECT_EQ(replaced(u"b", "", u"bb", u""), "b");
    EXPECT_EQ(replaced(u"", "g", u"", u"x"), "x");
}

TEST_F(RegExpTest, OptionsCanChangeAfterAUse) {
    set(u"A", "");
    EXPECT_EQ(result(u"Test", {Value(u"a")}), "False");
    EXPECT_EQ(let(u"IgnoreCase", {Value(true)}), "");
    EXPECT_EQ(result(u"Test", {Value(u"a")}), "True");
    EXPECT_EQ(let(u"Pattern", {Value(u"b")}), "");
    EXPECT_EQ(result(u"Test", {Value(u"a")}), "False");
    EXPECT_EQ(result(u"Pattern"), "b");
    EXPECT_EQ(result(u"Test", {integer(12)}), "False");
}

TEST_F(RegExpTest, PatternsThatWouldTryForEverEndWithAnError) {
    const std::u16string subject = std::u16string(64, u'a') + u"b";
    EXPECT_EQ(matched(u"^(a+)+$", "", subject), "error 28");
    EXPECT_EQ(matched(u"^(a|a)*[cd]", "", std::u16string(5000, u'a')), "error 28");
    const std::u16string long_text(300000, u'a');
    EXPECT_EQ(matched(u"^(?:a|b)*$", "", long_text).size(), long_text.size() + 2);
    context.time_checks_allowed = 10;
    EXPECT_EQ(replaced(u"a", "g", long_text, u"b"), "error 13028");
}

}  // namespace
}  // namespace vbscript
