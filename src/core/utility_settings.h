#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace core {

inline constexpr std::size_t kSoundCount = 19;
inline constexpr std::size_t kSlideGroups = 3;
inline constexpr std::size_t kSlideRows = 5;

// One row of a slideshow group.
struct SlideRow {
    std::string SlideFile;         // as the user wrote it, without the dwell
    std::int16_t SlideDwell = 0;   // seconds
    std::int32_t SlideWidth = -1;  // pixels, -1 unknown
    std::int32_t SlideHeight = -1;
};

struct SlideGroupSettings {
    std::string GroupServer;
    std::string GroupFolder;
    std::array<SlideRow, kSlideRows> rows;
};

// The settings record: one field for each key of zynVeloraUtilities.ini, read directly by all
// subsystems, and what is derived from them. Filled at start-up and replaced by each reload; the
// values here are those before the first load.
struct UtilitySettings {
    // supervision
    std::int16_t LastPowerCycleHour = 0;
    std::int32_t LEDMotionTime = 0;         // seconds
    std::int16_t SleepMonitorInterval = 0;  // minutes
    bool AwakenOnMotion = false;
    bool StartSlildeshow = false;
    std::int16_t SlideshowNoMotionTime = 0;  // minutes
    std::int32_t PowerCycleTime = 0;         // milliseconds
    std::string PowerCycleInterval;          // hours, separated by commas
    bool noResponseAction = false;
    std::string DefaultPushPage;
    std::int32_t PowerUpTime = 0;  // milliseconds
    std::string WindowsShare;

    // web server and status page
    std::string TCPServerOption;
    std::string StyleSheet;
    std::string Background;
    std::string ServerPort;
    bool TCPDebug = false;
    bool UseOwnServer = false;
    std::string HomeseerIP;
    std::string HomeseerPort;
    std::string TempPath;
    bool StatusOnly = false;
    std::string FontColor;

    // callers
    bool InsertModemCrLf = false;
    bool CIDSentry = false;
    bool GenerateCIDEvent = false;
    bool LogCID = false;
    bool AcidCIDResponse = false;
    bool BrowserCIDResponse = false;
    bool SoundCIDResponse = false;
    std::string CIDCommPort;
    std::string CIDPortString;
    std::string CIDModemInitString;
    std::string CIDNamePrefix;
    std::string CIDNumberPrefix;
    std::string CIDEventGroup;
    std::string FriendsLocation;
    bool useFriends = false;
    bool ExcludeHSPLocation = false;
    bool useHSPPhoneBook = false;
    std::int16_t CIDLineNumber = 0;
    std::string CIDDeviceCode;

    // commands
    std::int16_t PushDelay = 0;  // seconds
    std::int32_t UDPDelay = 0;   // milliseconds
    std::string PhJukeCommandPort;
    bool UseVeloraServer = false;
    std::int16_t CommandRetries = 0;
    std::string T2WVoice;
    std::array<bool, kSoundCount> SoundButtonEnabled{};

    // pushed pages and slideshow
    bool DontRandomize = false;
    bool jpg = false;
    bool gif = false;
    bool bmp = false;
    bool IncludeHeaderLinks = false;
    bool Wallpaper = false;
    std::string TextStyle;
    std::string TextFontSize;
    std::string TextBackground;
    std::string TextForeground;
    std::string LinksFile;
    std::string Links;
    std::string ImageServer;
    std::string ImagePath;
    std::string SlideshowPath;
    std::string SlideshowUpdateInterval;      // as written
    std::int16_t SlideshowUpdateSeconds = 0;  // the same as a number
    std::int16_t SlideshowStaleMinutes = 0;
    std::int32_t MaxPixels = 0;
    bool ShowSlides = false;
    std::array<SlideGroupSettings, kSlideGroups> slide_groups;

    // Port of every URL that a unit is given: the own server's if it is in use, else the host's.
    [[nodiscard]] const std::string& unit_port() const noexcept {
        return UseOwnServer ? ServerPort : HomeseerPort;
    }
};

}  // namespace core
