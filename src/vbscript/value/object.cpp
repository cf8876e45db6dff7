#include "vbscript/value/object.h"

#include "vbscript/value/script_error.h"

namespace vbscript {

Value Object::call(Context& context, std::u16string_view name, Access access,
                   std::span<Value> arguments) {
    const auto member = find_member(name);
    if (!member) {
        throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported, name);
    }
    return invoke(context, *member, access, arguments);
}

}  // namespace vbscript
