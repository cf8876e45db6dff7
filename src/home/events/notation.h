#pragma once

#include <string>
#include <string_view>

#include "home/events/event.h"

namespace home {

// Triggers and actions as a person writes and reads them, one line each. Words are read without
// regard to case and printed in the form below; what is printed reads back as the same.
//
//     at 07:30                    each day in this minute
//     every 5 minutes             1 to 1440
//     device [11                  value or status of the device change
//     device [11 = 1              ... to this number, word of its values, or on | off
//     x10 B2 on                   somebody has sent this; on | off | any
//     phone 1                     a call on this line
//
//     script &hs.Plugin("zynVelora").VeloraSpeak "", "Good morning"
//     action Velora\2\2[11-Kitchen\2Turn Backlight On
//                                 \2 stands for the character with the code 2, \\ for a backslash
//     set [13 = 1                 a number or a word of the device's values; on | off for X10
//     press Play Copy Sound @ Kitchen Velora

// All throw RunTimeError 5 with a text that names the wrong word and what was wanted.
[[nodiscard]] Trigger parse_trigger(std::string_view line);
[[nodiscard]] Action parse_action(std::string_view line);

[[nodiscard]] std::string text_of(const Trigger& trigger);
[[nodiscard]] std::string text_of(const Action& action);

}  // namespace home
