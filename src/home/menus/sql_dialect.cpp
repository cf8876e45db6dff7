#include "home/menus/sql_dialect.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "home/menus/sql_words.h"

namespace home {
namespace {

using automation::RunTimeError;

struct Renamed {
    std::string_view from;
    std::string_view to;
};

constexpr std::array<Renamed, 6> kFunctions{{{"len", "length"},
                                             {"mid", "substr"},
                                             {"ucase", "upper"},
                                             {"lcase", "lower"},
                                             {"isnull", "ifnull"},
                                             {"nz", "ifnull"}}};

// Behind these a SELECT has come to its end.
constexpr std::array<std::string_view, 3> kCompounds{"union", "except", "intersect"};

constexpr std::size_t kDateSize = 10;
constexpr std::size_t kTimeBegin = 11;

std::string two_digits(std::int64_t number) {
    const std::string digits = std::to_string(number);
    return digits.size() < 2 ? "0" + digits : digits;
}

// "2026-11-24 16:03:03"
std::string sortable(automation::DateTime moment) {
    using namespace std::chrono;
    const auto day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(floor<seconds>(moment - day));
    std::string text = std::to_string(static_cast<int>(date.year()));
    text.insert(0, 4 - std::min<std::size_t>(4, text.size()), '0');
    text.append("-").append(two_digits(static_cast<unsigned int>(date.month())));
    text.append("-").append(two_digits(static_cast<unsigned int>(date.day())));
    text.append(" ").append(two_digits(time.hours().count()));
    text.append(":").append(two_digits(time.minutes().count()));
    return text.append(":").append(two_digits(time.seconds().count()));
}

RunTimeError syntax_error(const std::string& reason) {
    return {automation::ErrorNumber::InvalidProcedureCall,
            "Syntax error in the statement: " + reason};
}

class Rewriter {
  public:
    Rewriter(std::string_view statement, automation::DateTime now)
        : tokens_(sql_tokens(statement)), now_(sortable(now)) {}

    std::string rewritten() {
        open_.emplace_back();
        while (at_ < tokens_.size()) {
            step();
        }
        end_select();
        return std::move(text_);
    }

  private:
    [[nodiscard]] bool is_word(std::size_t index, std::string_view word) const {
        return index < tokens_.size() && tokens_[index].kind == SqlKind::Word &&
               automation::equals_ignoring_case(tokens_[index].text, word);
    }

    [[nodiscard]] bool is_symbol(std::size_t index, char symbol) const {
        return index < tokens_.size() && tokens_[index].kind == SqlKind::Symbol &&
               tokens_[index].text.front() == symbol;
    }

    // The next token from `index` on that is no blank.
    [[nodiscard]] std::size_t behind_blanks(std::size_t index) const {
        while (index < tokens_.size() && tokens_[index].kind == SqlKind::Blank) {
            ++index;
        }
        return index;
    }

    void step() {
        const SqlToken& token = tokens_[at_];
        switch (token.kind) {
            case SqlKind::Word:
                step_word();
                return;
            case SqlKind::Date:
                text_.append("'").append(date_in(token.text)).append("'");
                break;
            case SqlKind::Symbol:
                step_symbol(token.text.front());
                break;
            default:
                text_ += token.text;
                break;
        }
        ++at_;
    }

    void step_symbol(char symbol) {
        if (symbol == '(') {
            open_.emplace_back();
        } else if (symbol == ';' && behind_blanks(at_ + 1) < tokens_.size()) {
            throw syntax_error("there is one at a time");
        } else if (symbol == ')' || symbol == ';') {
            end_select();
            if (symbol == ')' && open_.size() > 1) {
                open_.pop_back();
            }
        }
        text_ += symbol == '&' ? "||" : std::string(1, symbol);
    }

    // The limit of the SELECT that ends here.
    void end_select() {
        if (open_.back()) {
            text_.append(text_.ends_with(' ') ? "" : " ").append("LIMIT ").append(*open_.back());
            open_.back().reset();
        }
    }

    void step_word() {
        const std::string& word = tokens_[at_].text;
        const bool ends = std::ranges::any_of(
            kCompounds, [&](std::string_view each) { return is_word(at_, each); });
        if (ends) {
            end_select();
            text_ += text_.ends_with(' ') ? "" : " ";
        }
        if (is_symbol(behind_blanks(at_ + 1), '(') && step_function(word)) {
            return;
        }
        text_ += word;
        ++at_;
        if (is_word(at_ - 1, "select")) {
            take_top();
        } else if (is_word(at_ - 1, "delete") && is_symbol(behind_blanks(at_), '*')) {
            at_ = behind_blanks(at_) + 1;
        }
    }

    // True when the name, or the whole call, has been written.
    bool step_function(const std::string& name) {
        const std::size_t bracket = behind_blanks(at_ + 1);
        const std::size_t behind = behind_blanks(bracket + 1);
        if (is_symbol(behind, ')')) {
            if (const auto time = time_of(automation::to_lower(name))) {
                text_.append("'").append(*time).append("'");
                at_ = behind + 1;
                return true;
            }
        }
        for (const Renamed& function : kFunctions) {
            if (automation::equals_ignoring_case(function.from, name)) {
                text_ += function.to;
                ++at_;
                return true;
            }
        }
        return false;
    }

    [[nodiscard]] std::optional<std::string> time_of(const std::string& function) const {
        if (function == "now" || function == "getdate") {
            return now_;
        }
        if (function == "date") {
            return now_.substr(0, kDateSize);
        }
        return function == "time" ? std::optional(now_.substr(kTimeBegin)) : std::nullopt;
    }

    // Behind SELECT: "DISTINCT TOP 5" or "TOP (5)".
    void take_top() {
        std::size_t next = behind_blanks(at_);
        if (is_word(next, "distinct")) {
            text_ += " DISTINCT";
            at_ = next + 1;
            next = behind_blanks(at_);
        }
        if (!is_word(next, "top")) {
            return;
        }
        next = behind_blanks(next + 1);
        const bool in_brackets = is_symbol(next, '(');
        next = in_brackets ? behind_blanks(next + 1) : next;
        if (next >= tokens_.size() || !automation::is_numeric(tokens_[next].text)) {
            throw syntax_error("Top without a number");
        }
        open_.back() = tokens_[next].text;
        next = in_brackets ? behind_blanks(next + 1) + 1 : next + 1;
        if (is_word(behind_blanks(next), "percent")) {
            throw syntax_error("Top n Percent is not supported");
        }
        at_ = next;
    }

    static std::string date_in(const std::string& text) {
        const auto date = automation::parse_date(text);
        if (!date) {
            throw syntax_error("no date in #" + text + "#");
        }
        return sortable(automation::date_time_of(*date));
    }

    std::vector<SqlToken> tokens_;
    std::string now_;
    std::size_t at_ = 0;
    std::string text_;
    std::vector<std::optional<std::string>> open_;  // the limit within each open bracket
};

}  // namespace

std::string in_sqlite_words(std::string_view statement, automation::DateTime now) {
    return Rewriter(statement, now).rewritten();
}

}  // namespace home
