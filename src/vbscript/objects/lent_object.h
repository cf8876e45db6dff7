#pragma once

#include <memory>

#include "automation/object.h"
#include "vbscript/objects/bridge_table.h"
#include "vbscript/value/object.h"

namespace vbscript {

// An object of the program as scripts see it. Shared by the values that hold it; keeps the
// program's object alive. A call may pump. Errors arrive as ScriptError with the class's name as
// their source unless they tell another one.
class LentObject final : public Object {
  public:
    LentObject(std::shared_ptr<BridgeTable> table, std::shared_ptr<automation::Object> object);
    ~LentObject() override;

    [[nodiscard]] const std::shared_ptr<automation::Object>& original() const noexcept {
        return object_;
    }

    [[nodiscard]] std::u16string type_name() const override;

    [[nodiscard]] const Counted* class_identity() const noexcept override { return class_.get(); }

    [[nodiscard]] std::optional<MemberId> find_member(std::u16string_view name) const override;

    Value invoke(Context& context, MemberId member, Access access,
                 std::span<Value> arguments) override;

    // Only a call can tell: without one it is error 438.
    [[nodiscard]] bool has_default_member() const override { return true; }

    // A collection is an object with `_NewEnum`, an array of its elements, or with `Count` and
    // `Item`, which counts from 1.
    [[nodiscard]] std::unique_ptr<Enumerator> enumerate(Context& context) override;

  private:
    std::shared_ptr<BridgeTable> table_;
    std::shared_ptr<automation::Object> object_;
    Ref<Counted> class_;
};

}  // namespace vbscript
