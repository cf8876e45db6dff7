#include "home/asp/asp_marks.h"

#include <algorithm>
#include <optional>

#include "automation/code_page.h"

namespace home {
namespace {

constexpr std::string_view kOpen = "<%";
constexpr std::string_view kClose = "%>";
constexpr std::string_view kComment = "<!--";
constexpr std::string_view kCommentEnd = "-->";
constexpr std::string_view kBlanks = " \t\r\n";

void skip_blanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
}

// Takes the word from the start of the text, whatever its case.
bool take(std::string_view& text, std::string_view word) {
    if (!automation::equals_ignoring_case(text.substr(0, word.size()), word)) {
        return false;
    }
    text.remove_prefix(word.size());
    return true;
}

// `="name"`, with either kind of quotes.
std::optional<std::string_view> take_quoted(std::string_view& text) {
    skip_blanks(text);
    if (!take(text, "=")) {
        return std::nullopt;
    }
    skip_blanks(text);
    if (text.empty() || (text.front() != '"' && text.front() != '\'')) {
        return std::nullopt;
    }
    const std::size_t end = text.find(text.front(), 1);
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view value = text.substr(1, end - 1);
    text.remove_prefix(end + 1);
    return value;
}

AspMark code_mark(std::string_view text, std::size_t begin) {
    AspMark mark{.kind = AspMarkKind::Code, .begin = begin};
    std::size_t content = begin + kOpen.size();
    if (text.substr(content).starts_with('=')) {
        mark.kind = AspMarkKind::Expression;
        ++content;
    } else if (text.substr(content).starts_with('@')) {
        mark.kind = AspMarkKind::Directive;
        ++content;
    }
    const std::size_t close = text.find(kClose, content);
    if (close != std::string_view::npos) {
        mark.end = close + kClose.size();
        mark.content = text.substr(content, close - content);
    }
    return mark;
}

// The include that a comment is; absent for one that says something else.
std::optional<AspMark> include_mark(std::string_view text, std::size_t begin) {
    std::string_view rest = text.substr(begin + kComment.size());
    skip_blanks(rest);
    if (!take(rest, "#include")) {
        return std::nullopt;
    }
    skip_blanks(rest);
    AspMark mark{.kind = AspMarkKind::IncludeFile, .begin = begin};
    if (take(rest, "virtual")) {
        mark.kind = AspMarkKind::IncludeVirtual;
    } else if (!take(rest, "file")) {
        return std::nullopt;
    }
    const auto name = take_quoted(rest);
    if (!name) {
        return mark;
    }
    mark.content = *name;
    const std::size_t close = rest.find(kCommentEnd);
    if (close != std::string_view::npos) {
        mark.end = static_cast<std::size_t>(rest.data() - text.data()) + close + kCommentEnd.size();
    }
    return mark;
}

}  // namespace

AspMark next_mark(std::string_view text, std::size_t from) {
    const std::size_t code = text.find(kOpen, from);
    for (std::size_t comment = text.find(kComment, from); comment < code;
         comment = text.find(kComment, comment + 1)) {
        if (const auto mark = include_mark(text, comment)) {
            return *mark;
        }
    }
    return code == std::string_view::npos ? AspMark() : code_mark(text, code);
}

std::string attribute(std::string_view directive, std::string_view name) {
    const std::size_t begin = automation::find_ignoring_case(directive, name);
    if (begin == std::string_view::npos) {
        return "";
    }
    std::string_view rest = directive.substr(begin + name.size());
    if (const auto quoted = take_quoted(rest)) {
        return automation::to_lower(*quoted);
    }
    skip_blanks(rest);
    take(rest, "=");
    skip_blanks(rest);
    return automation::to_lower(rest.substr(0, rest.find_first_of(kBlanks)));
}

}  // namespace home
