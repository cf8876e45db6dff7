#include "devices/status_table.h"

#include <algorithm>

#include "automation/run_time_error.h"

namespace devices {

namespace {

struct StatusRow {
    std::string_view command;
    std::string_view status;
    std::string_view image;
};

constexpr std::array<StatusRow, kStatusCount> kStatusRows{{
    {"Send to ACID", "Sent to ACID", "CID.gif"},
    {"Show CID", "Showed CID", "CID.gif"},
    {"TBD1", "TBD1", "noCID.gif"},
    {"TBD2", "TBD2", "noCID.gif"},
    {"Put to Sleep", "Sleeping", "Velora-off.gif"},
    {"Awaken", "Awake", "Velora-on.gif"},
    {"Awaken Forever", "Always Awake", "Velora-on.gif"},
    {"Power Cycle", "Power Cycle", "Velora-on.gif"},
    {"Turn Backlight Off", "Backlight Off", "BacklightOff.gif"},
    {"Turn Backlight On", "Backlight On", "BacklightOn.gif"},
    {"Turn Off Top LED", "Top LED Off", "TopLEDOff.gif"},
    {"Turn On Top LED", "Top LED On", "TopLEDOn.gif"},
    {"Blink Top LED", "Top LED Blinking", "TopLEDBlink.gif"},
    {"Turn Off Mail LED", "Mail LED Off", "MailLEDOff.gif"},
    {"Turn On Mail LED", "Mail LED On", "MailLEDOn.gif"},
    {"Blink Mail LED", "Mail LED Blinking", "MailLEDBlink.gif"},
    {"Show Browser Nav Buttons", "Browser Nav Buttons Showing", "BrowserNav.gif"},
    {"Hide Browser Nav Buttons", "Full Screen Browser", "BrowserFull.gif"},
    {"Play Cancel Sound", "Played Cancel Sound", "sound.gif"},
    {"Play Check Sound", "Played Check Sound", "sound.gif"},
    {"Play Copy Sound", "Played Copy Sound", "sound.gif"},
    {"Play Cut Sound", "Played Cut Sound", "sound.gif"},
    {"Play Delete Sound", "Played Delete Sound", "sound.gif"},
    {"Play Help Sound", "Played Help Sound", "sound.gif"},
    {"Play Major Sound", "Played Major Sound", "sound.gif"},
    {"Play Close Sound", "Played Close Sound", "sound.gif"},
    {"Play Open Sound", "Played Open Sound", "sound.gif"},
    {"Play High Sound", "Played High Sound", "sound.gif"},
    {"Play Low Sound", "Played Low Sound", "sound.gif"},
    {"Play Paste Sound", "Played Paste Sound", "sound.gif"},
    {"Play Print Sound", "Played Print Sound", "sound.gif"},
    {"Play Down Sound", "Played Down Sound", "sound.gif"},
    {"Play Up Sound", "Played Up Sound", "sound.gif"},
    {"Play Snap", "Played Snap", "sound.gif"},
    {"Play Warm Sound", "Played Warm Sound", "sound.gif"},
    {"Play Sleep Sound", "Played Sleep Sound", "sound.gif"},
    {"Play Wake Sound", "Played Wake Sound", "sound.gif"},
    {"Set Sounds Volume to 0%", "Sounds Volume at 0%", "level_1.gif"},
    {"Set Sounds Volume to 25%", "Sounds Volume at 25%", "level_3.gif"},
    {"Set Sounds Volume to 50%", "Sounds Volume at 50%", "level_5.gif"},
    {"Set Sounds Volume to 75%", "Sounds Volume at 75%", "level_7.gif"},
    {"Set Sounds Volume to 100%", "Sounds Volume at 100%", "level_10.gif"},
    {"Set Master Volume to 0%", "Master Volume at 0%", "level_1.gif"},
    {"Set Master Volume to 25%", "Master Volume at 25%", "level_3.gif"},
    {"Set Master Volume to 50%", "Master Volume at 50%", "level_5.gif"},
    {"Set Master Volume to 75%", "Master Volume at 75%", "level_7.gif"},
    {"Set Master Volume to 100%%", "Master Volume at 100%%", "level_10.gif"},
}};

const StatusRow& row_at(std::int16_t index) {
    if (index < 0 || static_cast<std::size_t>(index) >= kStatusCount) {
        throw automation::RunTimeError(automation::ErrorNumber::SubscriptOutOfRange);
    }
    return kStatusRows[static_cast<std::size_t>(index)];
}

}  // namespace

std::string_view DeviceCommands(std::int16_t index) {
    return row_at(index).command;
}

std::string_view DeviceStatus(std::int16_t index) {
    return row_at(index).status;
}

std::string_view DeviceImages(std::int16_t index) {
    return row_at(index).image;
}

SubDevice SubDeviceOfIndex(std::int16_t index) noexcept {
    const auto* const row = std::find_if(
        kSubDevices.begin(), kSubDevices.end(), [index](const SubDeviceRow& candidate) {
            return index >= candidate.first && index < candidate.first + candidate.count;
        });
    return row == kSubDevices.end() ? SubDevice::Reserved
                                    : static_cast<SubDevice>(row - kSubDevices.begin());
}

std::int16_t DetermineVolumeIcon(std::int32_t percent) noexcept {
    constexpr std::array<std::int32_t, 4> kUpperLimits{15, 35, 65, 85};
    const auto step = std::count_if(kUpperLimits.begin(), kUpperLimits.end(),
                                    [percent](std::int32_t limit) { return percent >= limit; });
    return static_cast<std::int16_t>(step);
}

}  // namespace devices
