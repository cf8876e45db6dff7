#include "pages/text_search.h"

#include <algorithm>

#include "automation/code_page.h"
#include "automation/run_time_error.h"

namespace pages {

namespace {

// From an index in a piece to a position in the text that the piece starts in.
std::size_t position(std::size_t index, std::size_t start) {
    return index == std::string_view::npos ? 0 : start + index;
}

}  // namespace

std::string_view from_position(std::string_view text, std::size_t from) {
    return text.substr(std::min(from - 1, text.size()));
}

std::size_t in_str(std::size_t from, std::string_view text, std::string_view part) {
    return position(from_position(text, from).find(part), from);
}

std::size_t in_str_any_case(std::size_t from, std::string_view text, std::string_view part) {
    return position(automation::find_ignoring_case(from_position(text, from), part), from);
}

std::string_view between(std::string_view text, std::size_t from, std::size_t end) {
    if (end < from) {
        throw automation::RunTimeError(automation::ErrorNumber::InvalidProcedureCall);
    }
    return from_position(text, from).substr(0, end - from);
}

}  // namespace pages
