#include "vbscript/objects/recordset/criteria.h"

#include <algorithm>
#include <array>
#include <string>

#include "vbscript/objects/object_errors.h"
#include "vbscript/value/convert.h"
#include "vbscript/value/date_parts.h"
#include "vbscript/value/locale.h"

namespace vbscript {
namespace {

using Comparison = Criteria::Comparison;

struct ComparisonSign {
    std::u16string_view sign;
    Comparison comparison;
};

// Longer signs first.
constexpr auto kSigns = std::to_array<ComparisonSign>({
    {u"<=", Comparison::LessOrEqual},
    {u">=", Comparison::GreaterOrEqual},
    {u"<>", Comparison::NotEqual},
    {u"<", Comparison::Less},
    {u">", Comparison::Greater},
    {u"=", Comparison::Equal},
});

[[noreturn]] void fail() {
    throw object_error(ObjectError::WrongArgument);
}

[[nodiscard]] bool is_blank(char16_t unit) noexcept {
    return unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n';
}

[[nodiscard]] bool is_any_run(char16_t unit) noexcept {
    return unit == u'*' || unit == u'%';
}

// '*' and '%' stand for any characters.
[[nodiscard]] bool is_like(std::u16string_view text, std::u16string_view pattern) noexcept {
    constexpr auto kNone = std::u16string_view::npos;
    std::size_t at = 0;
    std::size_t in_pattern = 0;
    std::size_t run = kNone;
    std::size_t run_at = 0;
    while (at < text.size()) {
        if (in_pattern < pattern.size() && is_any_run(pattern[in_pattern])) {
            run = in_pattern++;
            run_at = at;
        } else if (in_pattern < pattern.size() &&
                   to_lower(pattern[in_pattern]) == to_lower(text[at])) {
            ++in_pattern;
            ++at;
        } else if (run != kNone) {
            in_pattern = run + 1;
            at = ++run_at;
        } else {
            return false;
        }
    }
    return std::ranges::all_of(pattern.substr(in_pattern), is_any_run);
}

// A value as it is written.
struct Literal {
    enum class Form : std::uint8_t { Text, Date, Bare };

    Form form = Form::Bare;
    std::u16string text;
};

[[nodiscard]] const Locale& united_states() noexcept {
    return locales().front();
}

[[nodiscard]] Value number_in(const Literal& literal) {
    if (equals_ignoring_case(literal.text, u"true")) {
        return Value(-1.0);
    }
    if (equals_ignoring_case(literal.text, u"false")) {
        return Value(0.0);
    }
    const auto number = parse_number(united_states(), literal.text);
    if (!number) {
        fail();
    }
    return Value(*number);
}

[[nodiscard]] Value date_in(const Literal& literal) {
    const auto date = parse_date(united_states(), literal.text, 0);
    if (!date) {
        fail();
    }
    return Value(*date);
}

[[nodiscard]] Value value_in(const Literal& literal, ColumnKind kind) {
    if (literal.form == Literal::Form::Bare && equals_ignoring_case(literal.text, u"null")) {
        return kNull;
    }
    if (kind == ColumnKind::Text) {
        return Value(literal.text);
    }
    if (kind == ColumnKind::Date || literal.form == Literal::Form::Date) {
        return date_in(literal);
    }
    if (kind == ColumnKind::Any && literal.form == Literal::Form::Text) {
        return Value(literal.text);
    }
    return number_in(literal);
}

[[nodiscard]] bool is_nothing(const Value& value) noexcept {
    return value.is(Type::Null) || value.is(Type::Empty);
}

[[nodiscard]] bool accepts_null(Comparison comparison, bool is_null) noexcept {
    if (comparison == Comparison::Equal) {
        return is_null;
    }
    return comparison == Comparison::NotEqual && !is_null;
}

[[nodiscard]] bool holds(const Criteria::Clause& clause, ColumnKind kind, const Value& value) {
    if (is_nothing(clause.value)) {
        return accepts_null(clause.comparison, is_nothing(value));
    }
    if (is_nothing(value)) {
        return false;
    }
    if (clause.comparison == Comparison::Like) {
        return value.is(Type::String) && is_like(value.units(), clause.value.units());
    }
    const int order = compare_in_column(kind, value, clause.value);
    switch (clause.comparison) {
        case Comparison::Less:
            return order < 0;
        case Comparison::LessOrEqual:
            return order <= 0;
        case Comparison::NotEqual:
            return order != 0;
        case Comparison::Greater:
            return order > 0;
        case Comparison::GreaterOrEqual:
            return order >= 0;
        default:
            return order == 0;
    }
}

}  // namespace

// Reads criteria from left to right; AND binds before OR.
class CriteriaParser {
  public:
    CriteriaParser(std::u16string_view text, const std::vector<Column>& columns) noexcept
        : text_(text), columns_(columns) {}

