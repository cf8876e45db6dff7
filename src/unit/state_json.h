#pragma once

#include <string>

#include "unit/appliance_state.h"
#include "unit/fault.h"

namespace unit {

enum class JsonLayout { OneLine, Indented };

// The state as a JSON object in UTF-8; bytes that are none are replaced by U+FFFD. What is not
// known is null: `last_sound` before the first sound, `seconds` of a file that is no RIFF WAV.
[[nodiscard]] std::string state_json(const ApplianceState& state, const Fault& fault,
                                     JsonLayout layout);

}  // namespace unit
