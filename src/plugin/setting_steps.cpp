#include "plugin/setting_steps.h"

#include <array>

#include "plugin/velora_utilities.h"

namespace plugin {

namespace {

using S = core::UtilitySettings;
using U = VeloraUtilities;

constexpr SettingKind text(std::string S::*field) {
    return TextKind{field};
}

constexpr SettingKind int16(std::int16_t S::*field, std::int16_t fallback) {
    return Int16Kind{field, fallback};
}

constexpr SettingKind int32(std::int32_t S::*field, std::int32_t fallback) {
    return Int32Kind{field, fallback};
}

constexpr SettingKind truth(bool S::*field, TruthForm form) {
    return TruthKind{field, form};
}

constexpr auto kEqualsOne = TruthForm::EqualsOne;
constexpr auto kNumeric = TruthForm::Numeric;
constexpr auto kGeneral = TruthForm::General;
constexpr auto kNumberIsOne = TruthForm::NumberIsOne;
constexpr auto kInt16NotZero = TruthForm::Int16NotZero;

// A step between keys.
constexpr SettingStep then(SettingRule rule) {
    return {"", "", rule};
}

constexpr auto kSteps = std::to_array<SettingStep>({
    {"LastPowerCycleHour", "-1", &U::take_last_power_cycle_hour},
    then(&U::make_temporary_folder),
    {"TCPServerOption", "0", text(&S::TCPServerOption)},
    {"StyleSheet", "", text(&S::StyleSheet)},
    {"Background", "", text(&S::Background)},
    {"ServerPort", "", text(&S::ServerPort)},
    then(&U::read_host_port),
    then(&U::choose_server),
    {"InsertModemCrLf", "1", truth(&S::InsertModemCrLf, kNumberIsOne)},
    {"CIDSentry", "0", truth(&S::CIDSentry, kNumberIsOne)},
    {"GenerateCIDEvent", "0", truth(&S::GenerateCIDEvent, kEqualsOne)},
    {"LogCID", "0", truth(&S::LogCID, kEqualsOne)},
    {"AcidCIDResponse", "0", truth(&S::AcidCIDResponse, kEqualsOne)},
    {"BrowserCIDResponse", "0", truth(&S::BrowserCIDResponse, kEqualsOne)},
    {"SoundCIDResponse", "0", truth(&S::SoundCIDResponse, kEqualsOne)},
    {"CIDCommPort", "", text(&S::CIDCommPort)},
    {"CIDPortString", "9600,n,8,1", text(&S::CIDPortString)},
    {"CIDModemInitString", "AT#CID=1", text(&S::CIDModemInitString)},
    {"CIDNamePrefix", "NAME =", text(&S::CIDNamePrefix)},
    {"CIDNumberPrefix", "NMBR =", text(&S::CIDNumberPrefix)},
    {"CIDEventGroup", "", text(&S::CIDEventGroup)},
    {"FriendsLocation", "", &U::take_friends_location},
    {"useFriends", "0", truth(&S::useFriends, kNumeric)},
    {"ExcludeHSPLocation", "0", truth(&S::ExcludeHSPLocation, kNumeric)},
    {"useHSPPhoneBook", "0", truth(&S::useHSPPhoneBook, kNumeric)},
    {"PushDelay", "5", int16(&S::PushDelay, 5)},
    {"HomeseerIP", "192.168.0.1", text(&S::HomeseerIP)},
    {"CIDLineNumber", "1", int16(&S::CIDLineNumber, 1)},
    {"UDPDelay", "", int32(&S::UDPDelay, 0)},
    {"PhJukeCommandPort", "1024", text(&S::PhJukeCommandPort)},
    {"StatusOnly", "0", truth(&S::StatusOnly, kGeneral)},
    {"DontRandomize", "0", truth(&S::DontRandomize, kNumeric)},
    {"LEDMotionTime", "", int32(&S::LEDMotionTime, 999999)},
    {"jpg", "1", truth(&S::jpg, kInt16NotZero)},
    {"gif", "1", truth(&S::gif, kInt16NotZero)},
    {"bmp", "0", truth(&S::bmp, kInt16NotZero)},
    {"IncludeHeaderLinks", "1", truth(&S::IncludeHeaderLinks, kInt16NotZero)},
    {"Wallpaper", "0", truth(&S::Wallpaper, kNumeric)},
    {"SleepMonitorInterval", "0", int16(&S::SleepMonitorInterval, 0)},
    {"AwakenOnMotion", "0", truth(&S::AwakenOnMotion, kNumeric)},
    {"StartSlildeshow", "0", truth(&S::StartSlildeshow, kNumeric)},
    {"SlideshowNoMotionTime", "0", int16(&S::SlideshowNoMotionTime, 0)},
    {"TextStyle", "Arial", text(&S::TextStyle)},
    {"TextFontSize", "7", text(&S::TextFontSize)},
    {"TextBackground", "Blue", text(&S::TextBackground)},
    {"TextForeground", "Yellow", text(&S::TextForeground)},
    {"LinksFile", "links_touchscreen.htm", text(&S::LinksFile)},
    {"Links", "links_touchscreen.htm", text(&S::Links)},
    {"ImageServer", "", text(&S::ImageServer)},
    {"ImagePath", "", &U::take_image_path},
    {"SlideshowPath", "", text(&S::SlideshowPath)},
    then(&U::validate_slideshow_path),
    {"SlideshowUpdateInterval", "20", &U::take_update_interval},
    {"MaxPixels", "100000", int32(&S::MaxPixels, 100000)},
    {"PowerCycleTime", "5", &U::take_power_cycle_time},
    {"PowerCycleInterval", "0", &U::take_power_cycle_interval},
    {"noResponseAction", "0", truth(&S::noResponseAction, kNumeric)},
    {"DefaultPushPage", "", &U::take_default_push_page},
    {"PowerUpTime", "75", &U::take_power_up_time},
    {"WindowsShare", "", &U::take_windows_share},
    {"FontColor", "white", text(&S::FontColor)},
    {"UseVeloraServer", "0", truth(&S::UseVeloraServer, kEqualsOne)},
    {"ShowSlides", "0", truth(&S::ShowSlides, kEqualsOne)},
    {"DebugLog", "0", &U::take_debug_log},
    {"CommandRetries", "", int16(&S::CommandRetries, 0)},
    then(&U::read_voice),
    {"Sounds", "", &U::take_sounds},
});

}  // namespace

std::span<const SettingStep> setting_steps() noexcept {
    return kSteps;
}

}  // namespace plugin
