#pragma once

#include <string>
#include <string_view>

namespace host {
struct Protection;
}

// What texts of the setup dialog may not hold where they are stored. Without the protection
// `settings_are_checked` all give the text as it stands.
namespace dialogs {

// A value: no control characters, no double quotes.
[[nodiscard]] std::string stored_value(const host::Protection& protection, std::string_view text);

// A field of a line of fields: besides, no commas and no "=".
[[nodiscard]] std::string stored_field(const host::Protection& protection, std::string_view text);

// A key, or a part of one: a field without blanks around it that does not look like a comment.
[[nodiscard]] std::string stored_key(const host::Protection& protection, std::string_view text);

}  // namespace dialogs
