#include "pages/asp_lines.h"

#include <algorithm>
#include <array>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "core/velora_log.h"
#include "pages/text_search.h"

namespace pages {

namespace {

// How the lines begin that may stand outside of the page's function.
constexpr std::array<std::string_view, 4> kDeclarations{"'", "const", "dim", "<!--"};

std::string cleaned(std::string_view line) {
    std::string text(line);
    std::erase(text, '\t');
    return automation::to_lower(automation::trim(text));
}

}  // namespace

std::size_t AspLines::GetLine(std::size_t position) {
    return automation::guarded(log_, "GetLine ", [&] { return read(position); });
}

std::size_t AspLines::read(std::size_t position) {
    current_line_.clear();
    if (code_.empty()) {
        return 1;
    }
    const std::size_t start = line_start(position);
    if (start > code_.size()) {
        return start;
    }
    const std::size_t end = in_str(start, code_, kLineEnd);
    if (end == 0) {
        current_line_ = cleaned(code_);
        return code_.size() + 1;
    }
    current_line_ = cleaned(between(code_, start, end));
    return end + kLineEnd.size();
}

// Behind the line ends at a position.
std::size_t AspLines::line_start(std::size_t position) const {
    while (from_position(code_, position).starts_with(kLineEnd)) {
        position += kLineEnd.size();
    }
    return position;
}

bool AspLines::is_statement() const {
    return !current_line_.empty() && std::ranges::none_of(kDeclarations, [this](auto word) {
        return current_line_.starts_with(word);
    });
}

std::size_t AspLines::first_statement() {
    std::size_t position = 1;
    while (position > 0 && position <= code_.size()) {
        const std::size_t start = line_start(position);
        position = GetLine(start);
        if (is_statement()) {
            return start;
        }
    }
    return 0;
}

}  // namespace pages
