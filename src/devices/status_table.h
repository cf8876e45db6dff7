#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

// The words and pictures of a unit's ten devices. All tables share one status index, 0 to 46.
namespace devices {

inline constexpr std::size_t kSubDeviceCount = 10;
inline constexpr std::size_t kStatusCount = 47;

// Sub-devices by their offset from the unit's first device number.
enum class SubDevice : std::uint8_t {
    Display,
    Awake,
    Backlight,
    TopLed,
    MailLed,
    Browser,
    Sounds,
    SoundsVolume,
    Volume,
    Reserved,
};

struct SubDeviceRow {
    std::string_view name;   // a device is called "Velora " and this word
    std::int16_t first = 0;  // first status index
    std::int16_t count = 0;  // statuses, which are also the device's values 0, 1, ...
};

inline constexpr std::array<SubDeviceRow, kSubDeviceCount> kSubDevices{{
    {"Display", 0, 4},
    {"Awake", 4, 4},
    {"Backlight", 8, 2},
    {"Top LED", 10, 3},
    {"Mail LED", 13, 3},
    {"Browser", 16, 2},
    {"Sounds", 18, 19},
    {"Sounds Volume", 37, 5},
    {"Volume", 42, 5},
    {"Reserved", 0, 0},
}};

// Status indexes that code names.
inline constexpr std::int16_t kStatusSleeping = 4;
inline constexpr std::int16_t kStatusBacklightOff = 8;
inline constexpr std::int16_t kStatusBacklightOn = 9;
inline constexpr std::int16_t kStatusTopLedOff = 10;
inline constexpr std::int16_t kStatusMailLedOff = 13;
inline constexpr std::int16_t kStatusNavButtons = 16;
inline constexpr std::int16_t kStatusFullScreen = 17;
inline constexpr std::int16_t kStatusFirstSound = 18;
inline constexpr std::int16_t kStatusSoundsVolume = 37;
inline constexpr std::int16_t kStatusVolume = 42;

// What a button says, what the device shows, and its picture.
// Throws: RunTimeError 9 for an index outside the table.
[[nodiscard]] std::string_view DeviceCommands(std::int16_t index);
[[nodiscard]] std::string_view DeviceStatus(std::int16_t index);
[[nodiscard]] std::string_view DeviceImages(std::int16_t index);

// The sub-device that an index belongs to; Reserved for an index outside the table.
[[nodiscard]] SubDevice SubDeviceOfIndex(std::int16_t index) noexcept;

// Step of a volume picture, 0 to 4, for a volume in percent.
[[nodiscard]] std::int16_t DetermineVolumeIcon(std::int32_t percent) noexcept;

}  // namespace devices
