#include "vbscript/machine/error_object.h"

#include <algorithm>
#include <array>

#include "vbscript/value/convert.h"

namespace vbscript {

namespace {

enum Member : MemberId {
    kNumber = kDefaultMember,
    kDescription,
    kSource,
    kHelpFile,
    kHelpContext,
    kRaise,
    kClear,
};

// By Member.
constexpr auto kNames = std::to_array<std::u16string_view>(
    {u"Number", u"Description", u"Source", u"HelpFile", u"HelpContext", u"Raise", u"Clear"});

constexpr std::size_t kRaiseArguments = 5;
constexpr std::int32_t kHighestNumber = 65535;
constexpr std::int32_t kUnknown = -1;  // an error without a text of its own

bool is_given(std::span<const Value> arguments, std::size_t place) noexcept {
    return place < arguments.size() && !arguments[place].is_missing();
}

}  // namespace

std::optional<MemberId> ErrorObject::find_member(std::u16string_view name) const {
    const auto found = std::ranges::find_if(
        kNames, [name](std::u16string_view known) { return equals_ignoring_case(known, name); });
    if (found == kNames.end()) {
        return std::nullopt;
    }
    return static_cast<MemberId>(found - kNames.begin());
}

Value ErrorObject::invoke(Context& context, MemberId member, Access access,
                          std::span<Value> arguments) {
    if (access == Access::Call && member == kRaise) {
        raise(context, arguments);
    }
    const bool is_write = access != Access::Call;
    if (is_write && (member == kRaise || member == kClear)) {
        throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported);
    }
    if (arguments.size() != (is_write ? 1U : 0U)) {
        throw ScriptError(ErrorNumber::WrongNumberOfArguments);
    }
    if (is_write) {
        write(context, member, arguments.front());
        return {};
    }
    if (member != kClear) {
        return read(member);
    }
    clear();
    return {};
}

Value ErrorObject::read(MemberId member) const {
    switch (member) {
        case kNumber:
            return Value(error_.number);
        case kDescription:
            return Value(error_.description);
        case kSource:
            return Value(error_.source);
        case kHelpFile:
            return Value(error_.help_file);
        default:
            return Value(error_.help_context);
    }
}

void ErrorObject::write(Context& context, MemberId member, const Value& value) {
    switch (member) {
        case kNumber:
            error_.number = to_long(context, value);
            break;
        case kDescription:
            error_.description = to_units(context, value);
            break;
        case kSource:
            error_.source = to_units(context, value);
            break;
        case kHelpFile:
            error_.help_file = to_units(context, value);
            break;
        default:
            error_.help_context = to_long(context, value);
            break;
    }
}

void ErrorObject::raise(Context& context, std::span<const Value> arguments) {
    if (arguments.empty()) {
        throw ScriptError(ErrorNumber::ArgumentNotOptional);
    }
    if (arguments.size() > kRaiseArguments) {
        throw ScriptError(ErrorNumber::WrongNumberOfArguments);
    }
    const std::int32_t number = to_long(context, arguments[0]);
    if (number == 0 || number > kHighestNumber) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    ScriptError error(ErrorNumber{number});
    // What is left out stays as `Err` has it, unless that is the text of another error.
    const bool has_text = error.description != error_text(kUnknown);
    const bool keeps = !error_.description.empty() && (error_.number == number || !has_text);
    if (keeps) {
        error.description = error_.description;
    }
    if (keeps && !error_.source.empty()) {
        error.source = error_.source;
    }
    if (is_given(arguments, 1)) {
        error.source = to_units(context, arguments[1]);
    }
    if (is_given(arguments, 2)) {
        error.description = to_units(context, arguments[2]);
    }
    if (is_given(arguments, 3)) {
        error.help_file = to_units(context, arguments[3]);
    }
    if (is_given(arguments, 4)) {
        error.help_context = to_long(context, arguments[4]);
    }
    throw error;
}

}  // namespace vbscript
