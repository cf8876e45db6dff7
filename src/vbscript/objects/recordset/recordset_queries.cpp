#include <algorithm>
#include <limits>

#include "vbscript/objects/object_errors.h"
#include "vbscript/objects/recordset/fields.h"
#include "vbscript/objects/recordset/recordset.h"
#include "vbscript/value/array.h"
#include "vbscript/value/convert.h"

// The members of a Recordset that look at many records.
namespace vbscript {
namespace {

constexpr std::int32_t kAllRows = -1;

[[nodiscard]] std::size_t row_limit(std::int32_t rows) {
    if (rows < kAllRows) {
        throw object_error(ObjectError::WrongArgument);
    }
    return rows == kAllRows ? std::numeric_limits<std::size_t>::max()
                            : static_cast<std::size_t>(rows);
}

}  // namespace

Value Recordset::sort() const {
    return Value(sort_);
}

Value Recordset::let_sort(Arguments& arguments) {
    const std::u16string order = arguments.text(0);
    cursor_->sort(order);
    sort_ = order;
    return {};
}

Value Recordset::filter() const {
    return filter_;
}

// Criteria as a text, bookmarks as an array, or 0 for none.
Value Recordset::let_filter(Arguments& arguments) {
    Context& context = arguments.context();
    const Value wanted = context.plain(arguments.at(0));
    if (wanted.is(Type::Array)) {
        std::vector<std::int64_t> bookmarks;
        for (const Value& bookmark : wanted.array().elements()) {
            bookmarks.push_back(static_cast<std::int64_t>(to_double(context, bookmark)));
        }
        cursor_->filter(bookmarks);
    } else if (wanted.is(Type::String) && !wanted.units().empty()) {
        static_cast<void>(cursor_->count());
        cursor_->filter(Criteria(wanted.units(), cursor_->columns()));
    } else if (wanted.is(Type::String) || to_long(context, wanted) == 0) {
        cursor_->filter(std::nullopt);
        filter_ = Value(std::int32_t{0});
        return {};
    } else {
        throw object_error(ObjectError::WrongArgument);
    }
    filter_ = wanted;
    return {};
}

Value Recordset::find(Arguments& arguments) {
    constexpr std::size_t kSkip = 1;
    constexpr std::size_t kDirection = 2;
    constexpr std::size_t kStart = 3;
    const std::u16string text = arguments.text(0);
    const std::int32_t skip = arguments.number_or(kSkip, 0);
    const std::int32_t direction = arguments.number_or(kDirection, 1);
    if (direction != 1 && direction != -1) {
        throw object_error(ObjectError::WrongArgument);
    }
    static_cast<void>(cursor_->count());
    const Criteria criteria(text, cursor_->columns());
    move_to_start(arguments, kStart);
    cursor_->find(
        criteria, skip,
        direction == 1 ? RecordCursor::Direction::Forward : RecordCursor::Direction::Backward);
    return {};
}

std::vector<std::size_t> Recordset::columns_of(Arguments& arguments, std::size_t index) {
    std::vector<std::size_t> columns;
    if (!arguments.has(index)) {
        for (std::size_t column = 0; column < cursor_->columns().size(); ++column) {
            columns.push_back(column);
        }
        return columns;
    }
    const Value& names = arguments.at(index);
    if (!names.is(Type::Array)) {
        return {column_of(arguments.context(), *cursor_, names)};
    }
    for (const Value& name : names.array().elements()) {
        columns.push_back(column_of(arguments.context(), *cursor_, name));
    }
    return columns;
}

// An array with the fields in its first dimension and the records in its second.
Value Recordset::get_rows(Arguments& arguments) {
    const std::size_t limit = row_limit(arguments.number_or(0, kAllRows));
    const std::vector<std::size_t> columns = columns_of(arguments, 2);
    if (arguments.has(1)) {
        move_to_start(arguments, 1);
    }
    if (cursor_->at_begin() || cursor_->at_end()) {
        throw object_error(ObjectError::NoCurrentRecord);
    }
    std::vector<Value> values;
    std::size_t rows = 0;
    for (; rows < limit && !cursor_->at_end(); ++rows) {
        for (const std::size_t column : columns) {
            values.push_back(cursor_->value(column));
        }
        cursor_->move(1);
    }
    const std::vector<std::int32_t> bounds{static_cast<std::int32_t>(columns.size()) - 1,
                                           static_cast<std::int32_t>(rows) - 1};
    auto table = make<Array>(std::span<const std::int32_t>(bounds), false);
    std::ranges::move(values, table->elements().begin());
    return Value(std::move(table));
}

Value Recordset::get_string(Arguments& arguments) {
    constexpr std::int32_t kDelimited = 2;
    Context& context = arguments.context();
    if (arguments.number_or(0, kDelimited) != kDelimited) {
        throw object_error(ObjectError::WrongArgument);
    }
    const std::size_t limit = row_limit(arguments.number_or(1, kAllRows));
    const std::u16string between_columns = arguments.text_or(2, u"\t");
    const std::u16string row_end = arguments.text_or(3, u"\r");
    const std::u16string null_text = arguments.text_or(4, u"");
    if (cursor_->at_begin() || cursor_->at_end()) {
        throw object_error(ObjectError::NoCurrentRecord);
    }
    std::u16string text;
    for (std::size_t row = 0; row < limit && !cursor_->at_end(); ++row) {
        for (std::size_t column = 0; column < cursor_->columns().size(); ++column) {
            if (column > 0) {
                text += between_columns;
            }
            const Value& value = cursor_->value(column);
            text += value.is(Type::Null) ? null_text : to_units(context, value);
        }
        text += row_end;
        cursor_->move(1);
    }
    return Value(std::move(text));
}

}  // namespace vbscript
