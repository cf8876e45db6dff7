#include "vbscript/objects/pattern_syntax.h"

#include <array>
#include <cstdint>
#include <limits>
#include <optional>

#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

constexpr char16_t kLastAscii = 0x7F;
constexpr std::uint32_t kMostRepeats = 65535;  // of the library

[[nodiscard]] constexpr bool is_digit(char16_t unit) noexcept {
    return unit >= u'0' && unit <= u'9';
}

[[nodiscard]] constexpr bool is_octal_digit(char16_t unit) noexcept {
    return unit >= u'0' && unit <= u'7';
}

[[nodiscard]] constexpr bool is_letter(char16_t unit) noexcept {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

[[nodiscard]] constexpr std::optional<unsigned> hex_digit(char16_t unit) noexcept {
    if (is_digit(unit)) {
        return unit - u'0';
    }
    if (unit >= u'a' && unit <= u'f') {
        return unit - u'a' + 10U;
    }
    if (unit >= u'A' && unit <= u'F') {
        return unit - u'A' + 10U;
    }
    return std::nullopt;
}

// A class such as `\d`, as the library's own and spelled out for a place between brackets.
struct NamedClass {
    char16_t letter;
    std::u16string_view own;
    std::u16string_view spelled;
    std::u16string_view spelled_opposite;
};

constexpr auto kNamedClasses = std::to_array<NamedClass>({
    {u'd', u"\\d", u"0-9", u"\\x{0}-\\x{2f}\\x{3a}-\\x{ffff}"},
    {u'w', u"\\w", u"0-9A-Z_a-z",
     u"\\x{0}-\\x{2f}\\x{3a}-\\x{40}\\x{5b}-\\x{5e}\\x{60}\\x{7b}-\\x{ffff}"},
    {u's', u"\\s", u"\\x{9}-\\x{d}\\x{20}", u"\\x{0}-\\x{8}\\x{e}-\\x{1f}\\x{21}-\\x{ffff}"},
});

constexpr std::u16string_view kWordEdge =
    u"(?:(?<=[0-9A-Z_a-z])(?![0-9A-Z_a-z])|(?<![0-9A-Z_a-z])(?=[0-9A-Z_a-z]))";
constexpr std::u16string_view kNoWordEdge =
    u"(?:(?<=[0-9A-Z_a-z])(?=[0-9A-Z_a-z])|(?<![0-9A-Z_a-z])(?![0-9A-Z_a-z]))";

struct ControlEscape {
    char16_t letter;
    char16_t unit;
};

constexpr auto kControlEscapes = std::to_array<ControlEscape>({
    {u'f', u'\f'},
    {u'n', u'\n'},
    {u'r', u'\r'},
    {u't', u'\t'},
    {u'v', u'\v'},
});

[[nodiscard]] bool has_backreference(std::u16string_view pattern) noexcept {
    for (std::size_t i = 0; i + 1 < pattern.size(); ++i) {
        if (pattern[i] != u'\\') {
            continue;
        }
        if (pattern[i + 1] >= u'1' && pattern[i + 1] <= u'9') {
            return true;
        }
        ++i;
    }
    return false;
}

[[nodiscard]] bool has_letters_beyond_ascii(std::u16string_view pattern) noexcept {
    for (const char16_t unit : pattern) {
        if (unit > kLastAscii) {
            return true;
        }
    }
    return pattern.find(u"\\u") != std::u16string_view::npos ||
           pattern.find(u"\\x") != std::u16string_view::npos;
}

// Reads a pattern once from left to right. What can follow a piece depends on whether it may be
// repeated, so that is all the state there is beside the open groups.
class Translator {
  public:
    Translator(std::u16string_view pattern, bool ignore_case, bool multi_line)
        : pattern_(pattern), multi_line_(multi_line) {
        result_.needs_unicode_case =
            ignore_case && (has_letters_beyond_ascii(pattern) || has_backreference(pattern));
        result_.text.reserve(pattern.size() * 2);
    }

    [[nodiscard]] TranslatedPattern translate() {
        while (place_ < pattern_.size()) {
            translate_piece();
        }
        if (open_groups_ > 0) {
            fail(ErrorNumber::ExpectedParenthesisInRegularExpression);
        }
        return std::move(result_);
    }

  private:
    [[noreturn]] static void fail(ErrorNumber number) { throw ScriptError(number); }

    [[noreturn]] static void fail() { fail(ErrorNumber::SyntaxErrorInRegularExpression); }

    // --- reading ---------------------------------------------------------------------------------

    [[nodiscard]] bool at_end() const noexcept { return place_ >= pattern_.size(); }

    // The unit so many places ahead; 0 behind the end, which no syntax asks for.
    [[nodiscard]] char16_t peek(std::size_t ahead = 0) const noexcept {
        return place_ + ahead < pattern_.size() ? pattern_[place_ + ahead] : u'\0';
    }

    [[nodiscard]] char16_t take() noexcept { return pattern_[place_++]; }

    [[nodiscard]] bool take(std::u16string_view text) noexcept {
        if (!pattern_.substr(place_).starts_with(text)) {
            return false;
        }
        place_ += text.size();
        return true;
    }

    // --- writing ---------------------------------------------------------------------------------

    void emit(std::u16string_view text) { result_.text += text; }

    void emit_number(std::uint32_t number) {
        const std::string digits = std::to_string(number);
        result_.text.append(digits.begin(), digits.end());
    }

    // Plain everywhere, also between brackets.
    void emit_literal(char16_t unit) {
        if (is_letter(unit) || is_digit(unit) || unit > kLastAscii) {
            result_.text += unit;
            return;
        }
        constexpr std::u16string_view kDigits = u"0123456789abcdef";
        emit(u"\\x{");
        result_.text += kDigits[unit >> 4U];
        result_.text += kDigits[unit & 0xFU];
        emit(u"}");
    }

    void emit_target(std::u16string_view text) {
        emit(text);
        can_repeat_ = true;
    }

    void emit_assertion(std::u16string_view text) {
        emit(text);
        can_repeat_ = false;
    }

    // --- pieces ----------------------------------------------------------------------------------

    void translate_piece() {
        const char16_t unit = take();
        switch (unit) {
            case u'\\':
                return translate_escape();
            case u'[':
                return translate_class();
            case u'(':
                return open_group();
            case u')':
                return close_group();
            case u'|':
                return emit_assertion(u"|");
            case u'^':
                return emit_assertion(multi_line_ ? u"(?:^|(?<=[\\n\\r]))" : u"^");
            case u'$':
                return emit_assertion(multi_line_ ? u"(?=[\\n\\r]|\\z)" : u"\\z");
            case u'.':
                return emit_target(u"[^\\n]");
            case u'*':
            case u'+':
            case u'?':
                return emit_quantifier(std::u16string_view(&unit, 1));
            case u'{':
                if (translate_counts()) {
                    return;
                }
                break;
            default:
                break;
        }
        emit_literal(unit);
        can_repeat_ = true;
    }

    void emit_quantifier(std::u16string_view text) {
        if (!can_repeat_) {
            fail(ErrorNumber::UnexpectedQuantifier);
        }
        emit(text);
        if (take(u"?")) {
            emit(u"?");
        }
        can_repeat_ = false;
    }

    // "{2}", "{2,}", "{2,5}" behind the bracket; anything else is plain text.
    [[nodiscard]] bool translate_counts() {
        const std::size_t start = place_;
        const auto least = take_number();
        bool has_comma = false;
        std::optional<std::uint32_t> most = least;
        if (least && take(u",")) {
            has_comma = true;
            most = take_number();
        }
        if (!least || !take(u"}")) {
            place_ = start;
            return false;
        }
        if (*least > kMostRepeats || (most && *most < *least)) {
            fail();
        }
        std::u16string text = u"{";
        append_number(text, *least);
        if (has_comma) {
            text += u',';
        }
        if (has_comma && most && *most <= kMostRepeats) {
            append_number(text, *most);
        }
        emit_quantifier(text + u"}");
        return true;
    }

    [[nodiscard]] std::optional<std::uint32_t> take_number() noexcept {
        if (!is_digit(peek())) {
            return std::nullopt;
        }
        constexpr std::uint32_t kEnough = kMostRepeats + 1;
        std::uint32_t number = 0;
        while (is_digit(peek())) {
            number = std::min<std::uint32_t>(kEnough, number * 10 + (take() - u'0'));
        }
        return number;
    }

    static void append_number(std::u16string& text, std::uint32_t number) {
        const std::string digits = std::to_string(number);
        text.append(digits.begin(), digits.end());
    }

    void open_group() {
        for (const std::u16string_view kind : {u"?:", u"?=", u"?!"}) {
            if (take(kind)) {
                emit(u"(");
                emit(kind);
                return group_opened();
            }
        }
        emit(u"(");
        ++result_.groups;
        group_opened();
    }

    void group_opened() noexcept {
        ++open_groups_;
        can_repeat_ = false;
    }

    void close_group() {
        if (open_groups_ == 0) {
            fail();
        }
        --open_groups_;
        emit_target(u")");
    }

    // --- escapes ---------------------------------------------------------------------------------

    void translate_escape() {
        if (at_end()) {
            fail();
        }
        const char16_t letter = peek();
        if (letter == u'b' || letter == u'B') {
            ++place_;
            return emit_assertion(word_edge(letter));
        }
        if (const NamedClass* named = find_class(letter)) {
            ++place_;
            return emit_target(class_text(*named, letter));
        }
        if (const auto group = take_backreference()) {
            emit(u"\\g{");
            emit_number(*group);
            return emit_target(u"}");
        }
        emit_literal(take_escaped_unit());
        can_repeat_ = true;
    }

    [[nodiscard]] std::u16string_view word_edge(char16_t letter) const noexcept {
        if (result_.needs_unicode_case) {
            return letter == u'b' ? kWordEdge : kNoWordEdge;
        }
        return letter == u'b' ? u"\\b" : u"\\B";
    }

    [[nodiscard]] static const NamedClass* find_class(char16_t letter) noexcept {
        for (const NamedClass& row : kNamedClasses) {
            if (letter == row.letter || letter == row.letter - (u'a' - u'A')) {
                return &row;
            }
        }
        return nullptr;
    }

    [[nodiscard]] std::u16string class_text(const NamedClass& named, char16_t letter) const {
        const bool opposite = letter != named.letter;
        std::u16string text;
        if (result_.needs_unicode_case) {
            text.append(opposite ? u"[^" : u"[").append(named.spelled).append(u"]");
        } else {
            text.append(u"\\").append(1, letter);
        }
        return text;
    }

    // The number behind a backslash that leads to a group on its left; the longest that does.
    [[nodiscard]] std::optional<std::uint32_t> take_backreference() noexcept {
        if (!is_digit(peek()) || peek() == u'0') {
            return std::nullopt;
        }
        const std::uint32_t first = peek() - u'0';
        const std::uint32_t both = is_digit(peek(1)) ? first * 10 + (peek(1) - u'0') : 0;
        if (both != 0 && both <= result_.groups) {
            place_ += 2;
            return both;
        }
        if (first > result_.groups) {
            return std::nullopt;
        }
        ++place_;
        return first;
    }

    // The unit that an escape stands for, between brackets and outside.
    [[nodiscard]] char16_t take_escaped_unit() noexcept {
        const char16_t letter = take();
        if (is_octal_digit(letter)) {
            return take_octal(letter);
        }
        for (const ControlEscape& row : kControlEscapes) {
            if (letter == row.letter) {
                return row.unit;
            }
        }
        constexpr char16_t kControlBits = 0x1F;
        if (letter == u'c' && is_letter(peek())) {
            return static_cast<char16_t>(take() & kControlBits);
        }
        if (letter == u'x') {
            return take_hex(2).value_or(letter);
        }
        if (letter == u'u') {
            return take_hex(4).value_or(letter);
        }
        return letter;
    }

    // Up to three octal digits that make a byte.
    [[nodiscard]] char16_t take_octal(char16_t first) noexcept {
        unsigned number = first - u'0';
        const int more = first <= u'3' ? 2 : 1;
        for (int i = 0; i < more && is_octal_digit(peek()); ++i) {
            number = number * 8 + (take() - u'0');
        }
        return static_cast<char16_t>(number);
    }

    [[nodiscard]] std::optional<char16_t> take_hex(std::size_t count) noexcept {
        unsigned number = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const auto digit = hex_digit(peek(i));
            if (!digit) {
                return std::nullopt;
            }
            number = number * 16 + *digit;
        }
        place_ += count;
        return static_cast<char16_t>(number);
    }

    // --- classes ---------------------------------------------------------------------------------

    void translate_class() {
        const bool negated = take(u"^");
        if (take(u"]")) {
            return emit_target(negated ? u"(?:[\\n]|[^\\n])" : u"(?!)");
        }
        emit(negated ? u"[^" : u"[");
        while (peek() != u']' || at_end()) {
            if (at_end()) {
                fail(ErrorNumber::ExpectedBracketInRegularExpression);
            }
            translate_class_part();
        }
        ++place_;
        emit_target(u"]");
    }

    // One unit, one range or one class such as `\d`. A hyphen beside such a class is plain.
    void translate_class_part() {
        const auto first = take_class_unit();
        if (!first || peek() != u'-' || peek(1) == u']' || place_ + 1 >= pattern_.size()) {
            if (first) {
                emit_literal(*first);
            }
            return;
        }
        ++place_;
        const std::size_t range_end = result_.text.size();
        const auto last = take_class_unit();
        if (!last) {
            std::u16string named = result_.text.substr(range_end);
            result_.text.resize(range_end);
            emit_literal(*first);
            emit_literal(u'-');
            return emit(named);
        }
        if (*last < *first) {
            fail(ErrorNumber::InvalidRangeInCharacterSet);
        }
        emit_literal(*first);
        emit(u"-");
        emit_literal(*last);
    }

    // Absent when it was a class such as `\d`, which is written then.
    [[nodiscard]] std::optional<char16_t> take_class_unit() {
        const char16_t unit = take();
        if (unit != u'\\') {
            return unit;
        }
        if (at_end()) {
            fail(ErrorNumber::ExpectedBracketInRegularExpression);
        }
        if (take(u"b")) {
            return u'\b';
        }
        if (const NamedClass* named = find_class(peek())) {
            emit(take() == named->letter ? named->spelled : named->spelled_opposite);
            return std::nullopt;
        }
        return take_escaped_unit();
    }

    std::u16string_view pattern_;
    std::size_t place_ = 0;
    std::size_t open_groups_ = 0;
    bool multi_line_;
    bool can_repeat_ = false;
    TranslatedPattern result_;
};

}  // namespace

TranslatedPattern translate_pattern(std::u16string_view pattern, bool ignore_case,
                                    bool multi_line) {
    return Translator(pattern, ignore_case, multi_line).translate();
}

}  // namespace vbscript
