#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "vbscript/objects/recordset/column.h"

namespace vbscript {

// What `Filter` and `Find` ask of a record: "age >= 18 AND (name LIKE 'a*' OR name = 'Bo')".
// Texts stand between single quotes, which a doubled one stands for, dates between number signs in
// the form of the United States; `Null` compares by = and <>. Texts compare without regard to case.
class Criteria {
  public:
    // Throws: ScriptError 3001 for what is none, 3265 for an unknown column.
    Criteria(std::u16string_view text, const std::vector<Column>& columns);

    // Whether a record with these values, one for each column, is asked for.
    [[nodiscard]] bool accept(const std::vector<Column>& columns,
                              const std::vector<Value>& values) const;

    enum class Comparison : std::uint8_t {
        Less,
        LessOrEqual,
        NotEqual,
        Greater,
        GreaterOrEqual,
        Equal,
        Like,
    };

    struct Clause {
        std::size_t column = 0;
        Comparison comparison = Comparison::Equal;
        Value value;  // of the column's kind, a text for `Like`
    };

  private:
    // Any of the groups, in each of which all clauses and inner criteria hold.
    struct Term {
        Clause clause;
        std::vector<Criteria> inner;  // one in place of the clause, or none
    };

    friend class CriteriaParser;
    Criteria() = default;

    std::vector<std::vector<Term>> groups_;
};

}  // namespace vbscript
