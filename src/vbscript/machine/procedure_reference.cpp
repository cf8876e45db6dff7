#include "vbscript/machine/procedure_reference.h"

#include "vbscript/machine/machine.h"

namespace vbscript {

Value ProcedureReference::invoke(Context& /*context*/, MemberId /*member*/, Access access,
                                 std::span<Value> arguments) {
    if (access != Access::Call || link_->machine == nullptr) {
        throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported);
    }
    return link_->machine->call(*procedure_, nullptr, arguments);
}

}  // namespace vbscript
