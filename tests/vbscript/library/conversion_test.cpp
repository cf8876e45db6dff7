#include "vbscript/library/library_test.h"

namespace vbscript {
namespace {

class Conversion : public LibraryTest {};

TEST_F(Conversion, GivesTheSubTypeThatItsNameTells) {
    expect({
        {u"CBool", {integer(5)}, "Boolean True"},
        {u"CByte", {text(u"7")}, "Byte 7"},
        {u"CInt", {Value(2.5)}, "Integer 2"},
        {u"CLng", {Value(3.5)}, "Long 4"},
        {u"CSng", {text(u"0.1")}, "Single 0.1"},
        {u"CDbl", {text(u"1,000.5")}, "Double 1000.5"},
        {u"CCur", {text(u"$1.25")}, "Currency 1.25"},
        {u"CDate", {text(u"11/24 4:03 PM")}, "Date 11/24/2026 4:03:00 PM"},
        {u"CDate", {text(u"46350")}, "Date 11/24/2026"},
        {u"CStr", {Value(1e20)}, "String 1E+20"},
        {u"CStr", {stand_in(integer(5))}, "String 5"},
        {u"CInt", {text(u"40000")}, "error 6"},
        {u"CInt", {text(u"x")}, "error 13"},
        {u"CStr", {Value(kNull)}, "error 94"},
    });
}

TEST_F(Conversion, BasesShowTheBitsOfTheSubType) {
    expect({
        {u"Hex", {integer(-1)}, "String FFFF"},
        {u"Hex", {long_number(-1)}, "String FFFFFFFF"},
        {u"Hex", {Value(true)}, "String FFFF"},
        {u"Hex", {Value(10.6)}, "String B"},
        {u"Hex", {Value()}, "String 0"},
        {u"Hex", {Value(kNull)}, "Null"},
        {u"Hex", {Value(4294967296.0)}, "error 6"},
        {u"Oct", {integer(64)}, "String 100"},
        {u"Oct", {integer(-1)}, "String 177777"},
        {u"Oct", {text(u"8")}, "String 10"},
    });
}

TEST_F(Conversion, FixCutsAndIntGoesDown) {
    expect({
        {u"Fix", {Value(-2.5)}, "Double -2"},
        {u"Int", {Value(-2.5)}, "Double -3"},
        {u"Int", {Value(2.9F)}, "Single 2"},
        {u"Int", {currency(-15000)}, "Currency -2"},
        {u"Fix", {currency(-15000)}, "Currency -1"},
        {u"Int", {currency(-20000)}, "Currency -2"},
        {u"Int", {integer(-7)}, "Integer -7"},
        {u"Int", {text(u"-1.5")}, "Double -2"},
        {u"Int", {moment(2026, 11, 24, 16)}, "Date 11/24/2026"},
        {u"Fix", {Value(true)}, "Integer -1"},
        {u"Int", {Value()}, "Integer 0"},
        {u"Int", {Value(kNull)}, "Null"},
        {u"Fix", {text(u"x")}, "error 13"},
    });
}

}  // namespace
}  // namespace vbscript
