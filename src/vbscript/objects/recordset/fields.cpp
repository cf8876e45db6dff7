#include "vbscript/objects/recordset/fields.h"

#include <array>

#include "vbscript/objects/object_errors.h"
#include "vbscript/value/convert.h"

namespace vbscript {
namespace {

constexpr auto kFieldsMembers = std::to_array<NativeMember>({
    native_property<&Fields::item>(u"Item", 1),
    native_property<&Fields::count>(u"Count"),
    native_method<&Fields::append>(u"Append", 2, 3),
    native_method<&Fields::remove>(u"Delete", 1),
    native_method<&Fields::refresh>(u"Refresh"),
});

constexpr auto kFieldMembers = std::to_array<NativeMember>({
    native_property<&Field::value, &Field::let_value, &Field::let_value>(u"Value"),
    native_property<&Field::name>(u"Name"),
    native_property<&Field::type>(u"Type"),
    native_property<&Field::actual_size>(u"ActualSize"),
    native_property<&Field::attributes>(u"Attributes"),
    native_property<&Field::defined_size>(u"DefinedSize"),
    native_property<&Field::original_value>(u"OriginalValue"),
    native_property<&Field::original_value>(u"UnderlyingValue"),
});

}  // namespace

std::size_t column_of(Context& context, const RecordCursor& cursor, const Value& name_or_number) {
    const Value wanted = context.plain(name_or_number);
    if (wanted.is(Type::String)) {
        return cursor.column_of(wanted.units());
    }
    const std::int32_t number = to_long(context, wanted);
    if (number < 0 || static_cast<std::size_t>(number) >= cursor.columns().size()) {
        throw object_error(ObjectError::ItemNotInCollection);
    }
    return static_cast<std::size_t>(number);
}

// --- Fields --------------------------------------------------------------------------------------

const NativeClass& Fields::native_class() const noexcept {
    static const NativeClass kClass(u"Fields", kFieldsMembers, u"Item");
    return kClass;
}

std::unique_ptr<Enumerator> Fields::enumerate(Context& /*context*/) {
    std::vector<Value> fields;
    for (std::size_t column = 0; column < cursor_->columns().size(); ++column) {
        fields.emplace_back(Ref<Object>(make<Field>(cursor_, column)));
    }
    return std::make_unique<ListEnumerator>(std::move(fields));
}

Value Fields::append(Arguments& arguments) {
    Column column;
    column.name = arguments.text(0);
    column.type = arguments.number(1);
    const auto kind = column_kind(column.type);
    if (column.name.empty() || !kind) {
        throw object_error(ObjectError::WrongArgument);
    }
    column.kind = *kind;
    column.size = arguments.number_or(2, 0);
    column.attributes = arguments.number_or(3, 0);
    if (column.size < 0) {
        throw object_error(ObjectError::WrongArgument);
    }
    cursor_->append_column(std::move(column));
    return {};
}

Value Fields::count() const {
    return Value(static_cast<std::int32_t>(cursor_->columns().size()));
}

Value Fields::item(Arguments& arguments) {
    const std::size_t column = column_of(arguments.context(), *cursor_, arguments.at(0));
    return Value(Ref<Object>(make<Field>(cursor_, column)));
}

// There is nothing behind the set to look at again.
Value Fields::refresh() const {
    return {};
}

Value Fields::remove(Arguments& arguments) {
    cursor_->remove_column(column_of(arguments.context(), *cursor_, arguments.at(0)));
    return {};
}

// --- Field ---------------------------------------------------------------------------------------

const NativeClass& Field::native_class() const noexcept {
    static const NativeClass kClass(u"Field", kFieldMembers, u"Value");
    return kClass;
}

// Bytes: a character takes two.
Value Field::actual_size() const {
    const Value& value = cursor_->value(column_);
    if (value.is(Type::Null) || value.is(Type::Empty)) {
        return Value(std::int32_t{0});
    }
    if (!value.is(Type::String)) {
        return Value(fixed_size(column().kind));
    }
    return Value(static_cast<std::int32_t>(value.units().size() * sizeof(char16_t)));
}

Value Field::attributes() const {
    return Value(column().attributes);
}

Value Field::defined_size() const {
    const Column& own = column();
    return Value(own.kind == ColumnKind::Text ? own.size : fixed_size(own.kind));
}

Value Field::name() const {
    return Value(column().name);
}

Value Field::original_value() const {
    return cursor_->original_value(column_);
}

Value Field::type() const {
    return Value(column().type);
}

Value Field::value() const {
    static_cast<void>(cursor_->count());
    static_cast<void>(column());
    return cursor_->value(column_);
}

Value Field::let_value(Arguments& arguments) {
    static_cast<void>(cursor_->count());
    static_cast<void>(column());
    cursor_->set_value(arguments.context(), column_, arguments.at(0));
    return {};
}

const Column& Field::column() const {
    if (column_ >= cursor_->columns().size()) {
        throw object_error(ObjectError::ItemNotInCollection);
    }
    return cursor_->columns()[column_];
}

}  // namespace vbscript
