#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

#include "vbscript/machine/class_info.h"
#include "vbscript/machine/procedure.h"

namespace vbscript {

// What a name means in a module.
struct ModuleVariable {
    static constexpr std::uint32_t kNone = ~std::uint32_t{0};

    std::uint32_t slot = kNone;  // in the arena

    // Without a declaration a variable is there from its first use outside of procedures on; until
    // then procedures that use the name have a variable of their own.
    bool is_there = true;
};

struct ModuleConstant {
    Value value;
};

using ModuleName = std::variant<ModuleVariable, ModuleConstant, Ref<Procedure>, Ref<ClassInfo>>;

// A name space: the variables, constants, procedures and classes of all code that was added to it.
// Owned by the engine, as long as it lives.
class Module {
  public:
    explicit Module(std::u16string_view name) : name_(name) {}

    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    [[nodiscard]] const std::u16string& name() const noexcept { return name_; }

    [[nodiscard]] const ModuleName* find(NameId name) const noexcept {
        const auto found = names_.find(name);
        return found == names_.end() ? nullptr : &found->second;
    }

    // In the order in which they were defined first.
    [[nodiscard]] const std::vector<NameId>& order() const noexcept { return order_; }

  private:
    friend class Symbols;

    std::u16string name_;
    std::unordered_map<NameId, ModuleName> names_;
    std::vector<NameId> order_;
};

}  // namespace vbscript
