#include "dialogs/setup_table.h"

#include <algorithm>

#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "devices/status_table.h"

namespace dialogs {

namespace {

using enum host::DialogControlKind;

constexpr auto kGeneral = Page::General;
constexpr auto kCaller = Page::CallerId;
constexpr auto kImages = Page::ImagesAndText;
constexpr auto kUnit = Page::ApplianceBehaviour;
constexpr auto kPower = Page::Power;
constexpr auto kSpeech = Page::Speech;
constexpr auto kUnits = Page::Units;
constexpr auto kSlides = Page::SlideGroups;
constexpr auto kQuoted = Quotes::With;

constexpr std::size_t kAllSlideRows = core::kSlideGroups * core::kSlideRows;

constexpr auto kRows = std::to_array<ControlRow>({
    {"aPhJukeCommandPort",
     1,
     Text,
     kGeneral,
     "Jukebox Port",
     {"PhJukeCommandPort", "1024", kQuoted}},
    {"aUDPDelay", 1, Text, kGeneral, "Milliseconds delay after UDP command", {"UDPDelay", ""}},
    {"aCommandRetries", 1, Text, kGeneral, "Command Retries", {"CommandRetries", ""}},
    {"aUseVeloraServer",
     1,
     Check,
     kGeneral,
     "Use Velora Server (UDP clients)",
     {"UseVeloraServer", "0", kQuoted}},
    {"aDebugLog", 1, Check, kGeneral, "Debug Log", {"DebugLog", "0", kQuoted}},
    {"aShowSlides", 1, Check, kGeneral, "Log Each Slide", {"ShowSlides", "0", kQuoted}},
    {"aTCPDebug", 1, Check, kGeneral, "Trace HTTP Server", {"TCPDebug", "0", kQuoted}},
    {"aTCPServerOption",
     2,
     Option,
     kGeneral,
     "Server Selection",
     {"TCPServerOption", "0", kQuoted}},
    {"aFontColor", 1, Text, kGeneral, "Font Color", {"FontColor", "white", kQuoted}},
    {"aPushDelay", 1, Text, kGeneral, "Seconds for Server to Respond", {"PushDelay", "5", kQuoted}},
    {"aHSIP", 1, Text, kGeneral, "Server IP", {"HomeseerIP", "192.168.0.1", kQuoted}},
    {"aMenu", 1, Check, kGeneral, "Include In Menu", {"inMenu", "1", kQuoted}},
    {"aStatusOnly", 1, Check, kGeneral, "Disable Control Buttons", {"StatusOnly", "0", kQuoted}},
    {"aServerPort", 1, Text, kGeneral, "Server Port", {"ServerPort", "", kQuoted}},
    {"aStyleSheet", 1, Text, kGeneral, "Style_Sheet", {"StyleSheet", "", kQuoted}},
    {"aBackground", 1, Text, kGeneral, "Back Color", {"Background", "", kQuoted}},

    {"aCIDSentry", 1, Check, kCaller, "Send to Clients That Are No Unit", {"CIDSentry", "0"}},
    {"aGenerateCIDEvent", 1, Check, kCaller, "Turn On Caller ID Device", {"GenerateCIDEvent", "0"}},
    {"aLogCID", 1, Check, kCaller, "Log Each Call", {"LogCID", "0"}},
    {"aAcidCIDResponse", 1, Check, kCaller, "Send to Clients on Units", {"AcidCIDResponse", "0"}},
    {"aBrowserCIDResponse", 1, Check, kCaller, "Show in Browser", {"BrowserCIDResponse", "0"}},
    {"aSoundCIDResponse", 1, Check, kCaller, "Speak or Play Caller", {"SoundCIDResponse", "0"}},
    {"aCIDCommPort", 1, Text, kCaller, "Comm Port", {"CIDCommPort", "", kQuoted}},
    {"aCIDPortString", 1, Text, kCaller, "Port Setup", {"CIDPortString", "9600,n,8,1"}},
    {"aCIDModemInitString", 1, Text, kCaller, "Modem Init", {"CIDModemInitString", "AT#CID=1"}},
    {"aCIDNamePrefix", 1, Text, kCaller, "Name Prefix", {"CIDNamePrefix", "NAME ="}},
    {"aCIDNumberPrefix", 1, Text, kCaller, "Number Prefix", {"CIDNumberPrefix", "NMBR ="}},
    {"aCIDEventGroup", 1, Text, kCaller, "Event Group Name", {"CIDEventGroup", ""}},
    {"aLineNumber", 1, Text, kCaller, "Line Number", {"CIDLineNumber", "1", kQuoted}},
    {"aUseHSPPhoneBook",
     1,
     Check,
     kCaller,
     "Homeseer Phone Address Book",
     {"UseHSPPhoneBook", "0"}},
    {"aUseFriends", 1, Check, kCaller, "Friends File in Folder", {"UseFriends", "0"}},
    {"aExcludeHSPLocation",
     1,
     Check,
     kCaller,
     "Names without Location",
     {"ExcludeHSPLocation", "0"}},
    {"aFriendsLocation", 1, Text, kCaller, "Folder of Friends File", {"FriendsLocation", ""}},
    {"aInsertModemCrLf",
     1,
     Check,
     kCaller,
     "Modem Leaves Last Line Open",
     {"InsertModemCrLf", "1"}},

    {"ajpg", 1, Check, kImages, "Include jpg", {"jpg", "1"}},
    {"agif", 1, Check, kImages, "Include gif", {"gif", "1"}},
    {"abmp", 1, Check, kImages, "Include bmp", {"bmp", "0"}},
    {"aTextForeground", 1, Text, kImages, "Fore Color", {"TextForeground", "Yellow"}},
    {"aTextBackground", 1, Text, kImages, "Back Color", {"TextBackground", "Blue"}},
    {"aTextFontSize", 1, Text, kImages, "Size", {"TextFontSize", "7"}},
    {"aTextStyle", 1, Text, kImages, "Face", {"TextStyle", "Arial"}},
    {"aMaxPixels", 1, Text, kImages, "Max Pixels in Image", {"MaxPixels", "100000"}},

    {"aLEDMotionTime", 1, Text, kUnit, "Turn off LEDs if Motion for (Secs)", {"LEDMotionTime", ""}},
    {"aSleepInterval",
     1,
     Text,
     kUnit,
     "Check for Sleep Mode Every (Mins)",
     {"SleepMonitorInterval", "0"}},
    {"aDontRandomize", 1, Check, kUnit, "Show Slides in Order", {"DontRandomize", "0"}},
    {"aAwakenOnMotion", 1, Check, kUnit, "Awaken on Motion", {"AwakenOnMotion", "0"}},
    {"aIncludeHeaderLinks",
     1,
     Check,
     kUnit,
     "Include Links in Text Pages",
     {"IncludeHeaderLinks", "1"}},
    {"aStartSlildeshow", 1, Check, kUnit, "Start Slideshow on Motion", {"StartSlildeshow", "0"}},
    {"aWallpaper", 1, Check, kUnit, "Show Slides as Wallpaper", {"Wallpaper", "0"}},
    {"aSlideshowNoMotionTime",
     1,
     Text,
     kUnit,
     "Stop Slideshow After no Motion for (Mins)",
     {"SlideshowNoMotionTime", "0"}},
    {"aLinksFile", 1, Text, kUnit, "Links File", {"LinksFile", "links_touchscreen.htm"}},
    {"aLinks",
     1,
     Text,
     kUnit,
     "Page when Exiting Slideshow (base=\\HTML)",
     {"Links", "links_touchscreen.htm"}},
    {"aImagePath", 1, Text, kUnit, "Folder Path to Slideshow Files", {"ImagePath", ""}},
    {"aImageServer", 1, Text, kUnit, "Server Path to Slideshow Files", {"ImageServer", ""}},
    {"aSlideshowPath", 1, Text, kUnit, "File Path to Slideshow Files", {"SlideshowPath", ""}},
    {"aUpdateInterval",
     1,
     Text,
     kUnit,
     "Change Slide Every (secs)",
     {"SlideshowUpdateInterval", "20"}},

    {"aPowerCycleTime",
     1,
     Text,
     kPower,
     "Seconds between power off and power on",
     {"PowerCycleTime", "5"}},
    {"aPowerCycleInterval",
     1,
     Text,
     kPower,
     "Power Cycle on Hours (comma separated)",
     {"PowerCycleInterval", "0"}},
    // Stored again with the page on which the interval once stood.
    {"aSleepInterval",
     1,
     Text,
     kUnit,
     "Check for Sleep Mode Every (Mins)",
     {"SleepMonitorInterval", "0"}},
    {"anoResponseAction",
     1,
     Check,
     kPower,
     "Power Cycle a Unit That Does Not Respond",
     {"noResponseAction", "0"}},
    {"aDefaultPushPage",
     1,
     Text,
     kPower,
     "Default Page After Power Cycle (\\HTML)",
     {"DefaultPushPage", ""}},
    {"aPowerUpTime", 1, Text, kPower, "Seconds after power cycle", {"PowerUpTime", "75"}},
    {"aWindowsShare",
     1,
     Text,
     kPower,
     "OR Wait for browser to appear on file share",
     {"WindowsShare", ""}},

    {"aVoiceCB", 1, Text, kSpeech, "TTS Voice", {"T2WVoice", "Microsoft Mary", kQuoted, "T2W"}},
    {"Check1", core::kSoundCount, Check, kSpeech, "Included Sound Bytes", {"Sounds", "", kQuoted}},
    {"aPlay", 1, Button, kSpeech, "Play Jukebox"},
    {"aStop", 1, Button, kSpeech, "Stop Jukebox"},

    {"aName", kUnitRows, Text, kUnits, "Location"},
    {"aIP", kUnitRows, Text, kUnits, "IP"},
    {"aComputer", kUnitRows, Text, kUnits, "Computer"},
    {"aDC", kUnitRows, Label, kUnits, "ID"},
    {"aPower", kUnitRows, Text, kUnits, "Power"},
    {"aMotion", kUnitRows, Text, kUnits, "Motion"},
    {"Option1", kSlideshowButtons, Option, kUnits, "Slide"},
    {"Option2", kSlideshowButtons, Option, kUnits, "Slide"},
    {"Option3", kSlideshowButtons, Option, kUnits, "Slide"},
    {"Option4", kSlideshowButtons, Option, kUnits, "Slide"},
    {"Option5", kSlideshowButtons, Option, kUnits, "Slide"},
    {"Option6", kSlideshowButtons, Option, kUnits, "Slide"},
    {"Option7", kSlideshowButtons, Option, kUnits, "Slide"},
    {"Option8", kSlideshowButtons, Option, kUnits, "Slide"},
    {"Option9", kSlideshowButtons, Option, kUnits, "Slide"},
    {"aDoCID", kUnitRows, Check, kUnits, "CID"},
    {"aX10Server", kUnitRows, Text, kUnits, "xAP Target Address for X10 Power"},

    {"aGroupSelect", core::kSlideGroups, Option, kSlides, "Slide Group"},
    {"aSlideASP", kAllSlideRows, Text, kSlides, "FilePath"},
    {"aDwell", kAllSlideRows, Text, kSlides, "Secs"},
    {"aServerPathGroup", core::kSlideGroups, Text, kSlides, "Server Path"},
    {"aFolderPathGroup", core::kSlideGroups, Text, kSlides, "Folder Path"},
});

constexpr std::array<std::string_view, 2> kServers{"Own HTTP Server", "Homeseer"};
constexpr std::array<std::string_view, kSlideshowButtons> kSlideshows{"None", "1", "2", "3"};

// "Cancel Sound" of "Play Cancel Sound".
std::string_view sound_name(std::size_t index) {
    constexpr std::string_view kPlay = "Play ";
    const auto status = static_cast<std::int16_t>(devices::kStatusFirstSound + index);
    return devices::DeviceCommands(status).substr(kPlay.size());
}

}  // namespace

std::span<const ControlRow> control_rows() noexcept {
    return kRows;
}

const ControlRow& control_row(std::string_view name) {
    const auto* const row = std::find_if(kRows.begin(), kRows.end(), [name](const ControlRow& r) {
        return automation::equals_ignoring_case(r.name, name);
    });
    if (row == kRows.end()) {
        throw automation::RunTimeError(automation::ErrorNumber::PropertyOrMethodNotSupported,
                                       "There is no control '" + std::string(name) + "'");
    }
    return *row;
}

std::string caption_of(const ControlRow& row, std::size_t index) {
    if (row.name == "Check1") {
        return std::string(sound_name(index));
    }
    if (row.kind != Option) {
        return std::string(row.caption);
    }
    if (row.name == "aTCPServerOption") {
        return std::string(kServers.at(index));
    }
    return row.name == "aGroupSelect" ? std::to_string(index + 1)
                                      : std::string(kSlideshows.at(index));
}

std::string slideshow_group_name(std::size_t unit_row) {
    return "Option" + std::to_string(unit_row + 1);
}

}  // namespace dialogs
