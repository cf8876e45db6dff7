#include "fleet/device_commands.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "appliance/caller_display.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "devices/status_board.h"
#include "devices/status_table.h"
#include "fleet/fleet.h"

namespace fleet {

namespace {

using appliance::CallerDisplay;
using appliance::Velora;
using devices::SubDevice;
using Services = DeviceCommands::Services;

constexpr std::int16_t kSetValueCommand = 19;
constexpr std::int16_t kPercentPerStep = 25;  // of a volume

// --- one rule for each of a unit's devices -------------------------------------------------------

// The word of a value; "" for a value that the device does not have.
std::string word_of(std::span<const std::string_view> words, std::int16_t value) {
    const bool is_known = value >= 0 && static_cast<std::size_t>(value) < words.size();
    return is_known ? std::string(words[static_cast<std::size_t>(value)]) : std::string();
}

constexpr std::array<std::string_view, 3> kSleepWords{"sleep", "awake", "always awake"};
constexpr std::array<std::string_view, 2> kBacklightWords{"off", "on"};
constexpr std::array<std::string_view, 3> kLedWords{"off", "on", "blink"};

void set_display(Services& services, Velora& unit, std::int16_t value) {
    constexpr std::int16_t kSendToClient = 0;
    constexpr std::int16_t kShowCaller = 1;
    if (value == kSendToClient) {
        const std::string caller =
            services.caller_display.MessageCIDEvent(CallerDisplay::Datagram::ToClients, unit.IP());
        services.status_board.show_value(unit.device_code(SubDevice::Display), kSendToClient,
                                         caller);
    } else if (value == kShowCaller) {
        services.caller_display.CID(unit);
    }
}

void set_awake(Services& /*services*/, Velora& unit, std::int16_t value) {
    constexpr std::int16_t kPowerCycle = 3;
    if (value == kPowerCycle) {
        unit.CyclePower("");
    } else if (const std::string word = word_of(kSleepWords, value); !word.empty()) {
        unit.set_Sleep(word);
    }
}

void set_backlight(Services& /*services*/, Velora& unit, std::int16_t value) {
    if (const std::string word = word_of(kBacklightWords, value); !word.empty()) {
        unit.SetBacklight(word, "");
    }
}

void set_top_led(Services& /*services*/, Velora& unit, std::int16_t value) {
    if (const std::string word = word_of(kLedWords, value); !word.empty()) {
        unit.SetTopLED(word, "");
    }
}

void set_mail_led(Services& /*services*/, Velora& unit, std::int16_t value) {
    if (const std::string word = word_of(kLedWords, value); !word.empty()) {
        unit.SetMailLED(word, "");
    }
}

void set_browser(Services& /*services*/, Velora& unit, std::int16_t value) {
    if (value == 0 || value == 1) {
        unit.SetBrowserScreen(value == 1, "");
    }
}

// The value is the sound's place among those that have a button.
void play_sound(Services& services, Velora& unit, std::int16_t value) {
    const auto& enabled = services.instance.settings.SoundButtonEnabled;
    std::int16_t place = 0;
    for (std::size_t sound = 0; sound < enabled.size(); ++sound) {
        if (!enabled[sound]) {
            continue;
        }
        if (place == value) {
            unit.SetSounds(static_cast<std::int16_t>(sound), "");
            return;
        }
        ++place;
    }
}

void set_sounds_volume(Services& /*services*/, Velora& unit, std::int16_t value) {
    unit.SetSoundsVolume(automation::multiply_int16(value, kPercentPerStep), "");
}

void set_volume(Services& /*services*/, Velora& unit, std::int16_t value) {
    unit.SetVolume(automation::multiply_int16(value, kPercentPerStep), "");
}

void show_queue(Services& /*services*/, Velora& unit, std::int16_t /*value*/) {
    unit.ShowQueue();
}

using Rule = void (*)(Services& services, Velora& unit, std::int16_t value);

// By the device's offset from the first of its unit.
constexpr std::array<Rule, devices::kSubDeviceCount> kRules{
    &set_display, &set_awake,  &set_backlight,     &set_top_led, &set_mail_led,
    &set_browser, &play_sound, &set_sounds_volume, &set_volume,
    &show_queue,  // Reserved
};

// --- whose device it is --------------------------------------------------------------------------

// 0 for a unit without devices.
double first_device(const Appliance& appliance) {
    return appliance.VeloraDC.empty()
               ? 0
               : automation::numeric_prefix(std::string_view(appliance.VeloraDC).substr(1));
}

struct Block {
    double first = 0;  // 0: none
    std::shared_ptr<Velora> unit;
};

// The block with the highest first number that does not lie behind the device. The house code of
// the block is not looked at.
Block block_of(const Fleet& fleet, std::int16_t device) {
    Block found;
    for (const Appliance& appliance : fleet.table()) {
        const double first = first_device(appliance);
        if (first > found.first && first <= device) {
            found = {first, appliance.unit};
        }
    }
    return found;
}

}  // namespace

void DeviceCommands::SetVeloraIO(const std::string& house_code, const std::string& device_code,
                                 std::int16_t command, std::int16_t brightness) {
    core::Instance& instance = services_.instance;
    automation::guarded(instance.log, "SetVeloraIO: ", [&] {
        instance.log.debug([&] {
            return "SetVeloraIO Initialization Complete=" +
                   automation::text_of(instance.StartupReady);
        });
        if (house_code != instance.HouseCode || !instance.StartupReady) {
            return;
        }
        const std::int16_t device = automation::to_int16(device_code);
        const Block block = block_of(services_.fleet, device);
        instance.log.debug([&] {
            return "SetVeloraIO Lowest/Highest=" + automation::text_of(block.first) + "," +
                   std::to_string(device);
        });
        if (block.unit == nullptr || command != kSetValueCommand) {
            return;
        }
        const auto offset = static_cast<std::size_t>(device - block.first);
        if (offset < kRules.size()) {
            kRules[offset](services_, *block.unit, brightness);
        }
    });
}

}  // namespace fleet
