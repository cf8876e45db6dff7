#pragma once

#include <memory>

#include "automation/object.h"
#include "vbscript/objects/bridge_table.h"
#include "vbscript/value/object.h"

namespace vbscript {

// An object of the engine as the program sees it. Shared by the program's values that hold it;
// keeps the engine's object alive until the engine goes. Errors leave as RunTimeError. A collection
// has a member `_NewEnum`: an array of its elements.
class HandedObject final : public automation::Object {
  public:
    HandedObject(std::shared_ptr<BridgeTable> table, Ref<vbscript::Object> object) noexcept
        : table_(std::move(table)), key_(object.get()), object_(std::move(object)) {}

    ~HandedObject() override;

    // None once the engine has gone.
    [[nodiscard]] const Ref<vbscript::Object>& original() const noexcept { return object_; }

    [[nodiscard]] bool is_of(const BridgeTable& table) const noexcept {
        return table_.get() == &table;
    }

    void let_go() noexcept;

    [[nodiscard]] std::string type_name() const override;
    [[nodiscard]] std::optional<automation::MemberId> find_member(
        std::string_view name) const override;

    // Throws beside what the member throws: RunTimeError 462 once the engine has gone.
    automation::Value invoke(automation::MemberId member, automation::Access access,
                             std::span<automation::Value> arguments) override;

  private:
    [[nodiscard]] automation::Value elements() const;

    std::shared_ptr<BridgeTable> table_;
    const vbscript::Object* key_;
    Ref<vbscript::Object> object_;
};

}  // namespace vbscript
