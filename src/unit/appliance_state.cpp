#include "unit/appliance_state.h"

#include <array>
#include <utility>

namespace unit {
namespace {

constexpr std::array<std::string_view, 3> kPowerTexts{"off", "booting", "on"};
constexpr std::array<std::string_view, 3> kLedTexts{"off", "on", "blink"};

}  // namespace

void power_up(ApplianceState& state) {
    ApplianceState fresh;
    fresh.name = std::move(state.name);
    fresh.requests = state.requests;
    state = std::move(fresh);
}

void power_down(ApplianceState& state, Power power) {
    power_up(state);
    state.power = power;
    state.awake = false;
    state.backlight = false;
    state.full_screen = false;
}

std::string_view to_text(Power power) noexcept {
    return kPowerTexts[static_cast<std::size_t>(power)];
}

std::string_view to_text(Led led) noexcept {
    return kLedTexts[static_cast<std::size_t>(led)];
}

}  // namespace unit
