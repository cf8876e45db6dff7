#include "pages/custom_header_calls.h"

#include <vector>

#include "automation/strings.h"
#include "pages/text_search.h"

namespace pages {

namespace {

constexpr std::size_t kArguments = 7;  // the last of them is the refresh

// Position of the ")" that belongs to the "(" at `open`, 0 without one.
std::size_t closing_bracket(std::string_view source, std::size_t open) {
    int depth = 0;
    for (std::size_t at = open; at <= source.size(); ++at) {
        const char character = source[at - 1];
        depth += character == '(' ? 1 : 0;
        depth -= character == ')' ? 1 : 0;
        if (depth == 0) {
            return at;
        }
    }
    return 0;
}

std::string with_refresh(std::string_view arguments, std::string_view seconds) {
    std::vector<std::string> list = automation::split(arguments, ',');
    const bool has_more = list.size() > kArguments;
    if (list.size() < kArguments) {
        if (!list.back().empty()) {
            list.back().pop_back();
        }
        list.resize(kArguments);
    }
    list[kArguments - 1] = std::string(seconds) + (has_more ? "" : ")");
    return automation::join(list, ",");
}

}  // namespace

RewrittenCalls rewrite_custom_header_calls(std::string source, std::string_view seconds) {
    RewrittenCalls result{.source = std::move(source)};
    std::size_t from = 1;
    while (true) {
        const std::size_t name = in_str_any_case(from, result.source, "CustomHeader");
        from = name > 0 ? in_str(name, result.source, "(") : 0;
        if (from == 0) {
            return result;
        }
        if (const std::size_t close = closing_bracket(result.source, from); close > 0) {
            const std::string arguments =
                with_refresh(between(result.source, from + 1, close), seconds);
            result.source.replace(from, close - from - 1, arguments);
            result.has_calls = true;
        }
    }
}

}  // namespace pages
