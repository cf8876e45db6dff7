#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "core/utility_settings.h"

// How the text of a key becomes a field of the settings record. Every text has lost its double
// quotes before. "Numeric" means that the whole trimmed text is one number; fractions round to the
// nearest, ties to even.
namespace plugin {

struct TextKind {
    std::string core::UtilitySettings::*field;
};

// A text that is not numeric gives the fallback.
struct Int16Kind {
    std::int16_t core::UtilitySettings::*field;
    std::int16_t fallback = 0;
};

struct Int32Kind {
    std::int32_t core::UtilitySettings::*field;
    std::int32_t fallback = 0;
};

// The forms in which keys carry a truth value.
enum class TruthForm : std::uint8_t {
    EqualsOne,     // the text is "1"
    Numeric,       // numeric and not 0; any other text is false
    General,       // a number, "True" or "False"; any other text is an error
    NumberIsOne,   // a number, which is compared with 1; any other text is an error
    Int16NotZero,  // numeric and, as 16 bits, not 0; any other text is false
};

struct TruthKind {
    bool core::UtilitySettings::*field;
    TruthForm form;
};

using SettingKind = std::variant<TextKind, Int16Kind, Int32Kind, TruthKind>;

// Puts the text into the field. Throws: RunTimeError 6 or 13; the field then keeps its value.
void take_setting(const SettingKind& kind, const std::string& text,
                  core::UtilitySettings& settings);

[[nodiscard]] bool truth_of(TruthForm form, const std::string& text);

}  // namespace plugin
