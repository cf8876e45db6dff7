#include "vbscript/value/byte_text.h"
#include "vbscript/value/convert.h"
#include "vbscript/value/operand.h"
#include "vbscript/value/operators.h"

namespace vbscript {
namespace {

void require_space(std::size_t units) {
    if (units > String::kMaximumUnits) {
        throw ScriptError(ErrorNumber::OutOfStringSpace);
    }
}

// With half a unit at the end of the left one, every byte of the right one moves.
Ref<String> join(const String& left, const String& right) {
    require_space(left.units().size() + right.units().size());
    if (left.has_half_unit()) {
        return text_of_bytes(bytes_of(left) + bytes_of(right));
    }
    auto joined = make<String>(left.units(), right.units());
    joined->set_half_unit(right.has_half_unit());
    return joined;
}

// What an operand adds to a text; Null adds nothing.
Ref<String> part_of(Context& context, const Value& value) {
    if (value.is(Type::Null)) {
        return make<String>(std::u16string_view());
    }
    return to_text(context, value);
}

}  // namespace

std::string bytes_of(const String& text) {
    constexpr unsigned int kByte = 0xFF;
    std::string bytes;
    bytes.reserve(text.units().size() * 2);
    for (const char16_t unit : text.units()) {
        bytes.push_back(static_cast<char>(unit & kByte));
        bytes.push_back(static_cast<char>(unit >> 8));
    }
    if (text.has_half_unit()) {
        bytes.pop_back();
    }
    return bytes;
}

Ref<String> text_of_bytes(std::string_view bytes) {
    const std::size_t units_needed = (bytes.size() + 1) / 2;
    require_space(units_needed);
    std::u16string units(units_needed, u'\0');
    for (std::size_t place = 0; place < bytes.size(); ++place) {
        const auto byte = static_cast<unsigned char>(bytes[place]);
        char16_t& unit = units[place / 2];
        unit = static_cast<char16_t>(place % 2 == 0 ? byte : unit | byte << 8);
    }
    auto text = make<String>(std::move(units));
    text->set_half_unit(bytes.size() % 2 != 0);
    return text;
}

Value concatenate(Context& context, const Value& left, const Value& right) {
    if (left.is(Type::String) && right.is(Type::String)) {
        if (left.text().byte_size() == 0) {
            return right;
        }
        if (right.text().byte_size() == 0) {
            return left;
        }
        return Value(join(left.text(), right.text()));
    }
    if (is_object(left, right)) {
        return on_plain(context, left, right, concatenate);
    }
    require_operands(left, right);
    if (left.is(Type::Null) && right.is(Type::Null)) {
        return Value(kNull);
    }
    return Value(join(*part_of(context, left), *part_of(context, right)));
}

}  // namespace vbscript
