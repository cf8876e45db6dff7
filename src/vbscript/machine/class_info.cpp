#include "vbscript/machine/class_info.h"

#include <array>

namespace vbscript {

namespace {

Ref<Procedure> make_procedure(const ast::Procedure& tree, std::shared_ptr<const Program> program,
                              Module& module, ClassInfo& owner, NameTable& names) {
    auto procedure = make<Procedure>();
    procedure->name = names.intern_folded(tree.name.folded);
    procedure->tree = &tree;
    procedure->program = std::move(program);
    procedure->module = &module;
    procedure->owner = &owner;
    return procedure;
}

}  // namespace

bool is_public(const ast::Procedure& procedure) noexcept {
    return procedure.visibility != ast::Visibility::Private;
}

ClassInfo::ClassInfo(const ast::Class& tree, std::shared_ptr<const Program> program, Module& module,
                     NameTable& names)
    : tree_(tree), program_(std::move(program)), name_(tree.name.spelled) {
    members_.reserve(tree.fields.size() + tree.procedures.size());
    for (std::size_t place = 0; place < tree.fields.size(); ++place) {
        const ast::Field& field = tree.fields[place];
        ClassMember& row = member(field.variable.name.folded);
        row.field = static_cast<std::int32_t>(place);
        row.is_public_field = field.visibility != ast::Visibility::Private;
    }
    for (const ast::Procedure* procedure : tree.procedures) {
        add_procedure(*procedure, module, names);
    }
}

ClassMember& ClassInfo::member(std::u16string_view folded) {
    const auto [place, is_new] = index_.try_emplace(folded, members_.size());
    if (is_new) {
        members_.emplace_back().name = folded;
    }
    return members_[place->second];
}

void ClassInfo::add_procedure(const ast::Procedure& tree, Module& module, NameTable& names) {
    ClassMember& row = member(tree.name.folded);
    Ref<Procedure> procedure = make_procedure(tree, program_, module, *this, names);
    if (tree.kind == ast::ProcedureKind::Sub && row.name == u"class_initialize") {
        initialize_ = procedure.get();
    }
    if (tree.kind == ast::ProcedureKind::Sub && row.name == u"class_terminate") {
        terminate_ = procedure.get();
    }
    if (tree.is_default) {
        default_member_ = &row;
    }
    switch (tree.kind) {
        case ast::ProcedureKind::PropertyLet:
            row.let = std::move(procedure);
            break;
        case ast::ProcedureKind::PropertySet:
            row.set = std::move(procedure);
            break;
        default:
            row.get = std::move(procedure);
            break;
    }
}

const ClassMember* ClassInfo::find(std::u16string_view folded) const noexcept {
    const auto found = index_.find(folded);
    return found == index_.end() ? nullptr : &members_[found->second];
}

bool ClassInfo::is_visible(const ClassMember& member) noexcept {
    if (member.is_field()) {
        return member.is_public_field;
    }
    for (const auto* procedure : {&member.get, &member.let, &member.set}) {
        if (*procedure && is_public(*(*procedure)->tree)) {
            return true;
        }
    }
    return false;
}

void ClassInfo::release_code() noexcept {
    for (const ClassMember& row : members_) {
        for (const auto* procedure : {&row.get, &row.let, &row.set}) {
            if (*procedure) {
                (*procedure)->code = nullptr;
            }
        }
    }
}

}  // namespace vbscript
