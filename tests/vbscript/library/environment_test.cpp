#include "vbscript/library/library_test.h"

namespace vbscript {
namespace {

class Environment : public LibraryTest {};

TEST_F(Environment, LocalesByNumberAndTag) {
    expect({
        {u"GetLocale", {}, "Long 1033"},
        {u"SetLocale", {text(u"de-de")}, "Long 1033"},
        {u"CStr", {Value(1.5)}, "String 1,5"},
        {u"SetLocale", {text(u"2057")}, "Long 1031"},
        {u"SetLocale", {text(u"&H409")}, "Long 2057"},
        {u"SetLocale", {text(u"xx")}, "error 447"},
        {u"SetLocale", {integer(9999)}, "error 447"},
        {u"SetLocale", {integer(1031)}, "Long 1033"},
        {u"SetLocale", {}, "Long 1031"},
        {u"GetLocale", {}, "Long 1033"},
    });
}

TEST_F(Environment, Boxes) {
    expect({
        {u"MsgBox", {text(u"Go on?"), integer(4), text(u"Title")}, "Long 1"},
        {u"MsgBox", {integer(5)}, "Long 1"},
        {u"InputBox", {text(u"Name"), missing(), text(u"Bob")}, "String Bob"},
        {u"MsgBox", {Value(kNull)}, "error 94"},
        {u"MsgBox", {text(u"a"), integer(0), text(u"b"), text(u"help.hlp")}, "error 5"},
    });
    ASSERT_EQ(context.boxes.size(), 3U);
    EXPECT_EQ(context.boxes[0].buttons, 4);
    EXPECT_EQ(context.boxes[0].title, u"Title");
    EXPECT_EQ(context.boxes[1].prompt, u"5");
    EXPECT_EQ(context.boxes[2].title, u"VBScript");
}

TEST_F(Environment, Objects) {
    context.make_object = [](std::u16string_view name) {
        if (name != u"Known.Class") throw ScriptError(ErrorNumber::CannotCreateObject);
        return Ref<Object>(make<StandIn>());
    };
    expect({
        {u"CreateObject", {text(u"Known.Class")}, "Object StandIn"},
        {u"CreateObject", {text(u"Known.Class"), text(u"")}, "Object StandIn"},
        {u"CreateObject", {text(u"Known.Class"), text(u"server")}, "error 462"},
        {u"CreateObject", {text(u"Other")}, "error 429"},
        {u"GetObject", {text(u""), text(u"Known.Class")}, "Object StandIn"},
        {u"GetObject", {missing(), text(u"Known.Class")}, "error 429"},
        {u"GetObject", {text(u"C:\\a.doc")}, "error 432"},
        {u"LoadPicture", {text(u"a.bmp")}, "error 481"},
    });
}

TEST_F(Environment, TheEngineTellsItsVersion) {
    expect({
        {u"ScriptEngine", {}, "String VBScript"},
        {u"ScriptEngineMajorVersion", {}, "Long 5"},
        {u"ScriptEngineMinorVersion", {}, "Long 8"},
        {u"ScriptEngineBuildVersion", {}, "Long 16384"},
    });
}

template <typename Row>
void expect_unique_names(std::span<const Row> rows) {
    std::vector<std::u16string> names;
    for (const Row& row : rows) {
        names.push_back(to_lower(row.name));
    }
    std::ranges::sort(names);
    const auto twice = std::ranges::adjacent_find(names);
    EXPECT_EQ(twice, names.end()) << to_utf8(*twice);
}

TEST_F(Environment, EveryNameOccursOnce) {
    expect_unique_names(library_functions());
    expect_unique_names(library_constants());
    EXPECT_GT(library_functions().size(), 90U);
    EXPECT_GT(library_constants().size(), 80U);
}

TEST_F(Environment, Constants) {
    const std::vector<std::pair<std::u16string_view, std::string_view>> cases{
        {u"vbCrLf", "String \r\n"},   {u"vbNullString", "String "},
        {u"vbTextCompare", "Long 1"}, {u"vbObjectError", "Long -2147221504"},
        {u"vbYellow", "Long 65535"},  {u"vbUseDefault", "Long -2"},
        {u"vbArray", "Long 8192"},
    };
    for (const auto& [name, expected] : cases) {
        const auto constants = library_constants();
        const auto row = std::ranges::find(constants, name, &LibraryConstant::name);
        ASSERT_NE(row, constants.end()) << to_utf8(name);
        EXPECT_EQ(typed(context, row->value), expected);
    }
}

}  // namespace
}  // namespace vbscript
