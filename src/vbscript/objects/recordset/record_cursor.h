#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vbscript/objects/recordset/column.h"
#include "vbscript/objects/recordset/criteria.h"

namespace vbscript {

// Columns, records and the place of the current record: what a Recordset and its Fields show.
// Shared by those. Records that a filter leaves out are there but not seen. Records have numbers
// that never change, from 1.
// Operations throw ScriptError 3704 while closed, 3021 without a current record.
class RecordCursor final : public Counted {
  public:
    enum class EditMode : std::int32_t { None = 0, Changing = 1, Adding = 2 };
    enum class Direction : std::int8_t { Backward = -1, Forward = 1 };

    // --- columns; they change only while closed, else 3705
    // ----------------------------------------

    [[nodiscard]] const std::vector<Column>& columns() const noexcept { return columns_; }

    // Throws beside the rest: 3367 when the name is taken.
    void append_column(Column column);
    void remove_column(std::size_t column);

    // By name without regard to case. Throws: ScriptError 3265.
    [[nodiscard]] std::size_t column_of(std::u16string_view name) const;

    // --- life
    // -------------------------------------------------------------------------------------

    [[nodiscard]] bool is_open() const noexcept { return is_open_; }

    // Throws: ScriptError 3705 when open already, 3709 without columns.
    void open();

    // Forgets columns and records.
    void close();

    // --- place
    // ------------------------------------------------------------------------------------

    [[nodiscard]] std::size_t count() const;
    [[nodiscard]] bool at_begin() const;  // before the first record
    [[nodiscard]] bool at_end() const;    // behind the last one

    // 1 for the first record seen; absent without a current one.
    [[nodiscard]] std::optional<std::size_t> position() const;

    void move_first();
    void move_last();

    // From the current record; stops before the first and behind the last one, and is an error
    // when it is there already.
    void move(std::int64_t records);

    // From the record that stands at `position`, from 1.
    void move_to(std::size_t position);

    [[nodiscard]] std::int64_t bookmark() const;

    // Throws: ScriptError 3001 for a record that is not seen.
    void move_to_bookmark(std::int64_t bookmark);

    // The next record that `criteria` accepts, `skip` records from the current one on; the end in
    // that direction when there is none.
    void find(const Criteria& criteria, std::int64_t skip, Direction direction);

    // --- the current record
    // -----------------------------------------------------------------------

    [[nodiscard]] EditMode edit_mode() const;
    [[nodiscard]] const Value& value(std::size_t column) const;

    // As it was before the record was changed.
    [[nodiscard]] const Value& original_value(std::size_t column) const;

    // Throws beside the rest what `value_for` throws.
    void set_value(Context& context, std::size_t column, const Value& value);

    // A new record, which becomes the current one. What is pending is kept first.
    void add_record();
    void update();
    void cancel_update();

    // The record stays current, but deleted, until the next move.
    void remove_record();
    void remove_all_seen();

    // --- what is seen, and how
    // --------------------------------------------------------------------

    // "name, age DESC"; "" for the order in which records were added. Throws: ScriptError 3265,
    // 3001.
    void sort(std::u16string_view order);
    void filter(std::optional<Criteria> criteria);
    void filter(const std::vector<std::int64_t>& bookmarks);

  private:
    struct Record {
        std::int64_t number = 0;
        std::vector<Value> values;
    };

    struct SortKey {
        std::size_t column = 0;
        bool descending = false;
    };

    void require_open() const;
    void require_closed() const;
    [[nodiscard]] Record* current_or_none() const noexcept;
    [[nodiscard]] Record& current() const;
    [[nodiscard]] bool is_seen(const Record& record) const;
    [[nodiscard]] bool is_before(const Record& left, const Record& right) const noexcept;
    [[nodiscard]] std::vector<SortKey> sort_keys(std::u16string_view order) const;

    // Chooses and orders anew what is seen, and goes to the first of it.
    void look_again();
    void erase_record(const Record& record);

    std::vector<Column> columns_;
    std::vector<std::unique_ptr<Record>> records_;
    std::vector<Record*> seen_;
    std::vector<SortKey> order_;
    std::optional<Criteria> criteria_;
    std::optional<std::vector<std::int64_t>> chosen_;
    std::unique_ptr<Record> added_;               // the current record until it is kept
    std::optional<std::vector<Value>> original_;  // of the current record while it changes
    std::size_t place_ = 0;                       // in `seen_`; its size is the end
    std::int64_t last_number_ = 0;
    bool is_open_ = false;
    bool before_first_ = false;
    bool is_deleted_ = false;  // the current record; `place_` is the one behind it
};

}  // namespace vbscript
