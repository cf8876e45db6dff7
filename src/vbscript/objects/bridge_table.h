#pragma once

#include <memory>
#include <span>
#include <unordered_map>

#include "automation/members.h"
#include "automation/object.h"
#include "automation/value.h"
#include "vbscript/value/context.h"

namespace vbscript {

class HandedObject;
class LentObject;

// What the wrappers of one bridge share: who is wrapped already, and the engine's context while the
// engine lives. Owned by the bridge and by every wrapper. It holds no object by itself.
class BridgeTable : public std::enable_shared_from_this<BridgeTable> {
  public:
    explicit BridgeTable(Context& context) noexcept : context_(&context) {}

    // Null once the engine has gone.
    [[nodiscard]] Context* context() const noexcept { return context_; }

    // The engine goes: handed objects let go of what they hold.
    void close();

    [[nodiscard]] automation::Value to_automation(const Value& value, int depth = 0);
    [[nodiscard]] Value from_automation(const automation::Value& value, int depth = 0);
    [[nodiscard]] std::shared_ptr<automation::Object> hand_out(const Ref<Object>& object);
    [[nodiscard]] Ref<Object> lend(const std::shared_ptr<automation::Object>& object);

    // Objects with one table of members are of one class.
    [[nodiscard]] Ref<Counted> class_of(const automation::Object& object);

    // For the wrappers' ends.
    void forget_lent(const automation::Object& object) noexcept;
    void forget_handed(const Object& object) noexcept;

  private:
    [[nodiscard]] std::shared_ptr<automation::Array> to_automation(const Array& array, int depth);
    [[nodiscard]] Ref<Array> from_automation(const automation::Array& array, int depth);

    Context* context_;
    std::unordered_map<const automation::Object*, LentObject*> lent_;
    std::unordered_map<const Object*, std::weak_ptr<HandedObject>> handed_;
    std::unordered_map<const automation::Member*, Ref<Counted>> classes_;
};

}  // namespace vbscript
