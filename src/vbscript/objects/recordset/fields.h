#pragma once

#include "vbscript/objects/native_object.h"
#include "vbscript/objects/recordset/record_cursor.h"

namespace vbscript {

// `Fields`: the columns of a record set. Shared by the values that hold it, as a Field is.
class Fields final : public NativeObject {
  public:
    explicit Fields(Ref<RecordCursor> cursor) noexcept : cursor_(std::move(cursor)) {}

    [[nodiscard]] std::unique_ptr<Enumerator> enumerate(Context& context) override;

    Value append(Arguments& arguments);
    Value count() const;
    Value item(Arguments& arguments);
    Value refresh() const;
    Value remove(Arguments& arguments);

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    Ref<RecordCursor> cursor_;
};

// `Field`: one column, with its value in the current record.
class Field final : public NativeObject {
  public:
    Field(Ref<RecordCursor> cursor, std::size_t column) noexcept
        : cursor_(std::move(cursor)), column_(column) {}

    Value actual_size() const;
    Value attributes() const;
    Value defined_size() const;
    Value name() const;
    Value original_value() const;
    Value type() const;
    Value value() const;
    Value let_value(Arguments& arguments);

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    // Throws: ScriptError 3265 once the column has gone.
    [[nodiscard]] const Column& column() const;

    Ref<RecordCursor> cursor_;
    std::size_t column_;
};

// The column that a script names by its name or its number from 0. Throws: ScriptError 3265.
[[nodiscard]] std::size_t column_of(Context& context, const RecordCursor& cursor,
                                    const Value& name_or_number);

}  // namespace vbscript
