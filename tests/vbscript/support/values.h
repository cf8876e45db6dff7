#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "vbscript/value/array.h"
#include "vbscript/value/context.h"
#include "vbscript/value/convert.h"
#include "vbscript/value/date_parts.h"
#include "vbscript/value/object.h"
#include "vbscript/value/script_error.h"

// Short words for the values that tests write down, and the texts by which they compare results.
namespace vbscript {

[[nodiscard]] inline Value integer(int number) {
    return Value(static_cast<std::int16_t>(number));
}

[[nodiscard]] inline Value long_number(std::int32_t number) {
    return Value(number);
}

[[nodiscard]] inline Value missing() {
    return Value(kMissing);
}

[[nodiscard]] inline Value nothing() {
    return Value(Ref<Object>());
}

[[nodiscard]] inline Value moment(int year, int month, int day, int hour = 0, int minute = 0,
                                  int second = 0) {
    return Value(date_of(DateParts{year, month, day, hour, minute, second}).value());
}

// As a reader would note a value down: "5", "abc", "Null", "Empty", "[1, 2]", "Object".
[[nodiscard]] inline std::string noted(Context& context, const Value& value) {
    switch (value.type()) {
        case Type::Empty:
            return "Empty";
        case Type::Null:
            return "Null";
        case Type::Object:
            return value.object() == nullptr ? "Nothing" : to_utf8(value.object()->type_name());
        case Type::Array: {
            std::string list = "[";
            for (const Value& element : value.array().elements()) {
                if (list.size() > 1) list += ", ";
                list += noted(context, element);
            }
            return list + "]";
        }
        default:
            return to_utf8(to_units(context, value));
    }
}

// What `body` gives, or "error 13".
[[nodiscard]] inline std::string noted_result(Context& context,
                                              const std::function<Value()>& body) {
    try {
        return noted(context, body());
    } catch (const ScriptError& error) {
        return "error " + std::to_string(error.number);
    }
}

// Calls a member by name as a script does.
[[nodiscard]] inline Value call(Context& context, const Ref<Object>& object,
                                std::u16string_view name, std::vector<Value> arguments = {},
                                Access access = Access::Call) {
    return object->call(context, name, access, arguments);
}

}  // namespace vbscript
