#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vbscript {

// A pattern in the words of the matching library.
struct TranslatedPattern {
    std::u16string text;
    std::size_t groups = 0;  // that capture

    // Letters beyond ASCII compare without regard to case, which changes what the library's own
    // classes mean; the text is free of them then.
    bool needs_unicode_case = false;
};

// Translates a pattern of the language, whose syntax is its own: `\d`, `\w`, `\s` and `\b` are of
// ASCII, `$` is the very end, lines end at either of CR and LF, `[^]` is anything, and there is
// nothing of named groups, look-behind, possessive or atomic matching and inline options.
// Throws: ScriptError 5017 (syntax), 5018 (quantifier without a target), 5019 (class without an
// end), 5020 (group without an end), 5021 (range that runs backwards).
[[nodiscard]] TranslatedPattern translate_pattern(std::u16string_view pattern, bool ignore_case,
                                                  bool multi_line);

}  // namespace vbscript
