#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "unit/appliance_state.h"

namespace unit {

// The command is carried out; `text` is the body text of the page that answers it.
struct Done {
    std::string text;
};

// The sound at `url` has to be fetched and played before the command is answered.
struct LoadSound {
    std::string url;
};

// The browser has to show `url`; the command is answered at once.
struct ShowPage {
    std::string url;
};

using CommandEffect = std::variant<Done, LoadSound, ShowPage>;

// Carries out one command page, such as "/led.shtml?t1", on the state. A blank in an argument may
// be raw, "+" or "%20". Gives nothing, and leaves the state alone, when there is no such page or
// when its argument is not one that it takes.
[[nodiscard]] std::optional<CommandEffect> apply_command(ApplianceState& state,
                                                         std::string_view target);

// Carries out a command of the client program: "TopLed", "MailLed" (on, off, blink), "Screen" (on,
// off) or "Beep" (a sound, 0 to 18). Leaves the state alone for any other word or parameter.
void apply_client_command(ApplianceState& state, std::string_view word, std::string_view parameter);

}  // namespace unit
