#pragma once

#include "vbscript/machine/instance.h"
#include "vbscript/machine/module.h"
#include "vbscript/value/object.h"

namespace vbscript {

// A module as an object: its procedures are methods, its variables and constants properties.
class CodeObject final : public Object {
  public:
    CodeObject(Module& module, Ref<MachineLink> link) noexcept
        : module_(module), link_(std::move(link)) {}

    [[nodiscard]] std::u16string type_name() const override { return u"Object"; }

    // Names of a module may come and go.
    [[nodiscard]] const Counted* class_identity() const noexcept override { return nullptr; }

    [[nodiscard]] std::optional<MemberId> find_member(std::u16string_view name) const override;

    Value invoke(Context& context, MemberId member, Access access,
                 std::span<Value> arguments) override;

  private:
    [[nodiscard]] Value access_variable(Context& context, Value& variable, Access access,
                                        std::span<Value> arguments);

    Module& module_;
    Ref<MachineLink> link_;
};

}  // namespace vbscript
