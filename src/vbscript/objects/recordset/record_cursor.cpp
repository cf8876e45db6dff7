#include "vbscript/objects/recordset/record_cursor.h"

#include <algorithm>

#include "vbscript/objects/object_errors.h"
#include "vbscript/value/convert.h"

namespace vbscript {
namespace {

[[nodiscard]] std::u16string_view trimmed(std::u16string_view text) noexcept {
    constexpr std::u16string_view kBlanks = u" \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::u16string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// One column of an order, and the word behind it.
struct OrderPart {
    std::u16string_view name;
    std::u16string_view direction;
};

[[nodiscard]] OrderPart order_part(std::u16string_view part) noexcept {
    if (part.starts_with(u'[')) {
        const std::size_t end = std::min(part.find(u']'), part.size());
        return {part.substr(1, end - 1), trimmed(part.substr(std::min(end + 1, part.size())))};
    }
    const std::size_t end = std::min(part.find_last_of(u" \t"), part.size());
    const std::u16string_view word = trimmed(part.substr(end));
    const bool is_direction =
        equals_ignoring_case(word, u"asc") || equals_ignoring_case(word, u"desc");
    if (!is_direction || end == part.size()) {
        return {part, {}};
    }
    return {trimmed(part.substr(0, end)), word};
}

}  // namespace

// --- columns and life ----------------------------------------------------------------------------

void RecordCursor::append_column(Column column) {
    require_closed();
    const bool is_taken = std::ranges::any_of(columns_, [&](const Column& other) {
        return equals_ignoring_case(other.name, column.name);
    });
    if (is_taken) {
        throw object_error(ObjectError::ItemAlreadyInCollection);
    }
    columns_.push_back(std::move(column));
}

void RecordCursor::remove_column(std::size_t column) {
    require_closed();
    columns_.erase(columns_.begin() + static_cast<std::ptrdiff_t>(column));
}

std::size_t RecordCursor::column_of(std::u16string_view name) const {
    const auto row = std::ranges::find_if(
        columns_, [&](const Column& column) { return equals_ignoring_case(column.name, name); });
    if (row == columns_.end()) {
        throw object_error(ObjectError::ItemNotInCollection);
    }
    return static_cast<std::size_t>(row - columns_.begin());
}

void RecordCursor::open() {
    require_closed();
    if (columns_.empty()) {
        throw object_error(ObjectError::NoConnection);
    }
    is_open_ = true;
    look_again();
}

void RecordCursor::close() {
    require_open();
    is_open_ = false;
    added_ = nullptr;
    original_.reset();
    seen_.clear();
    order_.clear();
    criteria_.reset();
    chosen_.reset();
    columns_.clear();
    // Values go last: the end of an object may run script that looks at the set.
    const auto gone = std::move(records_);
    records_.clear();
}

// --- place ---------------------------------------------------------------------------------------

std::size_t RecordCursor::count() const {
    require_open();
    return seen_.size();
}

bool RecordCursor::at_begin() const {
    require_open();
    if (added_ || is_deleted_) {
        return false;
    }
    return before_first_ || seen_.empty();
}

bool RecordCursor::at_end() const {
    require_open();
    if (added_ || is_deleted_) {
        return false;
    }
    return !before_first_ && place_ == seen_.size();
}

std::optional<std::size_t> RecordCursor::position() const {
    require_open();
    if (added_ || is_deleted_ || before_first_ || place_ == seen_.size()) {
        return std::nullopt;
    }
    return place_ + 1;
}

void RecordCursor::move_first() {
    require_open();
    update();
    if (seen_.empty() && !is_deleted_) {
        throw object_error(ObjectError::NoCurrentRecord);
    }
    move_to(1);
}

void RecordCursor::move_last() {
    require_open();
    update();
    if (seen_.empty() && !is_deleted_) {
        throw object_error(ObjectError::NoCurrentRecord);
    }
    move_to(std::max<std::size_t>(seen_.size(), 1));
}

void RecordCursor::move(std::int64_t records) {
    require_open();
    update();
    if ((records > 0 && at_end()) || (records < 0 && at_begin())) {
        throw object_error(ObjectError::NoCurrentRecord);
    }
    if (records == 0) {
        return;
    }
    auto target = static_cast<std::int64_t>(place_) + records;
    if (before_first_) {
        target = records - 1;
    }
    // Behind a deleted record the next one has its place already.
    if (is_deleted_ && records > 0) {
        --target;
    }
    is_deleted_ = false;
    before_first_ = target < 0;
    place_ = static_cast<std::size_t>(
        std::clamp<std::int64_t>(target, 0, static_cast<std::int64_t>(seen_.size())));
}

void RecordCursor::move_to(std::size_t position) {
    require_open();
    update();
    is_deleted_ = false;
    before_first_ = false;
    place_ = std::min(position - 1, seen_.size());
}

std::int64_t RecordCursor::bookmark() const {
    return current().number;
}

void RecordCursor::move_to_bookmark(std::int64_t bookmark) {
    require_open();
    update();
    const auto record = std::ranges::find(seen_, bookmark, &Record::number);
    if (record == seen_.end()) {
        throw object_error(ObjectError::WrongArgument);
    }
    move_to(static_cast<std::size_t>(record - seen_.begin()) + 1);
}

void RecordCursor::find(const Criteria& criteria, std::int64_t skip, Direction direction) {
    require_open();
    update();
    if (current_or_none() == nullptr) {
        throw object_error(ObjectError::NoCurrentRecord);
    }
    const auto step = static_cast<std::int64_t>(direction);
    const auto size = static_cast<std::int64_t>(seen_.size());
    std::int64_t place = static_cast<std::int64_t>(place_) + skip * step;
    for (; place >= 0 && place < size; place += step) {
        const Record& record = *seen_[static_cast<std::size_t>(place)];
        if (criteria.accept(columns_, record.values)) {
            break;
        }
    }
    before_first_ = place < 0;
    place_ = static_cast<std::size_t>(std::clamp<std::int64_t>(place, 0, size));
}

// --- the current record --------------------------------------------------------------------------

RecordCursor::EditMode RecordCursor::edit_mode() const {
    require_open();
    if (added_) {
        return EditMode::Adding;
    }
    return original_ ? EditMode::Changing : EditMode::None;
}

const Value& RecordCursor::value(std::size_t column) const {
    return current().values.at(column);
}

const Value& RecordCursor::original_value(std::size_t column) const {
    const Record& record = current();
    return original_ ? original_->at(column) : record.values.at(column);
}

void RecordCursor::set_value(Context& context, std::size_t column, const Value& value) {
    static_cast<void>(current());
    Value kept = value_for(context, columns_.at(column), value);
    Record& record = current();
    if (!added_ && !original_) {
        original_ = record.values;
    }
    record.values.at(column).swap(kept);
}

void RecordCursor::add_record() {
    require_open();
    update();
    added_ = std::make_unique<Record>();
    for (const Column& column : columns_) {
        added_->values.push_back(column.may_be_null() ? Value(kNull) : Value());
    }
    is_deleted_ = false;
}

void RecordCursor::update() {
    require_open();
    original_.reset();
    if (!added_) {
        return;
    }
    added_->number = ++last_number_;
    Record* record = records_.emplace_back(std::move(added_)).get();
    if (!is_seen(*record)) {
        return;
    }
    const auto before = [this](const Record* left, const Record* right) {
        return is_before(*left, *right);
    };
    const auto place =
        order_.empty() ? seen_.end() : std::ranges::upper_bound(seen_, record, before);
    before_first_ = false;
    place_ = static_cast<std::size_t>(place - seen_.begin());
    seen_.insert(place, record);
}

void RecordCursor::cancel_update() {
    require_open();
    added_ = nullptr;
    if (original_) {
        current().values = *std::exchange(original_, std::nullopt);
    }
}

void RecordCursor::remove_record() {
    require_open();
    if (added_) {
        return cancel_update();
    }
    const Record& record = current();
    original_.reset();
    seen_.erase(seen_.begin() + static_cast<std::ptrdiff_t>(place_));
    is_deleted_ = true;
    erase_record(record);
}

void RecordCursor::remove_all_seen() {
    require_open();
    cancel_update();
    const std::vector<Record*> gone = std::exchange(seen_, {});
    place_ = 0;
    before_first_ = false;
    is_deleted_ = false;
    for (const Record* record : gone) {
        erase_record(*record);
    }
}

// --- what is seen --------------------------------------------------------------------------------

void RecordCursor::sort(std::u16string_view order) {
    require_open();
    update();
    order_ = sort_keys(order);
    look_again();
}

void RecordCursor::filter(std::optional<Criteria> criteria) {
    require_open();
    update();
    criteria_ = std::move(criteria);
    chosen_.reset();
    look_again();
}

void RecordCursor::filter(const std::vector<std::int64_t>& bookmarks) {
    require_open();
    update();
    criteria_.reset();
    chosen_ = bookmarks;
    look_again();
}

std::vector<RecordCursor::SortKey> RecordCursor::sort_keys(std::u16string_view order) const {
    std::vector<SortKey> keys;
    std::u16string_view rest = trimmed(order);
    while (!rest.empty()) {
        const std::size_t comma = std::min(rest.find(u','), rest.size());
        const OrderPart part = order_part(trimmed(rest.substr(0, comma)));
        const bool descending = equals_ignoring_case(part.direction, u"desc");
        if (!descending && !part.direction.empty() &&
            !equals_ignoring_case(part.direction, u"asc")) {
            throw object_error(ObjectError::WrongArgument);
        }
        keys.push_back({column_of(part.name), descending});
        rest = rest.substr(std::min(comma + 1, rest.size()));
    }
    return keys;
}

bool RecordCursor::is_seen(const Record& record) const {
    if (chosen_) {
        return std::ranges::find(*chosen_, record.number) != chosen_->end();
    }
    return !criteria_ || criteria_->accept(columns_, record.values);
}

bool RecordCursor::is_before(const Record& left, const Record& right) const noexcept {
    for (const SortKey& key : order_) {
        const int order = compare_in_column(columns_[key.column].kind, left.values[key.column],
                                            right.values[key.column]);
        if (order != 0) {
            return key.descending ? order > 0 : order < 0;
        }
    }
    return false;
}

void RecordCursor::look_again() {
    seen_.clear();
    for (const auto& record : records_) {
        if (is_seen(*record)) {
            seen_.push_back(record.get());
        }
    }
    std::ranges::stable_sort(seen_, [this](const Record* left, const Record* right) {
        return is_before(*left, *right);
    });
    place_ = 0;
    before_first_ = false;
    is_deleted_ = false;
}

void RecordCursor::erase_record(const Record& record) {
    const auto place = std::ranges::find(records_, &record, &std::unique_ptr<Record>::get);
    const std::unique_ptr<Record> gone = std::move(*place);
    records_.erase(place);
}

void RecordCursor::require_open() const {
    if (!is_open_) {
        throw object_error(ObjectError::ObjectClosed);
    }
}

void RecordCursor::require_closed() const {
    if (is_open_) {
        throw object_error(ObjectError::ObjectAlreadyOpen);
    }
}

RecordCursor::Record* RecordCursor::current_or_none() const noexcept {
    if (added_) {
        return added_.get();
    }
    if (is_deleted_ || before_first_ || place_ >= seen_.size()) {
        return nullptr;
    }
    return seen_[place_];
}

RecordCursor::Record& RecordCursor::current() const {
    require_open();
    Record* record = current_or_none();
    if (record == nullptr) {
        throw object_error(ObjectError::NoCurrentRecord);
    }
    return *record;
}

}  // namespace vbscript
