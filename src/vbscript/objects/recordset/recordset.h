#pragma once

#include "vbscript/objects/native_object.h"
#include "vbscript/objects/recordset/record_cursor.h"

namespace vbscript {

// `ADODB.Recordset` without a database behind it: a list of records in memory that scripts fill,
// sort, filter and walk. Shared by the values that hold it. Members throw what `RecordCursor`
// throws.
class Recordset final : public NativeObject {
  public:
    Value fields() const;
    Value field(Arguments& arguments);
    Value let_field(Arguments& arguments);

    Value open(Arguments& arguments);
    Value close();
    Value state() const;

    Value add_new(Arguments& arguments);
    Value update(Arguments& arguments);
    Value cancel_update();
    Value remove(Arguments& arguments);
    Value edit_mode() const;

    Value move(Arguments& arguments);
    Value move_first();
    Value move_last();
    Value move_next();
    Value move_previous();
    Value at_begin() const;
    Value at_end() const;
    Value record_count() const;
    Value absolute_position() const;
    Value let_absolute_position(Arguments& arguments);
    Value bookmark() const;
    Value let_bookmark(Arguments& arguments);

    Value sort() const;
    Value let_sort(Arguments& arguments);
    Value filter() const;
    Value let_filter(Arguments& arguments);
    Value find(Arguments& arguments);
    Value get_rows(Arguments& arguments);
    Value get_string(Arguments& arguments);
    Value supports(Arguments& arguments);

    Value active_connection() const;
    Value let_active_connection(Arguments& arguments);
    Value cursor_location() const;
    Value let_cursor_location(Arguments& arguments);
    Value cursor_type() const;
    Value let_cursor_type(Arguments& arguments);
    Value lock_type() const;
    Value let_lock_type(Arguments& arguments);

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    void set_values(Context& context, const Value& names, const Value& values);
    void let_setting(std::int32_t& setting, Arguments& arguments);

    // Goes to where argument `index` tells an operation to begin: a bookmark, or 1 and 2 for the
    // first and the last record.
    void move_to_start(Arguments& arguments, std::size_t index);
    [[nodiscard]] std::vector<std::size_t> columns_of(Arguments& arguments, std::size_t index);

    Ref<RecordCursor> cursor_ = make<RecordCursor>();
    Value filter_ = Value(std::int32_t{0});
    std::u16string sort_;

    // What scripts set for databases; kept, and without effect here.
    std::int32_t cursor_location_ = 2;
    std::int32_t cursor_type_ = 0;
    std::int32_t lock_type_ = 1;
};

}  // namespace vbscript
