#include "vbscript/machine/code.h"

#include <utility>

namespace vbscript {

Code::Code(ValueArena& arena) noexcept : arena_(arena) {}

Code::~Code() {
    for (std::uint32_t place = 0; place < constant_count_; ++place) {
        arena_.at(first_constant_ + place) = Value();
    }
    arena_.free(first_constant_, constant_count_);
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
