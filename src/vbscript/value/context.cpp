#include "vbscript/value/context.h"

#include "vbscript/value/script_error.h"

namespace vbscript {

Value Context::plain(const Value& value) {
    constexpr int kDeepest = 16;
    Value current = value;
    for (int depth = 0; current.is(Type::Object); ++depth) {
        Ref<Object> object(current.object());
        if (!object) {
            throw ScriptError(ErrorNumber::ObjectVariableNotSet);
        }
        if (!object->has_default_member() || depth == kDeepest) {
            throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported);
        }
        current = object->invoke(*this, kDefaultMember, Access::Call, {});
    }
    return current;
}

}  // namespace vbscript
