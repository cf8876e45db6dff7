#include <algorithm>

#include "fuzz/expect.h"
#include "vbscript/control/source_text.h"
#include "vbscript/syntax/parser.h"

// Any bytes as a script file: a tree, or an error that names a place in the text.
namespace {

std::size_t lines_of(std::u16string_view source) {
    std::size_t lines = 1;
    for (std::size_t index = 0; index < source.size(); ++index) {
        const bool ends_line = source[index] == u'\n' ||
                               (source[index] == u'\r' && source.substr(index + 1, 1) != u"\n");
        lines += ends_line ? 1 : 0;
    }
    return lines;
}

void expect_place(const vbscript::SyntaxError& error, std::u16string_view source) {
    fuzz::expect(error.line() >= 1 && error.line() <= lines_of(source),
                 "the line of an error is one of the source");
    fuzz::expect(source.find(error.source_line()) != std::u16string_view::npos,
                 "the text of an error stands in the source");
    fuzz::expect(error.column() >= 1 && error.column() <= error.source_line().size() + 1,
                 "the column of an error lies in its line or at its end");
    fuzz::expect(!error.description().empty(), "an error has a text");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string source = vbscript::source_text(fuzz::as_text(data, size));
    for (const bool may_use_me : {false, true}) {
        try {
            (void)vbscript::parse(source, {.may_use_me = may_use_me});
        } catch (const vbscript::SyntaxError& error) {
            expect_place(error, source);
        }
    }
    try {
        (void)vbscript::parse_expression(source);
    } catch (const vbscript::SyntaxError& error) {
        expect_place(error, source);
    }
    return 0;
}
