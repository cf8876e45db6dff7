#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// The setup sections of the status page as tables: one row is one field of the page, the control of
// the setup dialog that it shows, and how it is shown. What writes the page and what takes a form
// back both read these tables, so that page and dialog cannot disagree.
namespace status {

enum class FieldKind : std::uint8_t {
    Text,       // text box
    Check,      // check box
    CheckList,  // check boxes of a control array, each with its place behind the name
    Choice,     // radio buttons, one for each option button of a control array
    Shown,      // text of a control that the page does not change
};

struct SetupField {
    FieldKind kind = FieldKind::Text;
    std::string_view name;       // in the form
    int size = 0;                // of a text box, in characters
    std::string_view label{};    // in front of a text box; beside a check box in the place of the
                                 // control's own caption
    std::string_view words{};    // behind a text box
    std::string_view control{};  // "" for the name with an "a" in front
    bool is_taken_back = true;

    [[nodiscard]] std::string control_name() const {
        return control.empty() ? "a" + std::string(name) : std::string(control);
    }
};

// "IP3": the name of a field or control array with a place behind it.
[[nodiscard]] inline std::string numbered(std::string_view name, std::size_t number) {
    return std::string(name) + std::to_string(number);
}

struct SetupGroup {
    std::string_view title;
    std::span<const SetupField> fields;
};

struct SetupSection {
    std::string_view title;
    std::string_view add;     // name of the routine that writes it, for the log
    std::string_view update;  // of the one that takes it back
    std::span<const SetupGroup> groups;
};

// --- definitions --------------------------------------------------------------------------------

inline constexpr auto kDefinitionsMiscellaneous = std::to_array<SetupField>({
    {FieldKind::Text, "HSIP", 12, "Server IP"},
    {FieldKind::Text, "VoiceCB", 12, "TTS Voice"},
    {FieldKind::Text, "FontColor", 4, "Font Color"},
    {FieldKind::Text, "PushDelay", 2, "Seconds for Server to Respond"},
    {FieldKind::Check, "Menu", 0, "Include In Menu"},
    {FieldKind::Check, "StatusOnly", 0, "Disable Control Buttons"},
});

inline constexpr auto kDefinitionsSounds = std::to_array<SetupField>({
    {.kind = FieldKind::CheckList, .name = "Check1_", .control = "Check1"},
});

inline constexpr auto kDefinitionsPerformance = std::to_array<SetupField>({
    {FieldKind::Text, "CommandRetries", 2, "Command Retries"},
    {FieldKind::Check, "UseVeloraServer"},
    {FieldKind::Text, "UDPDelay", 2, "Add", "Milliseconds delay after UDP command"},
});

inline constexpr auto kDefinitionsServer = std::to_array<SetupField>({
    {FieldKind::Text, "ServerPort", 3, "Server Port"},
    {FieldKind::Text, "StyleSheet", 20, "Style_Sheet"},
    {FieldKind::Text, "Background", 12, "Back Color"},
});

inline constexpr auto kDefinitionsSelection = std::to_array<SetupField>({
    {FieldKind::Choice, "TCPServerOption"},
});

inline constexpr auto kDefinitionsDebug = std::to_array<SetupField>({
    {FieldKind::Check, "DebugLog"},
    {FieldKind::Check, "ShowSlides"},
    {FieldKind::Check, "TCPDebug"},
});

inline constexpr auto kDefinitionsGroups = std::to_array<SetupGroup>({
    {"Miscellaneous", kDefinitionsMiscellaneous},
    {"Included Sound Bytes", kDefinitionsSounds},
    {"Performance", kDefinitionsPerformance},
    {"HTTP Server", kDefinitionsServer},
    {"Server Selection", kDefinitionsSelection},
    {"Debug", kDefinitionsDebug},
});

inline constexpr SetupSection kDefinitions{"Definitions", "AddDefinitions", "UpdateDefinitions",
                                           kDefinitionsGroups};

// --- power --------------------------------------------------------------------------------------

// Two fields share a name: a form gives the first one's value for both (kept).
inline constexpr auto kPowerMiscellaneous = std::to_array<SetupField>({
    {FieldKind::Text, "PowerCycleInterval", 8, "Power Cycle on Hours (comma separated)"},
    {FieldKind::Text, "PowerCycleTime", 2, "Wait", "Seconds between power off and power on"},
    {FieldKind::Text, "SleepInterval", 2, "Check for Sleep Mode Every"},
    {FieldKind::Check, "noResponseAction"},
    {FieldKind::Text, "SleepInterval", 30, "Default Page After Power Cycle (\\HTML)", "",
     "aDefaultPushPage"},
});

inline constexpr auto kPowerResume = std::to_array<SetupField>({
    {FieldKind::Text, "PowerUpTime", 3, "Wait",
     "Seconds after power cycle  OR Wait for browser to appear on file share "},
    {FieldKind::Text, "WindowsShare", 60},
});

inline constexpr auto kPowerGroups = std::to_array<SetupGroup>({
    {"Miscellaneous", kPowerMiscellaneous},
    {"When to Resume After Power Cycle", kPowerResume},
});

inline constexpr SetupSection kPower{"Power", "AddPower", "AddPower", kPowerGroups};

// --- screen -------------------------------------------------------------------------------------

inline constexpr auto kScreenMotion = std::to_array<SetupField>({
    {FieldKind::Check, "AwakenOnMotion"},
    {FieldKind::Text, "SlideshowNoMotionTime", 3, "Stop Slideshow After no Motion for", "Mins"},
    {FieldKind::Check, "StartSlildeshow"},
    {FieldKind::Text, "LEDMotionTime", 3, "Turn off LEDs if Motion for", "Secs"},
});

inline constexpr auto kScreenText = std::to_array<SetupField>({
    {FieldKind::Text, "TextStyle", 4, "Face"},
    {FieldKind::Text, "TextForeground", 4, "Fore Color"},
    {FieldKind::Text, "TextBackground", 4, "Back Color"},
    {FieldKind::Text, "TextFontSize", 4, "Size"},
    {FieldKind::Check, "IncludeHeaderLinks"},
    {FieldKind::Text, "LinksFile", 20, "Links File"},
});

inline constexpr auto kScreenResizing = std::to_array<SetupField>({
    {FieldKind::Text, "MaxPixels", 8, "Max Pixels in Image"},
});

inline constexpr auto kScreenSlideshow = std::to_array<SetupField>({
    {FieldKind::Text, "SlideshowPath", 60, "File Path to Slideshow Files"},
    {FieldKind::Text, "ImagePath", 60, "Folder Path to Slideshow Files"},
    {FieldKind::Text, "ImageServer", 60, "Server Path to Slideshow Files"},
    {FieldKind::Check, "jpg", 0, "Include jpg"},
    {FieldKind::Check, "gif", 0, "Include gif"},
    {FieldKind::Check, "bmp", 0, "Include bmp"},
    {FieldKind::Check, "Wallpaper"},
    {FieldKind::Check, "DontRandomize"},
    {FieldKind::Text, "UpdateInterval", 4, "Change Slide Every", "secs"},
    {FieldKind::Text, "Links", 40, "Page when Exiting Slideshow (base=\\HTML)"},
});

inline constexpr auto kScreenGroups = std::to_array<SetupGroup>({
    {"Motion", kScreenMotion},
    {"Text", kScreenText},
    {"Slide Image Resizing", kScreenResizing},
    {"Slideshow", kScreenSlideshow},
});

inline constexpr SetupSection kScreen{"Screen", "AddScreen", "UpdateScreen", kScreenGroups};

// --- callers ------------------------------------------------------------------------------------

inline constexpr auto kCallerPhone = std::to_array<SetupField>({
    {FieldKind::Text, "LineNumber", 2, "Line Number"},
    {FieldKind::Text, "CIDEventGroup", 40, "Event Group Name"},
});

inline constexpr auto kCallerSerial = std::to_array<SetupField>({
    {FieldKind::Text, "CIDCommPort", 2, "Comm Port"},
    {FieldKind::Text, "CIDPortString", 10, "Port Setup"},
    {FieldKind::Text, "CIDModemInitString", 15, "Modem Init"},
    {FieldKind::Text, "CIDNamePrefix", 6, "Name Prefix"},
    {FieldKind::Text, "CIDNumberPrefix", 6, "Number Prefix"},
    {FieldKind::Check, "InsertModemCrLf"},
});

inline constexpr auto kCallerResponse = std::to_array<SetupField>({
    {FieldKind::Check, "AcidCIDResponse"},
    {FieldKind::Check, "CIDSentry"},
    {FieldKind::Check, "BrowserCIDResponse"},
    {FieldKind::Check, "SoundCIDResponse"},
    {FieldKind::Check, "GenerateCIDEvent"},
    {FieldKind::Check, "LogCID"},
});

// The place of the friends file is shown and not taken back (kept).
inline constexpr auto kCallerSources = std::to_array<SetupField>({
    {FieldKind::Check, "UseHSPPhoneBook"},
    {FieldKind::Check, "ExcludeHSPLocation"},
    {FieldKind::Check, "UseFriends"},
    {.kind = FieldKind::Text, .name = "FriendsLocation", .size = 50, .is_taken_back = false},
});

inline constexpr auto kCallerGroups = std::to_array<SetupGroup>({
    {"Homeseer Phone CID", kCallerPhone},
    {"Serial CID", kCallerSerial},
    {"CID Response", kCallerResponse},
    {"Sources for Number to Name Lookup", kCallerSources},
});

inline constexpr SetupSection kCallers{"CID", "AddCID", "UpdateCID", kCallerGroups};

// --- units: one row of fields for each ----------------------------------------------------------

inline constexpr std::size_t kFirstOption = 1;  // "Option1" belongs to row 0

// A field whose name ends in the number of its row.
struct UnitField {
    std::string_view heading;
    FieldKind kind = FieldKind::Text;
    std::string_view name;     // in the form
    std::string_view control;  // a control array; of a choice its name ends in the number, too
    int size = 0;
    std::size_t first_number = 0;
};

inline constexpr auto kUnitFields = std::to_array<UnitField>({
    {"Location", FieldKind::Text, "Location", "aName", 10},
    {"IP", FieldKind::Text, "IP", "aIP", 15},
    {"ID", FieldKind::Shown, "", "aDC"},
    {"Power", FieldKind::Text, "Power", "aPower", 2},
    {"Motion", FieldKind::Text, "Motion", "aMotion", 2},
    {"Slide", FieldKind::Choice, "Option", "Option", 0, kFirstOption},
    {"CID", FieldKind::Check, "CID", "aDoCID"},
});

// In a row of its own, on pages of the network's own program.
inline constexpr UnitField kX10Server{"xAP Target Address for X10 Power", FieldKind::Text,
                                      "X10Server", "aX10Server", 45};

// --- slide groups -------------------------------------------------------------------------------

inline constexpr UnitField kSlideFile{"", FieldKind::Text, "SlideASP", "aSlideASP", 80};
inline constexpr UnitField kSlideDwell{"Secs", FieldKind::Text, "Dwell", "aDwell", 3};
inline constexpr auto kSlideGroupFields = std::to_array<UnitField>({
    {"Server Path", FieldKind::Text, "ServerPathGroup", "aServerPathGroup", 70},
    {"Folder Path", FieldKind::Text, "FolderPathGroup", "aFolderPathGroup", 70},
});

}  // namespace status
