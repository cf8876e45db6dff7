#include "vbscript/machine/code.h"

#include <utility>

namespace vbscript {

Code::Code(ValueArena& arena) noexcept : arena_(arena) {}

Code::~Code() {
    for (std::uint32_t place = 0; place < constant_count_; ++place) {
        arena_.at(first_constant_ + place) = Value();
    }
    arena_.free(first_constant_, constant_count_);
    arena_.free(first_own_, own_count_);
}

void Code::allocate_own(std::uint32_t locals, std::uint32_t temporaries) {
    first_own_ = arena_.allocate(locals + temporaries);
    own_count_ = locals + temporaries;
    own_temporaries_ = arena_.begin() + first_own_ + locals;
    own_end_ = own_temporaries_ + temporaries;
}

bool Code::is_literal(const Value* place) const noexcept {
    const Value* const first = arena_.begin() + first_constant_;
    if (place < first || place >= first + constant_count_) {
        return false;
    }
    return place->is(Type::String) || place->is(Type::Integer) || place->is(Type::Long) ||
           place->is(Type::Double);
}

std::span<Value> Code::own() noexcept {
    return {arena_.begin() + first_own_, own_count_};
}

std::span<Value> Code::own_temporaries() noexcept {
    return {own_temporaries_, own_end_};
}

void Code::adopt_constants(std::vector<Value> constants) {
    const auto count = static_cast<std::uint32_t>(constants.size());
    first_constant_ = arena_.allocate(count);
    constant_count_ = count;
    for (std::uint32_t place = 0; place < count; ++place) {
        arena_.at(first_constant_ + place) = std::move(constants[place]);
    }
}

}  // namespace vbscript
