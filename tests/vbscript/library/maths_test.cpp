#include "vbscript/library/library_test.h"

namespace vbscript {
namespace {

class Maths : public LibraryTest {};

TEST_F(Maths, FunctionsOfDoubles) {
    expect({
        {u"Atn", {integer(1)}, "Double 0.785398163397448"},
        {u"Cos", {integer(0)}, "Double 1"},
        {u"Exp", {integer(1)}, "Double 2.71828182845905"},
        {u"Log", {text(u"10")}, "Double 2.30258509299405"},
        {u"Sin", {Value(0.5)}, "Double 0.479425538604203"},
        {u"Sqr", {integer(2)}, "Double 1.4142135623731"},
        {u"Tan", {integer(1)}, "Double 1.5574077246549"},
        {u"Exp", {integer(710)}, "error 6"},
        {u"Log", {integer(0)}, "error 5"},
        {u"Sqr", {integer(-1)}, "error 5"},
        {u"Sin", {Value(kNull)}, "error 94"},
        {u"Sin", {text(u"x")}, "error 13"},
    });
}

TEST_F(Maths, AbsAndSgnKeepTheSubType) {
    expect({
        {u"Abs", {integer(-5)}, "Integer 5"},
        {u"Abs", {integer(-32768)}, "Long 32768"},
        {u"Abs", {Value(-2.5F)}, "Single 2.5"},
        {u"Abs", {currency(-15000)}, "Currency 1.5"},
        {u"Abs", {text(u"-3")}, "Double 3"},
        {u"Abs", {text(u"3")}, "Double 3"},
        {u"Abs", {Value(true)}, "Integer 1"},
        {u"Abs", {Value()}, "Integer 0"},
        {u"Abs", {Value(kNull)}, "Null"},
        {u"Sgn", {Value(-0.1)}, "Integer -1"},
        {u"Sgn", {Value()}, "Integer 0"},
        {u"Sgn", {text(u"5")}, "Integer 1"},
    });
}

TEST_F(Maths, RoundGoesToTheEvenNeighbour) {
    expect({
        {u"Round", {Value(2.5)}, "Double 2"},
        {u"Round", {Value(3.5)}, "Double 4"},
        {u"Round", {Value(-2.5)}, "Double -2"},
        {u"Round", {Value(2.125), integer(2)}, "Double 2.12"},
        {u"Round", {Value(1.5F)}, "Single 2"},
        {u"Round", {currency(12250), integer(2)}, "Currency 1.22"},
        {u"Round", {currency(-12350), integer(2)}, "Currency -1.24"},
        {u"Round", {currency(15000)}, "Currency 2"},
        {u"Round", {currency(12345), integer(9)}, "Currency 1.2345"},
        {u"Round", {integer(7), integer(3)}, "Integer 7"},
        {u"Round", {text(u"2.6")}, "Double 3"},
        {u"Round", {Value(1e300), integer(22)}, "Double 1E+300"},
        {u"Round", {Value(2.5), integer(-1)}, "error 5"},
        {u"Round", {Value(2.5), integer(23)}, "error 5"},
        {u"Round", {Value(kNull)}, "Null"},
    });
}

TEST_F(Maths, RandomNumbersFollowTheSequence) {
    expect({
        {u"Rnd", {}, "Single 0.7055475"},
        {u"Rnd", {integer(0)}, "Single 0.7055475"},
        {u"Rnd", {integer(1)}, "Single 0.533424"},
        {u"Rnd", {integer(-1)}, "Single 0.224007"},
        {u"Randomize", {integer(42)}, "Empty"},
        {u"Rnd", {text(u"x")}, "error 13"},
    });
    const Value seeded = call(u"Rnd", {});
    static_cast<void>(call(u"Rnd", {integer(-1)}));
    static_cast<void>(call(u"Randomize", {integer(42)}));
    EXPECT_EQ(call(u"Rnd", {}).real(), seeded.real());
    static_cast<void>(call(u"Rnd", {integer(-1)}));
    static_cast<void>(call(u"Randomize", {}));
    EXPECT_NE(call(u"Rnd", {}).real(), seeded.real());
}

TEST_F(Maths, ColoursHaveRedLowest) {
    expect({
        {u"RGB", {integer(1), integer(2), integer(3)}, "Long 197121"},
        {u"RGB", {integer(300), integer(0), integer(255)}, "Long 16711935"},
        {u"RGB", {integer(-1), integer(0), integer(0)}, "error 5"},
    });
}

}  // namespace
}  // namespace vbscript
