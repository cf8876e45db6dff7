#include <optional>
#include <vector>

#include "automation/strings.h"
#include "plugin/script_interface.h"

// The forms for callers that can pass only one text. It is cut at the first ";"; without one it is
// the argument alone, for all units.
namespace plugin {

namespace {

struct ExText {
    std::string whichVeloras;
    std::string argument;
};

ExText cut(const std::string& text) {
    const std::size_t end = text.find(';');
    if (end == std::string::npos) {
        return {"", text};
    }
    return {text.substr(0, end), text.substr(end + 1)};
}

// How the argument is converted before the call.
std::string as_text(const std::string& argument) {
    return argument;
}

// An action word such as "sleep" arrives as "0" (kept).
std::string as_number_text(const std::string& argument) {
    return automation::text_of(automation::numeric_prefix(argument));
}

std::int16_t as_int16(const std::string& argument) {
    return automation::checked_int16(automation::numeric_prefix(argument));
}

bool as_boolean(const std::string& argument) {
    return automation::to_boolean(automation::Value(argument));
}

template <typename Operation, typename Convert>
auto pass_on(ScriptInterface& hspi, Operation operation, Convert convert, const std::string& text) {
    const ExText cut_text = cut(text);
    return (hspi.*operation)(cut_text.whichVeloras, convert(cut_text.argument));
}

using S = ScriptInterface;

}  // namespace

std::string S::VeloraSpeakEx(const std::string& s) {
    return pass_on(*this, &S::VeloraSpeak, as_text, s);
}

std::string S::VeloraBacklightEx(const std::string& s) {
    return pass_on(*this, &S::VeloraBacklight, as_text, s);
}

std::string S::VeloraPushIISPageEx(const std::string& s) {
    return pass_on(*this, &S::VeloraPushIISPage, as_text, s);
}

std::string S::VeloraPushFullscreenEx(const std::string& s) {
    return pass_on(*this, &S::VeloraPushFullscreen, as_text, s);
}

std::string S::VeloraPushPageEx(const std::string& s) {
    return pass_on(*this, &S::VeloraPushPage, as_text, s);
}

std::string S::VeloraTextEx(const std::string& s) {
    return pass_on(*this, &S::VeloraText, as_text, s);
}

std::string S::VeloraTopLedEx(const std::string& s) {
    return pass_on(*this, &S::VeloraTopLed, as_text, s);
}

std::string S::VeloraMailLedEx(const std::string& s) {
    return pass_on(*this, &S::VeloraMailLed, as_text, s);
}

std::string S::VeloraExecuteEx(const std::string& s) {
    return pass_on(*this, &S::VeloraExecute, as_text, s);
}

bool S::VeloraCommandBusyEx(const std::string& s) {
    return pass_on(*this, &S::VeloraCommandBusy, as_text, s);
}

std::string S::VeloraSleepEx(const std::string& s) {
    return pass_on(*this, &S::VeloraSleep, as_number_text, s);
}

std::string S::VeloraWavEx(const std::string& s) {
    return pass_on(*this, &S::VeloraWav, as_number_text, s);
}

std::string S::VeloraLEDEx(const std::string& s) {
    return pass_on(*this, &S::VeloraLED, as_number_text, s);
}

std::string S::VeloraSoundsEx(const std::string& s) {
    return pass_on(*this, &S::VeloraSounds, as_int16, s);
}

std::string S::VeloraSoundsVolumeEx(const std::string& s) {
    return pass_on(*this, &S::VeloraSoundsVolume, as_int16, s);
}

std::string S::VeloraWaitsecsEx(const std::string& s) {
    return pass_on(*this, &S::VeloraWaitsecs, as_int16, s);
}

std::string S::VeloraVolumeEx(const std::string& s) {
    return pass_on(*this, &S::VeloraVolume, as_int16, s);
}

void S::VeloraSetSlideGroupEx(const std::string& s) {
    pass_on(*this, &S::VeloraSetSlideGroup, as_int16, s);
}

std::string S::VeloraSetBrowserScreenEx(const std::string& s) {
    return pass_on(*this, &S::VeloraSetBrowserScreen, as_boolean, s);
}

std::string S::VeloraPluginDisableEx(const std::string& s) {
    return pass_on(*this, &S::VeloraPluginDisable, as_boolean, s);
}

// The left part is line 1, not a selection.
std::string S::VeloraACIDEx(const std::string& s) {
    return pass_on(*this, &S::VeloraACID, as_text, s);
}

std::string S::VeloraSendCIDEx(const std::string& s) {
    constexpr std::size_t kFields = 3;  // which, line 1, line 2
    const std::vector<std::string> fields = automation::split(s, ';');
    if (fields.size() != kFields) {
        return {};
    }
    return VeloraSendCID(fields[0], fields[1], fields[2]);
}

std::string S::VeloraSendCommandEx(const std::string& s) {
    constexpr std::size_t kFields = 4;  // which, command, parameter, address
    const std::vector<std::string> fields = automation::split(s, ';');
    if (fields.size() < kFields) {
        return {};
    }
    return VeloraSendCommand(fields[0], fields[1], fields[2], fields[3]);
}

// Not cut: the command may well hold a ";".
void S::VeloraPhjukeEx(const std::string& sCommand) {
    VeloraPhjuke("", sCommand);
}

}  // namespace plugin
