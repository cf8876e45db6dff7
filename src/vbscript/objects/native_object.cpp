#include "vbscript/objects/native_object.h"

#include <bit>

#include "vbscript/value/array.h"
#include "vbscript/value/convert.h"
#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

// Names of members are ASCII, so other units need no case.
[[nodiscard]] constexpr char16_t lower_ascii(char16_t unit) noexcept {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

[[nodiscard]] std::uint32_t name_hash(std::u16string_view name) noexcept {
    constexpr std::uint32_t kPrime = 16777619;
    std::uint32_t hash = 2166136261U;
    for (const char16_t unit : name) {
        hash = (hash ^ lower_ascii(unit)) * kPrime;
    }
    return hash ^ (hash >> 15);
}

[[nodiscard]] bool is_same_name(std::u16string_view left, std::u16string_view right) noexcept {
    if (left.size() != right.size()) {
        return false;
    }
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (lower_ascii(left[i]) != lower_ascii(right[i])) {
            return false;
        }
    }
    return true;
}

// What `object.Property(index)` means for a property without arguments: the element of the array
// or the default member of the object that the property gives.
[[nodiscard]] Value apply_to_result(Context& context, const Value& result, Access access,
                                    std::span<Value> arguments) {
    if (result.is(Type::Object) && result.object() != nullptr) {
        const Ref<Object> object(result.object());
        return object->invoke(context, kDefaultMember, access, arguments);
    }
    if (access != Access::Call || !result.is(Type::Array)) {
        throw ScriptError(ErrorNumber::WrongNumberOfArguments);
    }
    std::vector<std::int32_t> indexes;
    indexes.reserve(arguments.size());
    for (const Value& argument : arguments) {
        indexes.push_back(to_long(context, argument));
    }
    return result.array().at(indexes);
}

[[nodiscard]] bool passes_arguments_on(const NativeMember& member, std::size_t count) noexcept {
    return member.is_property && member.accepted == 0 && count > 0;
}

[[nodiscard]] Value call_row(const NativeMember& member, Object& self, Arguments& arguments) {
    if (member.call == nullptr) {
        throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported, member.name);
    }
    if (passes_arguments_on(member, arguments.size())) {
        Arguments none(arguments.context(), {});
        return apply_to_result(arguments.context(), member.call(self, none), Access::Call,
                               arguments.values());
    }
    if (arguments.size() < member.required || arguments.size() > member.accepted) {
        throw ScriptError(ErrorNumber::WrongNumberOfArguments);
    }
    return member.call(self, arguments);
}

// What is written to a property that can only be read goes to the object that it gives.
[[nodiscard]] Value write_to_result(const NativeMember& member, Object& self, Access access,
                                    Arguments& arguments) {
    const std::span<Value> indexes = arguments.values().first(arguments.size() - 1);
    if (member.is_property && member.call != nullptr) {
        Arguments of_read(arguments.context(), indexes);
        const Value result = call_row(member, self, of_read);
        if (result.is(Type::Object) && result.object() != nullptr) {
            const Ref<Object> object(result.object());
            return object->invoke(arguments.context(), kDefaultMember, access,
                                  arguments.values().last(1));
        }
    }
    throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported, member.name);
}

[[nodiscard]] Value write_row(const NativeMember& member, NativeMember::Handler handler,
                              Object& self, Access access, Arguments& arguments) {
    const std::size_t indexes = arguments.size() - 1;
    if (passes_arguments_on(member, indexes)) {
        Arguments none(arguments.context(), {});
        return apply_to_result(arguments.context(), member.call(self, none), access,
                               arguments.values());
    }
    if (handler == nullptr) {
        return write_to_result(member, self, access, arguments);
    }
    if (indexes < member.required || indexes > member.accepted) {
        throw ScriptError(ErrorNumber::WrongNumberOfArguments);
    }
    return handler(self, arguments);
}

}  // namespace

Value& Arguments::at(std::size_t index) const {
    if (!has(index)) {
        throw ScriptError(ErrorNumber::ArgumentNotOptional);
    }
    return values_[index];
}

std::u16string Arguments::text(std::size_t index) const {
    return to_units(context_, at(index));
}

std::u16string Arguments::text_or(std::size_t index, std::u16string_view otherwise) const {
    return has(index) ? text(index) : std::u16string(otherwise);
}

std::int32_t Arguments::number(std::size_t index) const {
    return to_long(context_, at(index));
}

std::int32_t Arguments::number_or(std::size_t index, std::int32_t otherwise) const {
    return has(index) ? number(index) : otherwise;
}

bool Arguments::truth_or(std::size_t index, bool otherwise) const {
    return has(index) ? to_boolean(context_, values_[index]) : otherwise;
}

NativeClass::NativeClass(std::u16string_view name, std::span<const NativeMember> members,
                         std::u16string_view default_member)
    : name_(name), members_(members), slots_(std::bit_ceil(members.size() * 2 + 1)) {
    for (std::size_t row = 0; row < members.size(); ++row) {
        std::size_t slot = name_hash(members[row].name) & (slots_.size() - 1);
        while (slots_[slot] != 0) {
            slot = (slot + 1) & (slots_.size() - 1);
        }
        slots_[slot] = static_cast<std::uint16_t>(row + 1);
    }
    if (!default_member.empty()) {
        default_member_ = find(default_member).value_or(0);
    }
}

std::optional<MemberId> NativeClass::find(std::u16string_view name) const noexcept {
    std::size_t slot = name_hash(name) & (slots_.size() - 1);
    for (; slots_[slot] != 0; slot = (slot + 1) & (slots_.size() - 1)) {
        if (is_same_name(members_[slots_[slot] - 1U].name, name)) {
            return slots_[slot];
        }
    }
    return std::nullopt;
}

const NativeMember* NativeClass::row(MemberId member) const noexcept {
    if (member == kDefaultMember) {
        member = default_member_;
    }
    if (member < 1 || static_cast<std::size_t>(member) > members_.size()) {
        return nullptr;
    }
    return &members_[static_cast<std::size_t>(member) - 1];
}

Value NativeObject::invoke(Context& context, MemberId member, Access access,
                           std::span<Value> values) {
    const NativeMember* row = native_class().row(member);
    if (row == nullptr) {
        throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported);
    }
    Arguments arguments(context, values);
    if (access == Access::Call) {
        return call_row(*row, *this, arguments);
    }
    if (values.empty()) {
        throw ScriptError(ErrorNumber::WrongNumberOfArguments);
    }
    return write_row(*row, access == Access::Let ? row->let : row->set, *this, access, arguments);
}

}  // namespace vbscript
