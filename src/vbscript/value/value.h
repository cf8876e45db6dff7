#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "vbscript/value/counted.h"
#include "vbscript/value/string.h"

namespace vbscript {

class Array;
class Object;

// Sub-types of a value. Those from String on hold a counted reference; the order is used for that.
enum class Type : std::uint8_t {
    Empty,
    Null,
    Boolean,
    Byte,
    Integer,
    Long,
    Single,
    Double,
    Currency,
    Date,
    Error,  // such as an argument that is left out
    String,
    Object,  // may be Nothing
    Array,
};

// Ten-thousandths in 64 bits.
struct Currency {
    std::int64_t units = 0;
    friend bool operator==(Currency, Currency) = default;
};

// Days since 30 December 1899; the fraction is the time of day, also before that day.
struct Date {
    double days = 0;
    friend bool operator==(Date, Date) = default;
};

// Number of a value of sub-type Error.
struct ErrorCode {
    std::int32_t number = 0;
    friend bool operator==(ErrorCode, ErrorCode) = default;
};

// Stands in the place of an argument that the caller leaves out.
inline constexpr ErrorCode kMissing{.number = -2147352572};

struct NullTag {};

inline constexpr NullTag kNull{};

// One value of the language, 16 bytes. Copying copies a number, or shares a text or an object; an
// array is shared until one of its owners writes to it (see `Array`). Conversions stand in
// convert.h, operators in operators.h.
class Value {
  public:
    Value() noexcept { content_.whole = 0; }

    Value(NullTag) noexcept : type_(Type::Null) { content_.whole = 0; }

    explicit Value(bool value) noexcept : type_(Type::Boolean) { content_.whole = value ? -1 : 0; }

    explicit Value(std::uint8_t value) noexcept : type_(Type::Byte) { content_.whole = value; }

    explicit Value(std::int16_t value) noexcept : type_(Type::Integer) { content_.whole = value; }

    explicit Value(std::int32_t value) noexcept : type_(Type::Long) { content_.whole = value; }

    explicit Value(float value) noexcept : type_(Type::Single) { content_.real = double{value}; }

    explicit Value(double value) noexcept : type_(Type::Double) { content_.real = value; }

    explicit Value(Currency value) noexcept : type_(Type::Currency) {
        content_.whole = value.units;
    }

    explicit Value(Date value) noexcept : type_(Type::Date) { content_.real = value.days; }

    explicit Value(ErrorCode value) noexcept : type_(Type::Error) { content_.whole = value.number; }

    explicit Value(std::u16string_view text) : Value(make<String>(text)) {}

    explicit Value(std::u16string&& text) : Value(make<String>(std::move(text))) {}

    explicit Value(const std::u16string& text) : Value(std::u16string_view(text)) {}

    explicit Value(const char16_t* text) : Value(std::u16string_view(text)) {}

    // Requires: a text.
    explicit Value(Ref<String> text) noexcept : type_(Type::String) {
        content_.shared = text.detach();
    }

    explicit Value(Ref<Object> object) noexcept;  // none is Nothing; defined in object.h
    explicit Value(Ref<Array> array) noexcept;    // requires an array; defined in array.h

    template <typename T>
    Value(T*) = delete;  // a pointer is no truth value

    Value(const Value& other) noexcept : type_(other.type_), content_(other.content_) {
        if (is_counted() && content_.shared != nullptr) {
            content_.shared->retain();
        }
    }

    Value(Value&& other) noexcept : type_(other.type_), content_(other.content_) {
        other.type_ = Type::Empty;
    }

    Value& operator=(const Value& other) noexcept {
        Value copy(other);
        swap(copy);
        return *this;
    }

    Value& operator=(Value&& other) noexcept {
        Value taken(std::move(other));
        swap(taken);
        return *this;
    }

    ~Value() {
        if (is_counted()) {
            release();
        }
    }

    void swap(Value& other) noexcept {
        std::swap(type_, other.type_);
        std::swap(content_, other.content_);
    }

    [[nodiscard]] Type type() const noexcept { return type_; }

    [[nodiscard]] bool is(Type type) const noexcept { return type_ == type; }

    [[nodiscard]] bool is_missing() const noexcept {
        return type_ == Type::Error && content_.whole == kMissing.number;
    }

    // The content without conversion. Each requires its sub-types.
    // Boolean (-1 or 0), Byte, Integer, Long, Error:
    [[nodiscard]] std::int32_t number() const noexcept {
        return static_cast<std::int32_t>(content_.whole);
    }

    // Single, Double, Date:
    [[nodiscard]] double real() const noexcept { return content_.real; }

    [[nodiscard]] Currency currency() const noexcept { return {.units = content_.whole}; }

    [[nodiscard]] bool boolean() const noexcept { return content_.whole != 0; }

    [[nodiscard]] String& text() const noexcept { return static_cast<String&>(*content_.shared); }

    [[nodiscard]] std::u16string_view units() const noexcept { return text().units(); }

    [[nodiscard]] Object* object() const noexcept;  // null: Nothing; defined in object.h
    [[nodiscard]] Array& array() const noexcept;    // defined in array.h

    // The machine keeps two more kinds of content in its registers: a variable that is passed by
    // reference, and an array that is locked while one of its elements is. No function of the
    // library and no object ever sees them; they own nothing, and the machine ends them itself.
    static constexpr Type kReference{14};
    static constexpr Type kLockedArray{15};

    [[nodiscard]] bool is_reference() const noexcept { return type_ == kReference; }

    // Whether the content is more than a number: a text, an object, an array or one of the two.
    [[nodiscard]] bool is_heavy() const noexcept { return type_ >= Type::String; }

    [[nodiscard]] Value& variable() const noexcept { return *content_.variable; }

    void set_reference(Value& variable) noexcept {
        if (is_counted()) {
            release();
        }
        type_ = kReference;
        content_.variable = &variable;
    }

    void set_locked_array(Array& array) noexcept;  // defined in array.h

    // Copies a number in place. Requires: neither value is heavy.
    void copy_light(const Value& other) noexcept {
        type_ = other.type_;
        content_ = other.content_;
    }

    // A number in place of a number. Requires: the value is not heavy.
    void set_light(Type type, std::int32_t number) noexcept {
        type_ = type;
        content_.whole = number;
    }

    void set_light(Type type, double real) noexcept {
        type_ = type;
        content_.real = real;
    }

    // Numbers in place, without an allocation.
    void set_number(Type type, std::int32_t number) noexcept {
        if (is_counted()) {
            release();
        }
        type_ = type;
        content_.whole = number;
    }

    void set_real(Type type, double real) noexcept {
        if (is_counted()) {
            release();
        }
        type_ = type;
        content_.real = real;
    }

  private:
    [[nodiscard]] bool is_counted() const noexcept {
        return static_cast<std::uint8_t>(static_cast<std::uint8_t>(type_) -
                                         static_cast<std::uint8_t>(Type::String)) <=
               static_cast<std::uint8_t>(Type::Array) - static_cast<std::uint8_t>(Type::String);
    }

    void release() noexcept {
        if (content_.shared != nullptr) {
            content_.shared->release();
        }
    }

    Type type_ = Type::Empty;

    union Content {
        std::int64_t whole;
        double real;
        Counted* shared;
        Value* variable;
    } content_;
};

static_assert(sizeof(Value) == 16);

}  // namespace vbscript
