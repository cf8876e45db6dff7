#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "plugin/setting_kinds.h"

namespace plugin {

class VeloraUtilities;

// What one step of the settings load does with the text of its key. A step without a key gets "".
using SettingRule = void (VeloraUtilities::*)(const std::string& text);

// One step of the settings load: a key of section "Velora Utilities" with its default and the field
// that it goes to, or with a rule of its own.
struct SettingStep {
    std::string_view key;
    std::string_view fallback;
    std::variant<SettingKind, SettingRule> target;
};

// All steps, in the order in which they run, so that later ones can use what earlier ones left.
[[nodiscard]] std::span<const SettingStep> setting_steps() noexcept;

}  // namespace plugin
