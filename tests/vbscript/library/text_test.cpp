#include "vbscript/library/library_test.h"
#include "vbscript/value/byte_text.h"

namespace vbscript {
namespace {

class Texts : public LibraryTest {};

const Value kNothing(kNull);

TEST_F(Texts, Parts) {
    const Value word = text(u"hello");
    expect({
        {u"Left", {word, integer(2)}, "String he"},
        {u"Left", {word, integer(99)}, "String hello"},
        {u"Left", {integer(123), integer(2)}, "String 12"},
        {u"Left", {kNothing, integer(2)}, "Null"},
        {u"Left", {word, integer(-1)}, "error 5"},
        {u"Left", {word, kNothing}, "error 94"},
        {u"Right", {word, integer(2)}, "String lo"},
        {u"Right", {word, integer(0)}, "String "},
        {u"Right", {word, long_number(2147483647)}, "String hello"},
        {u"Mid", {word, integer(2)}, "String ello"},
        {u"Mid", {word, integer(2), integer(3)}, "String ell"},
        {u"Mid", {word, integer(6)}, "String "},
        {u"Mid", {word, integer(2), missing()}, "String ello"},
        {u"Mid", {word, integer(0)}, "error 5"},
        {u"Mid", {word, integer(1), integer(-1)}, "error 5"},
        {u"Mid", {kNothing, integer(1)}, "Null"},
        {u"Left", {list({}), integer(1)}, "error 13"},
    });
    EXPECT_EQ(&call(u"Left", {word, integer(5)}).text(), &word.text());
}

TEST_F(Texts, LengthsAndForms) {
    expect({
        {u"Len", {text(u"h\u00E9llo")}, "Long 5"},
        {u"Len", {integer(-123)}, "Long 4"},
        {u"Len", {Value()}, "Long 0"},
        {u"Len", {kNothing}, "Null"},
        {u"LCase", {text(u"\u00C4bC1")}, "String \u00E4bc1"},
        {u"UCase", {text(u"\u00E4bc\u00DF")}, "String \u00C4BC\u00DF"},
        {u"UCase", {kNothing}, "Null"},
        {u"Trim", {text(u"  a b  ")}, "String a b"},
        {u"LTrim", {text(u"  a ")}, "String a "},
        {u"RTrim", {text(u" a\t ")}, "String  a\t"},
        {u"Trim", {text(u"   ")}, "String "},
        {u"RTrim", {text(u"   ")}, "String "},
        {u"Trim", {kNothing}, "Null"},
        {u"StrReverse", {text(u"abc")}, "String cba"},
        {u"StrReverse", {kNothing}, "error 94"},
        {u"Space", {integer(3)}, "String    "},
        {u"Space", {integer(-1)}, "error 5"},
        {u"Space", {long_number(2147483647)}, "error 14"},
        {u"String", {integer(3), text(u"xy")}, "String xxx"},
        {u"String", {integer(2), integer(65)}, "String AA"},
        {u"String", {integer(2), integer(65 + 256)}, "String AA"},
        {u"String", {integer(1), integer(128)}, "String \u20AC"},
        {u"String", {integer(1), text(u"")}, "error 5"},
        {u"String", {kNothing, text(u"x")}, "Null"},
        {u"String", {integer(1), kNothing}, "Null"},
        {u"String", {long_number(300'000'000), text(u"x")}, "error 14"},
    });
}

TEST_F(Texts, CharactersAndTheirNumbers) {
    expect({
        {u"Asc", {text(u"A")}, "Integer 65"},
        {u"Asc", {text(u"\u20AC")}, "Integer 128"},
        {u"Asc", {text(u"\u0416")}, "Integer 63"},
        {u"Asc", {text(u"")}, "error 5"},
        {u"Asc", {kNothing}, "error 94"},
        {u"AscW", {text(u"\u20AC")}, "Integer 8364"},
        {u"AscW", {text(u"\uFFFF")}, "Integer -1"},
        {u"AscB", {text(u"\u20AC")}, "Integer 172"},
        {u"Chr", {integer(65)}, "String A"},
        {u"Chr", {integer(128)}, "String \u20AC"},
        {u"Chr", {integer(256)}, "error 5"},
        {u"Chr", {integer(-1)}, "error 5"},
        {u"ChrW", {integer(8364)}, "String \u20AC"},
        {u"ChrW", {integer(-1)}, "String \uFFFF"},
        {u"ChrW", {long_number(65536)}, "error 5"},
        {u"ChrB", {integer(256)}, "error 5"},
    });
}

TEST_F(Texts, Bytes) {
    const Value word = text(u"ab");
    const Value bytes(text_of_bytes("abc"));
    expect({
        {u"LenB", {word}, "Long 4"},
        {u"LenB", {bytes}, "Long 3"},
        {u"LenB", {call(u"ChrB", {integer(65)})}, "Long 1"},
        {u"LenB", {call(u"LeftB", {word, integer(3)})}, "Long 3"},
        {u"LeftB", {word, integer(2)}, "String a"},
        {u"RightB", {word, integer(2)}, "String b"},
        {u"MidB", {word, integer(3)}, "String b"},
        {u"MidB", {word, integer(9)}, "String "},
        {u"MidB", {word, integer(0)}, "error 5"},
        {u"LeftB", {kNothing, integer(1)}, "Null"},
        {u"InStrB", {word, text(u"b")}, "Long 3"},
        {u"InStrB", {integer(4), word, text(u"b")}, "Long 0"},
        {u"InStrB", {bytes, call(u"ChrB", {integer('c')})}, "Long 3"},
        {u"LenB", {call(u"Mid", {bytes, integer(2)})}, "Long 1"},
        {u"LenB", {call(u"Right", {bytes, integer(1)})}, "Long 1"},
        {u"LenB", {call(u"Left", {bytes, integer(1)})}, "Long 2"},
    });
    EXPECT_EQ(bytes_of(call(u"MidB", {bytes, integer(2), integer(1)}).text()), "b");
}

TEST_F(Texts, EscapesComeBack) {
    expect({
        {u"Escape", {text(u"a b/\u00E9\u20AC%+")}, "String a%20b/%E9%u20AC%25+"},
        {u"Unescape", {text(u"a%20b/%E9%u20ac%25+")}, "String a b/\u00E9\u20AC%+"},
        {u"Unescape", {text(u"%%u12%G0%u%4")}, "String %%u12%G0%u%4"},
        {u"Unescape", {text(u"%41%")}, "String A%"},
    });
}

}  // namespace
}  // namespace vbscript
