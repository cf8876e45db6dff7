#pragma once

#include "vbscript/machine/instance.h"
#include "vbscript/machine/procedure.h"
#include "vbscript/value/object.h"

namespace vbscript {

// What `GetRef` gives: an object whose default member calls a procedure.
class ProcedureReference final : public Object {
  public:
    ProcedureReference(Procedure& procedure, Ref<MachineLink> link) noexcept
        : procedure_(&procedure), link_(std::move(link)) {}

    [[nodiscard]] std::u16string type_name() const override { return u"Object"; }

    [[nodiscard]] std::optional<MemberId> find_member(std::u16string_view /*name*/) const override {
        return std::nullopt;
    }

    Value invoke(Context& context, MemberId member, Access access,
                 std::span<Value> arguments) override;

    [[nodiscard]] bool has_default_member() const override { return true; }

  private:
    Ref<Procedure> procedure_;
    Ref<MachineLink> link_;
};

}  // namespace vbscript
