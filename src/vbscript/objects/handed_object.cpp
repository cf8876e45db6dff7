#include "vbscript/objects/handed_object.h"

#include <limits>
#include <vector>

#include "automation/array.h"
#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "vbscript/objects/automation_bridge.h"
#include "vbscript/value/array.h"
#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

constexpr automation::MemberId kElements = std::numeric_limits<automation::MemberId>::min();
constexpr std::string_view kElementsName = "_NewEnum";

// Whether nothing was assigned to a value since it was copied.
[[nodiscard]] bool is_untouched(const Value& before, const Value& now) noexcept {
    if (before.type() != now.type()) {
        return false;
    }
    switch (now.type()) {
        case Type::Empty:
        case Type::Null:
            return true;
        case Type::Single:
        case Type::Double:
        case Type::Date:
            return before.real() == now.real();
        case Type::Currency:
            return before.currency() == now.currency();
        case Type::String:
            return &before.text() == &now.text() || before.units() == now.units();
        case Type::Object:
            return before.object() == now.object();
        case Type::Array:
            return &before.array() == &now.array();
        default:
            return before.number() == now.number();
    }
}

}  // namespace

HandedObject::~HandedObject() {
    table_->forget_handed(*key_);
}

void HandedObject::let_go() noexcept {
    object_ = nullptr;
}

std::string HandedObject::type_name() const {
    return object_ ? automation::utf16_to_code_page(object_->type_name()) : "Object";
}

std::optional<automation::MemberId> HandedObject::find_member(std::string_view name) const {
    if (!object_) {
        return std::nullopt;
    }
    const auto member = object_->find_member(automation::code_page_to_utf16(name));
    if (!member && automation::equals_ignoring_case(name, kElementsName)) {
        return kElements;
    }
    return member;
}

automation::Value HandedObject::invoke(automation::MemberId member, automation::Access access,
                                       std::span<automation::Value> arguments) {
    Context* context = table_->context();
    if (!object_ || context == nullptr) {
        constexpr std::int32_t kServerHasGone = 462;
        throw to_run_time_error({kServerHasGone, std::u16string(error_text(kServerHasGone)), {}});
    }
    const Ref<vbscript::Object> alive = object_;
    try {
        if (member == kElements && access == automation::Access::Call) {
            return elements();
        }
        std::vector<Value> passed;
        passed.reserve(arguments.size());
        for (const automation::Value& argument : arguments) {
            passed.push_back(table_->from_automation(argument));
        }
        const std::vector<Value> given = passed;
        const Value result = alive->invoke(*context, member, static_cast<Access>(access), passed);
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            if (!is_untouched(given[i], passed[i])) {
                arguments[i] = table_->to_automation(passed[i]);
            }
        }
        return table_->to_automation(result);
    } catch (const ScriptError& error) {
        throw to_run_time_error(error);
    }
}

automation::Value HandedObject::elements() const {
    const auto walk = object_->enumerate(*table_->context());
    if (!walk) {
        throw ScriptError(ErrorNumber::ObjectNotACollection);
    }
    std::vector<automation::Value> list;
    while (auto element = walk->next()) {
        list.push_back(table_->to_automation(*element));
    }
    return std::make_shared<automation::Array>(std::move(list));
}

}  // namespace vbscript
