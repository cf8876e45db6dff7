#include "pages/asp_converter.h"

#include <algorithm>

#include "automation/code_page.h"
#include "automation/strings.h"
#include "core/velora_log.h"
#include "pages/asp_lines.h"
#include "pages/text_search.h"

namespace pages {

namespace {

constexpr std::string_view kOpen = "<%";
constexpr std::string_view kClose = "%>";

// Where the page's own procedures begin, 0 without any.
std::size_t find_procedure(std::string_view code) {
    const std::size_t sub = in_str_any_case(1, code, "sub ");
    return sub > 0 ? sub : in_str_any_case(1, code, "function ");
}

}  // namespace

std::string asp_function_name(std::string_view page) {
    std::string name = automation::to_lower(page);
    std::erase_if(name, [](char character) {
        return std::string_view("\\.: ").find(character) != std::string_view::npos;
    });
    return "zynVelora" + name;
}

std::string AspConverter::convert(std::string_view page) {
    std::size_t from = 1;
    while (from < page.size()) {  // a single last character is not looked at (kept)
        const std::size_t open = in_str(from, page, kOpen);
        if (open == 0) {
            source_.ConvertToString(from_position(page, from));
            break;
        }
        source_.ConvertToString(between(page, from, open));
        const std::size_t found = in_str(open, page, kClose);
        const std::size_t close = found > 0 ? found : page.size();
        convert_block(between(page, open + kOpen.size(), close), {open, close});
        from = close + kClose.size();
    }
    if (!function_ended_) {
        source_.WriteFunctionTail();
    }
    return automation::replace_all(source_.text(), "fs.add \"\"", "");
}

void AspConverter::convert_block(std::string_view code, const Block& block) {
    if (!source_.BodyStarted()) {
        code = open_function(code);
    }
    if (!function_ended_) {
        close_function(code, block);
    }
    source_.CodeToCode(code);  // a block that has closed the function comes twice (kept)
}

// Writes what stands in front of the first statement and the function's head; gives the rest.
std::string_view AspConverter::open_function(std::string_view code) {
    const std::size_t statement = AspLines(log_, code).first_statement();
    if (statement == 0) {
        return code;
    }
    source_.CodeToCode(between(code, 1, statement));
    source_.WriteFunctionHead();
    source_.start_body();
    return from_position(code, statement);
}

void AspConverter::close_function(std::string_view code, const Block& block) {
    const std::size_t procedure = find_procedure(code);
    if (procedure == 0) {
        return;
    }
    // The word does not count in a comment. The marks are places of the page that are looked up in
    // the block, which ends in front of them, so that no comment is ever seen (kept).
    const bool follows_quote = code.substr(0, block.open).find('\'') != std::string_view::npos;
    const std::size_t comment_end = follows_quote ? in_str(block.close, code, kLineEnd) : 0;
    if (comment_end > 0 && comment_end < procedure) {
        return;
    }
    function_ended_ = true;
    source_.CodeToCode(between(code, 1, procedure));
    source_.WriteFunctionTail();
    source_.CodeToCode(from_position(code, procedure));
}

}  // namespace pages
