#include "vbscript/machine/literals.h"

#include <cstdint>
#include <variant>

#include "vbscript/value/object.h"

namespace vbscript {

namespace {

struct ToValue {
    Value operator()(ast::EmptyLiteral) const { return {}; }

    Value operator()(ast::NullLiteral) const { return kNull; }

    Value operator()(ast::NothingLiteral) const { return Value(Ref<Object>()); }

    Value operator()(ast::DateLiteral date) const { return Value(Date{date.days}); }

    Value operator()(const auto& plain) const { return Value(plain); }
};

struct Negate {
    Value operator()(std::int16_t number) const {
        return number == INT16_MIN ? Value() : Value(static_cast<std::int16_t>(-number));
    }

    Value operator()(std::int32_t number) const {
        return number == INT32_MIN ? Value() : Value(-number);
    }

    Value operator()(double number) const { return Value(-number); }

    Value operator()(const auto& /*other*/) const { return {}; }
};

}  // namespace

Value value_of(const ast::LiteralValue& literal) {
    return std::visit(ToValue{}, literal);
}

Value negated(const ast::LiteralValue& literal) {
    return std::visit(Negate{}, literal);
}

}  // namespace vbscript
