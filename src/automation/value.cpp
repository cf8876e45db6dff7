#include "automation/value.h"

#include <array>

namespace automation {
namespace {

// In the order of the alternatives that a value holds.
constexpr auto kKinds = std::to_array<Kind>({
    Kind::Empty,
    Kind::Null,
    Kind::Boolean,
    Kind::Byte,
    Kind::Integer,
    Kind::Long,
    Kind::Single,
    Kind::Double,
    Kind::Currency,
    Kind::Date,
    Kind::String,
    Kind::Error,
    Kind::Object,
    Kind::Array,
});

}  // namespace

Kind Value::kind() const noexcept {
    static_assert(std::variant_size_v<decltype(data_)> == kKinds.size());
    return kKinds[data_.index()];
}

}  // namespace automation
