#include "vbscript/objects/class_registry.h"
#include "vbscript/objects/dictionary.h"
#include "vbscript/objects/recordset/recordset.h"
#include "vbscript/objects/regexp.h"

namespace vbscript {
namespace {

template <typename Class>
[[nodiscard]] Ref<Object> create(Context& /*context*/) {
    return make<Class>();
}

}  // namespace

void add_standard_classes(ClassRegistry& registry) {
    registry.add(u"Scripting.Dictionary", create<Dictionary>);
    registry.add(u"VBScript.RegExp", create<RegExp>);
    registry.add(u"ADODB.Recordset", create<Recordset>);
}

}  // namespace vbscript
