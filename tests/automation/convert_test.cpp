#include "automation/convert.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "automation/array.h"
#include "automation/object.h"
#include "automation/thrown_error.h"

namespace automation {
namespace {

// An object whose default member is a value.
class Holder : public Object {
  public:
    explicit Holder(Value value) : value_(std::move(value)) {}

    [[nodiscard]] std::string type_name() const override { return "Holder"; }

    [[nodiscard]] std::optional<MemberId> find_member(std::string_view) const override {
        return std::nullopt;
    }

    Value invoke(MemberId, Access, std::span<Value>) override { return value_; }

  private:
    Value value_;
};

Value held(Value value) {
    return {std::shared_ptr<Object>(std::make_shared<Holder>(value))};
}

Value list() {
    return {std::make_shared<Array>(std::vector<Value>(2))};
}

TEST(Convert, FractionsRoundToEven) {
    struct Case {
        double number;
        std::int16_t rounded;
    };

    constexpr Case kCases[] = {{0.5, 0},   {1.5, 2},   {2.5, 2},          {-0.5, 0},
                               {-1.5, -2}, {-2.5, -2}, {2.500001, 3},     {32767.49, 32767},
                               {2.4, 2},   {2.6, 3},   {-32768.5, -32768}};
    for (const Case& row : kCases) {
        EXPECT_EQ(to_int16(Value(row.number)), row.rounded) << row.number;
        EXPECT_EQ(to_int16(Value(text_of(row.number))), row.rounded) << row.number;
    }
}

TEST(Convert, LimitsOfWholeNumbers) {
    EXPECT_EQ(to_byte(Value(255.5 - 0.01)), 255);
    EXPECT_EQ(to_int32(Value(2147483647.4)), 2147483647);
    EXPECT_EQ(to_int32(Value("-2147483648.5")), std::numeric_limits<std::int32_t>::min());
    const std::function<double()> overflows[] = {
        [] { return to_byte(Value(255.5)); },
        [] { return to_byte(Value(-1.0)); },
        [] { return to_int16(Value(32767.5)); },
        [] { return to_int16(Value(std::int32_t{-32769})); },
        [] { return to_int32(Value(2147483647.5)); },
        [] { return to_int32(Value(std::numeric_limits<double>::quiet_NaN())); },
        [] { return to_single(Value(1e39)); },
        [] { return to_double(Value("1E999")); },
        [] { return static_cast<double>(to_currency(Value(1e15)).units); },
        [] { return to_date(Value(1e7)).days; },
        [] { return multiply_int16(200, 200); },
        [] { return add_int16(-32768, -1); },
        [] { return multiply_int32(65536, 32768); },
        [] { return add_int32(2147483647, 1); },
    };
    std::size_t row = 0;
    for (const auto& overflow : overflows) {
        EXPECT_EQ(thrown_error(overflow), 6) << "row " << row;
        ++row;
    }
    EXPECT_EQ(multiply_int16(-128, 256), -32768);
    EXPECT_EQ(add_int32(2147483646, 1), 2147483647);
}

TEST(Convert, EveryKindOfValue) {
    struct Case {
        Value value;
        double number;
        bool truth;
        std::string text;
    };

    const Case cases[] = {
        {Value(), 0, false, ""},
        {Value(true), -1, true, "True"},
        {Value(false), 0, false, "False"},
        {Value(std::uint8_t{200}), 200, true, "200"},
        {Value(std::int16_t{-7}), -7, true, "-7"},
        {Value(std::int32_t{70000}), 70000, true, "70000"},
        {Value(0.5F), 0.5, true, "0.5"},
        {Value(-0.25), -0.25, true, "-0.25"},
        {Value(Currency{12500}), 1.25, true, "1.25"},
        {Value(Date{1.5}), 1.5, true, "12/31/1899 12:00:00 PM"},
        {Value(" 12 "), 12, true, " 12 "},
        {held("3"), 3, true, "3"},
        {held(held(Value(true))), -1, true, "True"},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(to_double(row.value), row.number) << row.text;
        EXPECT_EQ(to_boolean(row.value), row.truth) << row.text;
        EXPECT_EQ(to_text(row.value), row.text);
        EXPECT_EQ(to_wide_text(row.value).to_code_page(), row.text);
    }
    EXPECT_EQ(to_byte(Value(true)), 255);
    EXPECT_EQ(to_currency(Value("0.00025")).units, 2);
    EXPECT_EQ(to_date(Value("11/24/2026")), Date{46350});
    EXPECT_EQ(to_date(Value("46350")), Date{46350});
}

TEST(Convert, ValuesWithoutSuchAForm) {
    struct Case {
        Value value;
        std::int32_t error;
    };

    Value itself = held(Value(std::shared_ptr<Object>()));
    const Case cases[] = {
        {Value(Null{}), 94},
        {Value(std::shared_ptr<Object>()), 91},
        {itself, 91},
        {list(), 13},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(thrown_error([&] { return to_text(row.value); }), row.error);
        EXPECT_EQ(thrown_error([&] { return to_boolean(row.value); }), row.error);
        EXPECT_EQ(thrown_error([&] { return to_int32(row.value); }), row.error);
        EXPECT_EQ(thrown_error([&] { return to_date(row.value).days; }), row.error);
    }
    for (const char* text : {"", "abc", "1x"}) {
        EXPECT_EQ(thrown_error([&] { return to_int16(Value(text)); }), 13) << text;
        EXPECT_EQ(thrown_error([&] { return to_boolean(Value(text)); }), 13) << text;
        EXPECT_EQ(thrown_error([&] { return to_date(Value(text)).days; }), 13) << text;
    }
    EXPECT_EQ(thrown_error([] { return to_object(Value("abc")) == nullptr; }), 424);
    EXPECT_EQ(to_object(Value(std::shared_ptr<Object>())), nullptr);
}

TEST(Convert, NamesAndNumbersOfSubTypes) {
    struct Case {
        Value value;
        std::string_view name;
        std::int16_t number;
    };

    const Case cases[] = {
        {Value(), "Empty", 0},
        {Value(Null{}), "Null", 1},
        {Value(std::int16_t{1}), "Integer", 2},
        {Value(std::int32_t{1}), "Long", 3},
        {Value(1.0F), "Single", 4},
        {Value(1.0), "Double", 5},
        {Value(Currency{}), "Currency", 6},
        {Value(Date{}), "Date", 7},
        {Value("a"), "String", 8},
        {held("a"), "Holder", 9},
        {Value(std::shared_ptr<Object>()), "Nothing", 9},
        {Value(kMissingArgument), "Error", 10},
        {Value(true), "Boolean", 11},
        {Value(std::uint8_t{1}), "Byte", 17},
        {list(), "Variant()", 8204},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(type_name(row.value), row.name);
        EXPECT_EQ(var_type(row.value), row.number) << row.name;
    }
}

}  // namespace
}  // namespace automation
