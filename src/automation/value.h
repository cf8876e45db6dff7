#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "automation/date.h"
#include "automation/text.h"

namespace automation {

class Object;
class Array;

struct Empty {
    friend bool operator==(Empty, Empty) = default;
};

struct Null {
    friend bool operator==(Null, Null) = default;
};

// Ten-thousandths in 64 bits.
struct Currency {
    std::int64_t units = 0;
    friend bool operator==(Currency, Currency) = default;
};

// A value of sub-type Error, such as a missing argument.
struct ErrorValue {
    std::int32_t number = 0;
    friend bool operator==(ErrorValue, ErrorValue) = default;
};

// Stands in the place of an argument that the caller leaves out.
inline constexpr ErrorValue kMissingArgument{.number = -2147352572};

// Sub-types with the numbers that `VarType` reports.
enum class Kind : std::uint8_t {
    Empty = 0,
    Null = 1,
    Integer = 2,
    Long = 3,
    Single = 4,
    Double = 5,
    Currency = 6,
    Date = 7,
    String = 8,
    Object = 9,
    Error = 10,
    Boolean = 11,
    Byte = 17,
    Array = 255,  // `var_type` tells 8192 plus the kind of the elements
};

// One late-bound value. Copying copies a number or shares a text, an object or an array; an
// object may be Nothing (a null pointer). What a value converts to stands in convert.h.
class Value {
  public:
    Value() noexcept = default;

    Value(Empty) noexcept {}

    Value(Null value) noexcept : data_(value) {}

    Value(bool value) noexcept : data_(value) {}

    Value(std::uint8_t value) noexcept : data_(value) {}

    Value(std::int16_t value) noexcept : data_(value) {}

    Value(std::int32_t value) noexcept : data_(value) {}

    Value(float value) noexcept : data_(value) {}

    Value(double value) noexcept : data_(value) {}

    Value(Currency value) noexcept : data_(value) {}

    Value(Date value) noexcept : data_(value) {}

    Value(Text value) noexcept : data_(std::move(value)) {}

    Value(ErrorValue value) noexcept : data_(value) {}

    Value(std::shared_ptr<Object> object) noexcept : data_(std::move(object)) {}

    Value(std::shared_ptr<Array> array) noexcept : data_(std::move(array)) {}

    // Text of code page 1252.
    Value(std::string_view text) : data_(Text::from_code_page(text)) {}

    Value(const std::string& text) : Value(std::string_view(text)) {}

    Value(const char* text) : Value(std::string_view(text)) {}

    template <typename T>
    Value(T*) = delete;  // a pointer is no truth value

    [[nodiscard]] Kind kind() const noexcept;

    [[nodiscard]] bool is_empty() const noexcept { return holds<Empty>(); }

    [[nodiscard]] bool is_null() const noexcept { return holds<Null>(); }

    [[nodiscard]] bool is_missing() const noexcept {
        const auto* error = get_if<ErrorValue>();
        return error != nullptr && *error == kMissingArgument;
    }

    template <typename T>
    [[nodiscard]] bool holds() const noexcept {
        return std::holds_alternative<T>(data_);
    }

    // The content without conversion, nullptr when the value is of another sub-type.
    template <typename T>
    [[nodiscard]] const T* get_if() const noexcept {
        return std::get_if<T>(&data_);
    }

    // Calls `visitor` with the content in its own type.
    template <typename Visitor>
    decltype(auto) visit(Visitor&& visitor) const {
        return std::visit(std::forward<Visitor>(visitor), data_);
    }

    // Same sub-type and same content; objects and arrays by identity.
    friend bool operator==(const Value&, const Value&) = default;

  private:
    std::variant<Empty, Null, bool, std::uint8_t, std::int16_t, std::int32_t, float, double,
                 Currency, Date, Text, ErrorValue, std::shared_ptr<Object>, std::shared_ptr<Array>>
        data_;
};

}  // namespace automation
