#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "app/json.h"

namespace app {

enum class FieldKind : std::uint8_t { Text, Check, Choice, Label, Button };

// One thing of the setup dialog that the keyboard can reach, or a label: a text box, a check box, a
// button, or a whole group of option buttons. Texts are in code page 1252.
struct SetupField {
    FieldKind kind = FieldKind::Text;
    std::string page;
    std::string name;
    std::size_t index = 0;
    std::size_t count = 1;  // places of its control array
    std::string caption;
    std::string text;
    bool value = false;
    std::vector<std::string> choices;
    std::size_t chosen = 0;  // the number of choices when none is
    bool is_group = false;   // its choices are option buttons, not texts
    std::string enabled_by;  // the field whose first choice enables it

    // "[ ] caption", "(*) one ( ) other", "Mary" and so on, as it stands on the screen.
    [[nodiscard]] std::string shown() const;

    // As a request sets it: the control's place and its text.
    [[nodiscard]] std::size_t set_index() const { return is_group ? chosen : index; }

    [[nodiscard]] std::string set_text() const;
};

// The fields of what the daemon answers to "setup", in its order.
[[nodiscard]] std::vector<SetupField> setup_fields(const Json& setup);

// What differs, as the daemon takes it to "setup_ok". Requires: the same fields in both.
[[nodiscard]] Json changes_between(const std::vector<SetupField>& before,
                                   const std::vector<SetupField>& now);

}  // namespace app
