#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "vbscript/machine/procedure.h"

namespace vbscript {

// One member of a script's class: a field, or up to three procedures that share a name.
struct ClassMember {
    static constexpr std::int32_t kNoField = -1;

    std::u16string name;  // in small letters
    std::int32_t field = kNoField;
    bool is_public_field = false;
    Ref<Procedure> get;  // Property Get, or a Function or Sub
    Ref<Procedure> let;
    Ref<Procedure> set;

    [[nodiscard]] bool is_field() const noexcept { return field != kNoField; }
};

[[nodiscard]] bool is_public(const ast::Procedure& procedure) noexcept;

// A class that a script wrote. Lives as long as the engine and its own objects; the members never
// move.
class ClassInfo final : public Counted {
  public:
    ClassInfo(const ast::Class& tree, std::shared_ptr<const Program> program, Module& module,
              NameTable& names);

    [[nodiscard]] const std::u16string& name() const noexcept { return name_; }

    [[nodiscard]] const std::vector<ClassMember>& members() const noexcept { return members_; }

    // Private ones as well. Null when there is none.
    [[nodiscard]] const ClassMember* find(std::u16string_view folded) const noexcept;

    // Whether code outside of the class may use the member at all.
    [[nodiscard]] static bool is_visible(const ClassMember& member) noexcept;

    // Null without one.
    [[nodiscard]] const ClassMember* default_member() const noexcept { return default_member_; }

    [[nodiscard]] Procedure* initialize() const noexcept { return initialize_; }

    [[nodiscard]] Procedure* terminate() const noexcept { return terminate_; }

    [[nodiscard]] std::span<const ast::Field> fields() const noexcept { return tree_.fields; }

    // Ends the code of all its procedures.
    void release_code() noexcept;

  private:
    void add_procedure(const ast::Procedure& tree, Module& module, NameTable& names);
    ClassMember& member(std::u16string_view folded);

    const ast::Class& tree_;
    std::shared_ptr<const Program> program_;
    std::u16string name_;
    std::vector<ClassMember> members_;
    std::unordered_map<std::u16string_view, std::size_t> index_;  // views of the tree's names
    const ClassMember* default_member_ = nullptr;
    Procedure* initialize_ = nullptr;
    Procedure* terminate_ = nullptr;
};

}  // namespace vbscript
