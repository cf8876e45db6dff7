#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace home {

enum class AspMarkKind : std::uint8_t {
    None,            // only text follows
    Code,            // <% ... %>
    Expression,      // <%= ... %>
    Directive,       // <%@ ... %>
    IncludeFile,     // <!-- #include file="..." -->
    IncludeVirtual,  // <!-- #include virtual="..." -->
};

// The next thing in a page that is not its text.
struct AspMark {
    AspMarkKind kind = AspMarkKind::None;
    std::size_t begin = std::string_view::npos;  // of the mark
    std::size_t end = std::string_view::npos;    // behind it; npos when it is not closed
    std::string_view content = {};               // the script, or the name of the include
};

// Requires: `from` is at most the length of the text, which outlives the result.
[[nodiscard]] AspMark next_mark(std::string_view text, std::size_t from);

// The value of a directive's attribute in small letters, "" without one: of "LANGUAGE" in
// ` LANGUAGE="VBScript" ` "vbscript".
[[nodiscard]] std::string attribute(std::string_view directive, std::string_view name);

}  // namespace home
