#include "app/json.h"

#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/run_time_error.h"

namespace app {
namespace {

using automation::Kind;
using automation::Value;

// By way of the text, which rounds to the digits that the value has: 1.705547, and not the
// neighbour of it that 24 bits can hold.
Json number_of(const std::string& text) {
    const std::optional<double> number = automation::parse_number(text);
    return number ? Json(*number) : Json(text);
}

}  // namespace

std::string one_line(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json json_of(const Value& value) {
    switch (value.kind()) {
        case Kind::Empty:
        case Kind::Null:
            return nullptr;
        case Kind::Boolean:
            return automation::to_boolean(value);
        case Kind::Byte:
        case Kind::Integer:
        case Kind::Long:
            return automation::to_int32(value);
        case Kind::Single:
        case Kind::Double:
        case Kind::Currency:
            return number_of(automation::to_text(value));
        case Kind::Date:
        case Kind::String:
            return automation::code_page_to_utf8(automation::to_text(value));
        case Kind::Object:
        case Kind::Error:
        case Kind::Array:
            break;
    }
    return automation::code_page_to_utf8(automation::type_name(value));
}

Value value_of(const Json& json) {
    if (json.is_null()) {
        return automation::kMissingArgument;
    }
    if (json.is_boolean()) {
        return json.get<bool>();
    }
    if (json.is_number()) {
        const auto number = json.get<double>();
        using Long = std::numeric_limits<std::int32_t>;
        const bool is_long =
            json.is_number_integer() && number >= Long::min() && number <= Long::max();
        return is_long ? Value(json.get<std::int32_t>()) : Value(number);
    }
    if (json.is_string()) {
        return automation::utf8_to_code_page(json.get<std::string>());
    }
    throw automation::RunTimeError(automation::ErrorNumber::TypeMismatch);
}

}  // namespace app
