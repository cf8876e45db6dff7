#include "vbscript/library/library_test.h"
#include "vbscript/library/text_search.h"
#include "vbscript/value/operators.h"

namespace vbscript {
namespace {

class Search : public LibraryTest {};

const Value kNothing(kNull);
const Value kBinary(std::int16_t{0});
const Value kIgnoringCase(std::int16_t{1});

TEST_F(Search, InStr) {
    const Value whole = text(u"XXpXXpXXPXXP");
    expect({
        {u"InStr", {whole, text(u"p")}, "Long 3"},
        {u"InStr", {integer(4), whole, text(u"P"), kIgnoringCase}, "Long 6"},
        {u"InStr", {integer(1), whole, text(u"P"), kBinary}, "Long 9"},
        {u"InStr", {whole, text(u"W")}, "Long 0"},
        {u"InStr", {text(u""), text(u"a")}, "Long 0"},
        {u"InStr", {whole, text(u"")}, "Long 1"},
        {u"InStr", {integer(5), whole, text(u"")}, "Long 5"},
        {u"InStr", {integer(13), whole, text(u"")}, "Long 0"},
        {u"InStr", {integer(13), whole, text(u"p")}, "Long 0"},
        {u"InStr", {kNothing, text(u"p")}, "Null"},
        {u"InStr", {whole, kNothing}, "Null"},
        {u"InStr", {kNothing, whole, text(u"p")}, "error 94"},
        {u"InStr", {integer(0), whole, text(u"p")}, "error 5"},
        {u"InStr", {integer(1), whole, text(u"p"), integer(2)}, "error 5"},
        {u"InStr", {integer(12345), integer(34)}, "Long 3"},
    });
}

TEST_F(Search, InStrRev) {
    const Value whole = text(u"XXpXXpXXPXXP");
    expect({
        {u"InStrRev", {whole, text(u"p")}, "Long 6"},
        {u"InStrRev", {whole, text(u"p"), integer(5)}, "Long 3"},
        {u"InStrRev", {whole, text(u"P"), integer(-1), kIgnoringCase}, "Long 12"},
        {u"InStrRev", {whole, text(u"pXX"), integer(7)}, "Long 3"},
        {u"InStrRev", {whole, text(u""), integer(4)}, "Long 4"},
        {u"InStrRev", {whole, text(u"")}, "Long 12"},
        {u"InStrRev", {whole, text(u"p"), integer(13)}, "Long 0"},
        {u"InStrRev", {text(u""), text(u"p")}, "Long 0"},
        {u"InStrRev", {whole, text(u"p"), integer(0)}, "error 5"},
        {u"InStrRev", {whole, text(u"p"), integer(-2)}, "error 5"},
        {u"InStrRev", {kNothing, text(u"p")}, "Null"},
    });
}

TEST_F(Search, Replace) {
    const Value whole = text(u"XXpXXPXXp");
    expect({
        {u"Replace", {whole, text(u"p"), text(u"Y")}, "String XXYXXPXXY"},
        {u"Replace",
         {whole, text(u"p"), text(u"Y"), integer(1), integer(-1), kIgnoringCase},
         "String XXYXXYXXY"},
        {u"Replace", {whole, text(u"p"), text(u"Y"), integer(4)}, "String XXPXXY"},
        {u"Replace", {whole, text(u"p"), text(u"YY"), integer(1), integer(1)}, "String XXYYXXPXXp"},
        {u"Replace", {text(u"aaa"), text(u"aa"), text(u"b")}, "String ba"},
        {u"Replace", {whole, text(u"X"), text(u"")}, "String pPp"},
        {u"Replace", {whole, text(u""), text(u"Y"), integer(7)}, "String XXp"},
        {u"Replace", {whole, text(u"p"), text(u"Y"), integer(1), integer(0)}, "String XXpXXPXXp"},
        {u"Replace", {whole, text(u"p"), text(u"Y"), integer(10)}, "String "},
        {u"Replace", {text(u""), text(u"p"), text(u"Y")}, "String "},
        {u"Replace", {integer(1213), integer(1), integer(9)}, "String 9293"},
        {u"Replace", {kNothing, text(u"p"), text(u"Y")}, "error 94"},
        {u"Replace", {whole, text(u"p"), kNothing}, "error 94"},
        {u"Replace", {whole, text(u"p"), text(u"Y"), integer(0)}, "error 5"},
        {u"Replace", {whole, text(u"p"), text(u"Y"), integer(1), integer(-2)}, "error 5"},
    });
    const std::u16string many(20'000, u'x');
    expect({{u"Replace", {Value(many), text(u"x"), Value(many)}, "error 14"}});
}

TEST_F(Search, StrComp) {
    expect({
        {u"StrComp", {text(u"abc"), text(u"ABC")}, "Integer 1"},
        {u"StrComp", {text(u"abc"), text(u"ABC"), kIgnoringCase}, "Integer 0"},
        {u"StrComp", {text(u"a"), text(u"B"), kIgnoringCase}, "Integer -1"},
        {u"StrComp", {kNothing, text(u"a")}, "Null"},
        {u"StrComp", {integer(1), integer(1)}, "Integer 0"},
        {u"StrComp", {text(u"a"), text(u"b"), integer(2)}, "error 5"},
    });
}

TEST_F(Search, Split) {
    expect({
        {u"Split", {text(u"a b c")}, "Array [a, b, c]"},
        {u"Split", {text(u"a,b,c"), text(u",")}, "Array [a, b, c]"},
        {u"Split", {text(u"a,,b,"), text(u",")}, "Array [a, , b, ]"},
        {u"Split", {text(u"a--b--c"), text(u"--"), integer(2)}, "Array [a, b--c]"},
        {u"Split", {text(u"aXbxc"), text(u"x"), integer(-1), kIgnoringCase}, "Array [a, b, c]"},
        {u"Split", {text(u"abc"), text(u"")}, "Array [abc]"},
        {u"Split", {text(u"abc"), text(u"b"), integer(1)}, "Array [abc]"},
        {u"Split", {text(u"abc"), text(u"b"), integer(0)}, "Array []"},
        {u"Split", {text(u"abc"), text(u"b"), integer(-2)}, "error 5"},
        {u"Split", {text(u""), text(u",")}, "Array []"},
        {u"Split", {kNothing}, "error 94"},
        {u"Split", {text(u"a b"), missing(), integer(2)}, "Array [a, b]"},
    });
    EXPECT_EQ(call(u"Split", {text(u"")}).array().upper_bound(1), -1);
}

TEST_F(Search, JoinAndFilter) {
    const Value words = list({text(u"Sunday"), text(u"Monday"), integer(5)});
    const std::vector<std::int32_t> square{1, 1};
    expect({
        {u"Join", {words}, "String Sunday Monday 5"},
        {u"Join", {words, text(u"")}, "String SundayMonday5"},
        {u"Join", {list({}), text(u",")}, "String "},
        {u"Join", {list({Value(), text(u"a")}), text(u",")}, "String ,a"},
        {u"Join", {list({kNothing})}, "error 94"},
        {u"Join", {text(u"a")}, "error 13"},
        {u"Join", {Value(make<Array>(std::span<const std::int32_t>(square), false))}, "error 5"},
        {u"Filter", {words, text(u"S")}, "Array [Sunday]"},
        {u"Filter", {words, text(u"s"), Value(true), kIgnoringCase}, "Array [Sunday]"},
        {u"Filter", {words, text(u"day"), Value(false)}, "Array [5]"},
        {u"Filter", {words, text(u"x")}, "Array []"},
        {u"Filter", {text(u"a"), text(u"x")}, "error 13"},
    });
}

TEST_F(Search, AgreesWithTheSlowWayOnRepetitiveTexts) {
    const std::u16string alphabet = u"aB";
    std::uint32_t state = 12345;
    const auto random_text = [&](std::size_t size) {
        std::u16string result;
        for (std::size_t count = 0; count < size; ++count) {
            state = state * 1664525 + 1013904223;
            result.push_back(alphabet[state >> 30 & 1]);
        }
        return result;
    };
    for (int round = 0; round < 300; ++round) {
        const std::u16string whole = random_text(400);
        const std::u16string part = random_text(static_cast<std::size_t>(round % 14) + 1);
        TextSearch search(whole, part, TextSearch::Case::Matters);
        for (std::size_t from = 0; from <= whole.size(); from += 7) {
            ASSERT_EQ(search.next(from), whole.find(part, from));
        }
        const std::size_t end = whole.size() - static_cast<std::size_t>(round);
        ASSERT_EQ(find_last(whole, part, end, TextSearch::Case::Matters),
                  whole.substr(0, end).rfind(part));
    }
}

// A quadratic search would take minutes here.
TEST_F(Search, CostGrowsWithTheLengthAlone) {
    const std::u16string whole(200'000, u'a');
    const std::u16string part = std::u16string(50'000, u'a') + u"b";
    expect({
        {u"InStr", {Value(whole), Value(part)}, "Long 0"},
        {u"InStrRev", {Value(whole), Value(u"b" + part)}, "Long 0"},
        {u"Replace", {Value(whole), Value(whole), text(u"x")}, "String x"},
    });
    const Value pieces = call(u"Split", {Value(whole), text(u"a")});
    EXPECT_EQ(pieces.array().elements().size(), 200'001U);
    EXPECT_EQ(call(u"Join", {pieces, text(u"a")}).units(), whole);
}

TEST_F(Search, LongLoopsLookAtTheClock) {
    context.time_checks_allowed = 3;
    const Value whole(std::u16string(100'000, u'a'));
    expect({
        {u"Replace", {whole, text(u"a"), text(u"b")}, "error 13028"},
        {u"Split", {whole, text(u"a")}, "error 13028"},
    });
}

}  // namespace
}  // namespace vbscript
