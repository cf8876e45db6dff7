#include "vbscript/objects/recordset/recordset.h"

#include <algorithm>
#include <array>
#include <limits>

#include "vbscript/objects/object_errors.h"
#include "vbscript/objects/recordset/fields.h"
#include "vbscript/value/array.h"
#include "vbscript/value/convert.h"

namespace vbscript {
namespace {

using Self = Recordset;

constexpr auto kMembers = std::to_array<NativeMember>({
    // Stands for the field that is named behind the object.
    {.name = u"Collect",
     .required = 1,
     .accepted = 1,
     .call = &detail::call_native<&Self::field>,
     .let = &detail::call_native<&Self::let_field>,
     .is_property = true},
    native_property<&Self::fields>(u"Fields"),
    native_method<&Self::open>(u"Open", 0, 5),
    native_method<&Self::close>(u"Close"),
    native_property<&Self::state>(u"State"),
    native_method<&Self::add_new>(u"AddNew", 0, 2),
    native_method<&Self::update>(u"Update", 0, 2),
    native_method<&Self::cancel_update>(u"CancelUpdate"),
    native_method<&Self::remove>(u"Delete", 0, 1),
    native_property<&Self::edit_mode>(u"EditMode"),
    native_method<&Self::move>(u"Move", 1, 1),
    native_method<&Self::move_first>(u"MoveFirst"),
    native_method<&Self::move_last>(u"MoveLast"),
    native_method<&Self::move_next>(u"MoveNext"),
    native_method<&Self::move_previous>(u"MovePrevious"),
    native_property<&Self::at_begin>(u"BOF"),
    native_property<&Self::at_end>(u"EOF"),
    native_property<&Self::record_count>(u"RecordCount"),
    native_property<&Self::absolute_position, &Self::let_absolute_position>(u"AbsolutePosition"),
    native_property<&Self::bookmark, &Self::let_bookmark>(u"Bookmark"),
    native_property<&Self::sort, &Self::let_sort>(u"Sort"),
    native_property<&Self::filter, &Self::let_filter>(u"Filter"),
    native_method<&Self::find>(u"Find", 1, 3),
    native_method<&Self::get_rows>(u"GetRows", 0, 3),
    native_method<&Self::get_string>(u"GetString", 0, 5),
    native_method<&Self::supports>(u"Supports", 1),
    native_property<&Self::active_connection, &Self::let_active_connection,
                    &Self::let_active_connection>(u"ActiveConnection"),
    native_property<&Self::cursor_location, &Self::let_cursor_location>(u"CursorLocation"),
    native_property<&Self::cursor_type, &Self::let_cursor_type>(u"CursorType"),
    native_property<&Self::lock_type, &Self::let_lock_type>(u"LockType"),
});

[[noreturn]] void fail(ObjectError error) {
    throw object_error(error);
}

[[nodiscard]] std::vector<Value> list_of(const Value& one_or_many) {
    if (!one_or_many.is(Type::Array)) {
        return {one_or_many};
    }
    const auto elements = one_or_many.array().elements();
    return {elements.begin(), elements.end()};
}

// A bookmark as scripts carry it around.
[[nodiscard]] std::int64_t bookmark_in(Context& context, const Value& value) {
    const double number = to_double(context, value);
    if (!(number >= 0 && number < 1e15)) {
        fail(ObjectError::WrongArgument);
    }
    return static_cast<std::int64_t>(number);
}

}  // namespace

const NativeClass& Recordset::native_class() const noexcept {
    static const NativeClass kClass(u"Recordset", kMembers, u"Fields");
    return kClass;
}

// --- fields and life -----------------------------------------------------------------------------

Value Recordset::fields() const {
    return Value(Ref<Object>(make<Fields>(cursor_)));
}

Value Recordset::field(Arguments& arguments) {
    return cursor_->value(column_of(arguments.context(), *cursor_, arguments.at(0)));
}

Value Recordset::let_field(Arguments& arguments) {
    cursor_->set_value(arguments.context(),
                       column_of(arguments.context(), *cursor_, arguments.at(0)),
                       arguments.new_value());
    return {};
}

// A source or a connection would need a database.
Value Recordset::open(Arguments& arguments) {
    const auto is_named = [&](std::size_t index) {
        if (!arguments.has(index)) {
            return false;
        }
        const Value& value = arguments.at(index);
        const bool is_nothing = value.is(Type::Object) && value.object() == nullptr;
        return !value.is(Type::Empty) && !is_nothing;
    };
    if (is_named(0) || is_named(1)) {
        fail(ObjectError::NoConnection);
    }
    cursor_->open();
    cursor_type_ = arguments.number_or(2, cursor_type_);
    lock_type_ = arguments.number_or(3, lock_type_);
    return {};
}

Value Recordset::close() {
    cursor_->close();
    filter_ = Value(std::int32_t{0});
    sort_.clear();
    return {};
}

Value Recordset::state() const {
    return Value(std::int32_t{cursor_->is_open() ? 1 : 0});
}

// --- records -------------------------------------------------------------------------------------

Value Recordset::add_new(Arguments& arguments) {
    cursor_->add_record();
    if (arguments.has(0)) {
        set_values(arguments.context(), arguments.at(0), arguments.at(1));
        cursor_->update();
    }
    return {};
}

Value Recordset::update(Arguments& arguments) {
    if (arguments.has(0)) {
        set_values(arguments.context(), arguments.at(0), arguments.at(1));
    }
    cursor_->update();
    return {};
}

Value Recordset::cancel_update() {
    cursor_->cancel_update();
    return {};
}

Value Recordset::remove(Arguments& arguments) {
    constexpr std::int32_t kCurrent = 1;
    constexpr std::int32_t kFiltered = 2;
    constexpr std::int32_t kAll = 3;
    switch (arguments.number_or(0, kCurrent)) {
        case kCurrent:
            cursor_->remove_record();
            break;
        case kFiltered:
        case kAll:
            cursor_->remove_all_seen();
            break;
        default:
            fail(ObjectError::WrongArgument);
    }
    return {};
}

Value Recordset::edit_mode() const {
    return Value(static_cast<std::int32_t>(cursor_->edit_mode()));
}

void Recordset::set_values(Context& context, const Value& names, const Value& values) {
    const std::vector<Value> columns = list_of(names);
    const std::vector<Value> list = list_of(values);
    if (columns.size() != list.size()) {
        fail(ObjectError::WrongArgument);
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        cursor_->set_value(context, column_of(context, *cursor_, columns[i]), list[i]);
    }
}

// --- place ---------------------------------------------------------------------------------------

Value Recordset::move(Arguments& arguments) {
    const std::int32_t records = arguments.number(0);
    move_to_start(arguments, 1);
    cursor_->move(records);
    return {};
}

Value Recordset::move_first() {
    cursor_->move_first();
    return {};
}

Value Recordset::move_last() {
    cursor_->move_last();
    return {};
}

Value Recordset::move_next() {
    cursor_->move(1);
    return {};
}

Value Recordset::move_previous() {
    cursor_->move(-1);
    return {};
}

Value Recordset::at_begin() const {
    return Value(cursor_->at_begin());
}

Value Recordset::at_end() const {
    return Value(cursor_->at_end());
}

Value Recordset::record_count() const {
    return Value(static_cast<std::int32_t>(cursor_->count()));
}

Value Recordset::absolute_position() const {
    constexpr std::int32_t kUnknown = -1;
    constexpr std::int32_t kBegin = -2;
    constexpr std::int32_t kEnd = -3;
    if (const auto position = cursor_->position()) {
        return Value(static_cast<std::int32_t>(*position));
    }
    if (cursor_->at_begin()) {
        return Value(kBegin);
    }
    return Value(cursor_->at_end() ? kEnd : kUnknown);
}

Value Recordset::let_absolute_position(Arguments& arguments) {
    const std::int32_t position = arguments.number(0);
    if (position < 1 || static_cast<std::size_t>(position) > cursor_->count()) {
        fail(ObjectError::WrongArgument);
    }
    cursor_->move_to(static_cast<std::size_t>(position));
    return {};
}

Value Recordset::bookmark() const {
    return Value(static_cast<double>(cursor_->bookmark()));
}

Value Recordset::let_bookmark(Arguments& arguments) {
    cursor_->move_to_bookmark(bookmark_in(arguments.context(), arguments.at(0)));
    return {};
}

void Recordset::move_to_start(Arguments& arguments, std::size_t index) {
    constexpr std::int64_t kFirst = 1;
    constexpr std::int64_t kLast = 2;
    if (!arguments.has(index)) {
        return;
    }
    // Bookmarks are Doubles, the constants are not.
    const Value& start = arguments.at(index);
    const std::int64_t number = bookmark_in(arguments.context(), start);
    if (start.is(Type::Double)) {
        return cursor_->move_to_bookmark(number);
    }
    if (number == kFirst) {
        return cursor_->move_first();
    }
    if (number == kLast) {
        return cursor_->move_last();
    }
    if (number != 0) {
        fail(ObjectError::WrongArgument);
    }
}

// --- settings ------------------------------------------------------------------------------------

Value Recordset::active_connection() const {
    return Value(Ref<Object>());
}

Value Recordset::let_active_connection(Arguments& arguments) {
    const Value& value = arguments.at(0);
    const bool is_nothing = value.is(Type::Object) && value.object() == nullptr;
    if (!is_nothing && !value.is(Type::Empty)) {
        fail(ObjectError::WrongArgument);
    }
    return {};
}

Value Recordset::cursor_location() const {
    return Value(cursor_location_);
}

Value Recordset::let_cursor_location(Arguments& arguments) {
    let_setting(cursor_location_, arguments);
    return {};
}

Value Recordset::cursor_type() const {
    return Value(cursor_type_);
}

Value Recordset::let_cursor_type(Arguments& arguments) {
    let_setting(cursor_type_, arguments);
    return {};
}

Value Recordset::lock_type() const {
    return Value(lock_type_);
}

Value Recordset::let_lock_type(Arguments& arguments) {
    let_setting(lock_type_, arguments);
    return {};
}

void Recordset::let_setting(std::int32_t& setting, Arguments& arguments) {
    const std::int32_t wanted = arguments.number(0);
    if (cursor_->is_open()) {
        fail(ObjectError::ObjectAlreadyOpen);
    }
    setting = wanted;
}

// Everything that a list in memory can do.
Value Recordset::supports(Arguments& arguments) {
    static_cast<void>(arguments.number(0));
    return Value(true);
}

}  // namespace vbscript
