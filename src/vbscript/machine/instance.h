#pragma once

#include <deque>
#include <vector>

#include "vbscript/machine/class_info.h"
#include "vbscript/value/object.h"

namespace vbscript {

class Machine;

// How objects that scripts or the program may hold for longer than the engine lives find its
// machine.
struct MachineLink final : Counted {
    explicit MachineLink(Machine& owner) noexcept : machine(&owner) {}

    Machine* machine;  // null once the engine has ended
};

// An object of a class that a script wrote. The machine knows all that are alive.
class Instance final : public Object {
  public:
    Instance(Ref<ClassInfo> info, Ref<MachineLink> link);

    [[nodiscard]] const ClassInfo& info() const noexcept { return *info_; }

    [[nodiscard]] Value& field(std::int32_t number) noexcept {
        return fields_[static_cast<std::size_t>(number)];
    }

    [[nodiscard]] std::u16string type_name() const override { return info_->name(); }

    [[nodiscard]] const Counted* class_identity() const noexcept override { return info_.get(); }

    [[nodiscard]] std::optional<MemberId> find_member(std::u16string_view name) const override;

    Value invoke(Context& context, MemberId member, Access access,
                 std::span<Value> arguments) override;

    [[nodiscard]] bool has_default_member() const override {
        return info_->default_member() != nullptr;
    }

    // Ends the values of the fields.
    void clear_fields() noexcept;

  private:
    friend class InstanceList;

    void last_reference_gone() noexcept override;
    [[nodiscard]] Value field_access(Context& context, Value& field, Access access,
                                     std::span<Value> arguments);

    Ref<ClassInfo> info_;
    Ref<MachineLink> link_;
    std::vector<Value> fields_;
    Instance* previous_ = nullptr;
    Instance* next_ = nullptr;
    bool has_terminated_ = false;
};

// The instances that are alive, and how they end. Owned by the machine.
class InstanceList {
  public:
    explicit InstanceList(Machine& machine) noexcept : machine_(machine) {}

    void add(Instance& instance) noexcept;

    // The last reference to the instance has gone: `Class_Terminate` runs, and it ends, unless that
    // has made a new reference to it. A chain of objects ends one after the other, not one inside
    // of the other.
    void bury(Instance& instance) noexcept;

    // Runs `Class_Terminate` of all that are left, then ends their fields. Nothing is left behind
    // but what the program holds.
    void end_all() noexcept;

  private:
    void remove(Instance& instance) noexcept;
    void terminate(Instance& instance) noexcept;
    void end(Instance& instance) noexcept;

    Machine& machine_;
    Instance* first_ = nullptr;
    std::deque<Instance*> dying_;
    bool is_burying_ = false;
    bool is_over_ = false;
};

}  // namespace vbscript
