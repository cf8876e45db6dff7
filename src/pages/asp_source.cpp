#include "pages/asp_source.h"

#include <algorithm>

#include "automation/code_page.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "core/velora_log.h"
#include "pages/text_search.h"

namespace pages {

namespace {

constexpr std::string_view kIncludeEnd = "-->\r\n";
constexpr std::string_view kOpenStatement = "fs.add \"";

bool shows_something(std::string_view html) {
    const std::string text = automation::replace_all(html, kLineEnd, "");
    return text.find_first_not_of("\t ") != std::string::npos;
}

}  // namespace

void AspSource::ConvertToString(std::string_view html) {
    automation::guarded(log_, "ConvertToString  ", [&] { convert(html); });
}

void AspSource::convert(std::string_view html) {
    std::size_t from = 1;
    while (from <= html.size()) {
        const std::size_t start = in_str_any_case(from, html, "<!--#include");
        if (start == 0) {
            HTMLToCode(from_position(html, from));
            return;
        }
        if (start > from) {
            HTMLToCode(between(html, from, start));
        }
        const std::size_t found = in_str(start, html, kIncludeEnd);
        const std::size_t end = (found > 0 ? found : html.size()) + kIncludeEnd.size();
        CodeToCode(between(html, start, end));
        from = end;
    }
}

void AspSource::HTMLToCode(std::string_view html) {
    if (!body_started_ && shows_something(html)) {
        WriteFunctionHead();
    }
    const std::string literal = automation::replace_all(html, "\"", "\"\"");
    const std::string next_statement = "\"\r\n" + std::string(kOpenStatement);
    text_.Add(kOpenStatement);
    text_.Add(automation::replace_all(literal, kLineEnd, next_statement));
    text_.Add("\"");
}

void AspSource::CodeToCode(std::string_view code) {
    text_.Add(automation::replace_ignoring_case(code, "response.write", "fs.add"));
}

void AspSource::WriteFunctionHead() {
    if (header_done_) {
        return;
    }
    header_done_ = true;
    text_.Add("\r\nDim fs\r\nFunction ");
    text_.Add(function_);
    text_.Add("()\r\nSet fs = New FastString\r\n");
}

void AspSource::WriteFunctionTail() {
    if (footer_done_) {
        return;
    }
    footer_done_ = true;
    text_.Add("\r\n");
    text_.Add(function_);
    text_.Add(" = fs.value\r\nSet fs = Nothing\r\nend Function\r\n");
}

}  // namespace pages
