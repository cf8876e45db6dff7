#include "vbscript/objects/class_registry.h"

#include "vbscript/objects/object_test.h"

namespace vbscript {
namespace {

TEST(ClassRegistryTest, ClassesAreFoundInAnyCaseAndWithAnyVersion) {
    FakeContext context;
    ClassRegistry registry;
    add_standard_classes(registry);
    registry.add(u"Empty.Handed", [](Context&) { return Ref<Object>(); });
    const std::vector<std::pair<std::u16string_view, std::string>> cases{
        {u"Scripting.Dictionary", "Dictionary"},
        {u"SCRIPTING.dictionary.1", "Dictionary"},
        {u"VBScript.RegExp", "IRegExp2"},
        {u"adodb.recordset.2.8", "Recordset"},
        {u"Scripting.Dictionary.x", "error 429"},
        {u"Empty.Handed", "error 429"},
        {u"", "error 429"},
    };
    for (const auto& [name, expected] : cases) {
        EXPECT_EQ(noted_result(context, [&] { return Value(registry.create(context, name)); }),
                  expected)
            << to_utf8(name);
    }
}

}  // namespace
}  // namespace vbscript
