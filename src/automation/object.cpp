#include "automation/object.h"

#include <utility>

#include "automation/run_time_error.h"

namespace automation {
namespace {

MemberId required_member(const Object& object, std::string_view name) {
    const auto member = object.find_member(name);
    if (!member) {
        throw RunTimeError(ErrorNumber::PropertyOrMethodNotSupported,
                           standard_description(ErrorNumber::PropertyOrMethodNotSupported) + ": '" +
                               std::string(name) + "'");
    }
    return *member;
}

}  // namespace

Value Object::call(std::string_view name, std::span<Value> arguments) {
    return invoke(required_member(*this, name), Access::Call, arguments);
}

void Object::let(std::string_view name, Value value) {
    invoke(required_member(*this, name), Access::Let, std::span(&value, 1));
}

}  // namespace automation