    [[nodiscard]] Criteria parse() {
        Criteria criteria = any_of(0);
        skip_blanks();
        if (place_ != text_.size()) {
            fail();
        }
        return criteria;
    }

  private:
    static constexpr int kDeepest = 100;

    [[nodiscard]] Criteria any_of(int depth) {
        if (depth > kDeepest) {
            fail();
        }
        Criteria criteria;
        do {
            std::vector<Criteria::Term>& group = criteria.groups_.emplace_back();
            do {
                group.push_back(term(depth));
            } while (take_word(u"AND"));
        } while (take_word(u"OR"));
        return criteria;
    }

    [[nodiscard]] Criteria::Term term(int depth) {
        Criteria::Term term;
        if (!take(u"(")) {
            term.clause = clause();
            return term;
        }
        term.inner.push_back(any_of(depth + 1));
        if (!take(u")")) {
            fail();
        }
        return term;
    }

    [[nodiscard]] Criteria::Clause clause() {
        Criteria::Clause clause;
        clause.column = column();
        clause.comparison = comparison();
        const Literal written = literal();
        const bool is_pattern = clause.comparison == Comparison::Like;
        clause.value =
            is_pattern ? Value(written.text) : value_in(written, columns_[clause.column].kind);
        return clause;
    }

    [[nodiscard]] std::size_t column() {
        const std::u16string_view name =
            take(u"[") ? take_up_to(u']') : take_while_not(u" \t\r\n<>=()");
        const auto row = std::ranges::find_if(columns_, [&](const Column& column) {
            return equals_ignoring_case(column.name, name);
        });
        if (name.empty()) {
            fail();
        }
        if (row == columns_.end()) {
            throw object_error(ObjectError::ItemNotInCollection);
        }
        return static_cast<std::size_t>(row - columns_.begin());
    }

    [[nodiscard]] Comparison comparison() {
        if (take_word(u"LIKE")) {
            return Comparison::Like;
        }
        for (const ComparisonSign& row : kSigns) {
            if (take(row.sign)) {
                return row.comparison;
            }
        }
        fail();
    }

    [[nodiscard]] Literal literal() {
        if (take(u"#")) {
            return {Literal::Form::Date, std::u16string(take_up_to(u'#'))};
        }
        if (!take(u"'")) {
            const std::u16string_view text = take_while_not(u" \t\r\n()");
            if (text.empty()) {
                fail();
            }
            return {Literal::Form::Bare, std::u16string(text)};
        }
        Literal literal{Literal::Form::Text, std::u16string(take_up_to(u'\''))};
        while (place_ < text_.size() && text_[place_] == u'\'') {
            ++place_;
            literal.text.append(u"'").append(take_up_to(u'\''));
        }
        return literal;
    }

    void skip_blanks() noexcept {
        while (place_ < text_.size() && is_blank(text_[place_])) {
            ++place_;
        }
    }

    [[nodiscard]] bool take(std::u16string_view sign) noexcept {
        skip_blanks();
        if (!text_.substr(place_).starts_with(sign)) {
            return false;
        }
        place_ += sign.size();
        return true;
    }

    [[nodiscard]] bool take_word(std::u16string_view word) noexcept {
        skip_blanks();
        const std::u16string_view rest = text_.substr(place_);
        if (!equals_ignoring_case(rest.substr(0, word.size()), word)) {
            return false;
        }
        if (rest.size() > word.size()) {
            const char16_t next = rest[word.size()];
            if (!is_blank(next) && next != u'(' && next != u'\'' && next != u'#') {
                return false;
            }
        }
        place_ += word.size();
        return true;
    }

    // Without the unit itself, which is passed.
    [[nodiscard]] std::u16string_view take_up_to(char16_t unit) {
        const std::size_t end = text_.find(unit, place_);
        if (end == std::u16string_view::npos) {
            fail();
        }
        const std::u16string_view taken = text_.substr(place_, end - place_);
        place_ = end + 1;
        return taken;
    }

    [[nodiscard]] std::u16string_view take_while_not(std::u16string_view ends) noexcept {
        skip_blanks();
        const std::size_t end = std::min(text_.find_first_of(ends, place_), text_.size());
        const std::u16string_view taken = text_.substr(place_, end - place_);
        place_ = end;
        return taken;
    }

    std::u16string_view text_;
    const std::vector<Column>& columns_;
    std::size_t place_ = 0;
};

Criteria::Criteria(std::u16string_view text, const std::vector<Column>& columns)
    : Criteria(CriteriaParser(text, columns).parse()) {}

bool Criteria::accept(const std::vector<Column>& columns, const std::vector<Value>& values) const {
    return std::ranges::any_of(groups_, [&](const std::vector<Term>& group) {
        return std::ranges::all_of(group, [&](const Term& term) {
            if (!term.inner.empty()) {
                return term.inner.front().accept(columns, values);
            }
            const std::size_t column = term.clause.column;
            return holds(term.clause, columns[column].kind, values[column]);
        });
    });
}

}  // namespace vbscript
