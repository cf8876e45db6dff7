#include "appliance/checkout.h"
#include "automation/code_page.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "plugin/script_interface.h"
#include "plugin/subsystems.h"

// The public operations on units. Each selects units, calls one member on each, and returns a tag.
namespace plugin {

namespace {

bool holds(const std::string& text, std::string_view word) {
    return automation::find_ignoring_case(text, word) != std::string::npos;
}

std::string led_state(const std::string& action) {
    if (holds(action, "blink")) {
        return "blink";
    }
    return holds(action, "off") ? "off" : "on";
}

}  // namespace

std::string ScriptInterface::command_each(const std::string& whichVeloras,
                                          const fleet::Fleet::Command& command) {
    return parts_.fleet.command_each(whichVeloras, command);
}

template <typename Read>
auto ScriptInterface::read_one(const std::string& whichVelora, Read&& read)
    -> std::invoke_result_t<Read, Unit&> {
    const auto unit = parts_.fleet.GetOneVeloraObject(whichVelora);
    if (unit == nullptr) {
        return {};
    }
    return read(*unit);
}

// --- commands to a selection ---------------------------------------------------------------------

std::string ScriptInterface::VeloraSleep(const std::string& whichVeloras,
                                         const std::string& sAction) {
    return command_each(whichVeloras, [&](Unit& unit, auto& tag) { unit.SetSleep(sAction, tag); });
}

std::string ScriptInterface::VeloraSpeak(const std::string& whichVeloras,
                                         const std::string& sText) {
    return parts_.fleet.InternalSpeak(whichVeloras, sText);
}

std::string ScriptInterface::VeloraWav(const std::string& whichVeloras,
                                       const std::string& wavFile) {
    return parts_.fleet.InternalWav(whichVeloras, wavFile);
}

std::string ScriptInterface::VeloraLED(const std::string& whichVeloras,
                                       const std::string& sAction) {
    const std::string state = led_state(sAction);
    const bool mail = holds(sAction, "mail");
    const bool top = !mail && holds(sAction, "top");
    return command_each(whichVeloras, [&](Unit& unit, auto& tag) {
        if (!mail) {
            unit.SetTopLED(state, tag);
        }
        if (!top) {
            unit.SetMailLED(state, tag);
        }
    });
}

std::string ScriptInterface::VeloraTopLed(const std::string& whichVeloras,
                                          const std::string& sState) {
    return command_each(whichVeloras, [&](Unit& unit, auto& tag) { unit.SetTopLED(sState, tag); });
}

std::string ScriptInterface::VeloraMailLed(const std::string& whichVeloras,
                                           const std::string& sState) {
    return command_each(whichVeloras, [&](Unit& unit, auto& tag) { unit.SetMailLED(sState, tag); });
}

std::string ScriptInterface::VeloraSounds(const std::string& whichVeloras, std::int16_t iSound) {
    return command_each(whichVeloras, [&](Unit& unit, auto& tag) { unit.SetSounds(iSound, tag); });
}

std::string ScriptInterface::VeloraSoundsVolume(const std::string& whichVeloras,
                                                std::int16_t iSoundLevel) {
    return command_each(whichVeloras,
                        [&](Unit& unit, auto& tag) { unit.SetSoundsVolume(iSoundLevel, tag); });
}

std::string ScriptInterface::VeloraVolume(const std::string& whichVeloras, std::int16_t iVolume) {
    return command_each(whichVeloras, [&](Unit& unit, auto& tag) { unit.SetVolume(iVolume, tag); });
}

std::string ScriptInterface::VeloraBacklight(const std::string& whichVeloras,
                                             const std::string& sAction) {
    return command_each(whichVeloras,
                        [&](Unit& unit, auto& tag) { unit.SetBacklight(sAction, tag); });
}

std::string ScriptInterface::VeloraScreen(const std::string& whichVeloras,
                                          const std::string& sAction) {
    return VeloraBacklight(whichVeloras, sAction);
}

std::string ScriptInterface::VeloraRefreshSleepStatus(const std::string& whichVeloras) {
    return command_each(whichVeloras, [](Unit& unit, auto& tag) { unit.RefreshSleepStatus(tag); });
}

std::string ScriptInterface::VeloraWaitsecs(const std::string& whichVeloras, std::int16_t Seconds) {
    return command_each(whichVeloras,
                        [&](Unit& unit, auto& tag) { unit.SetWaitsecs(Seconds, tag); });
}

std::string ScriptInterface::VeloraToggleBrowserFullscreen(const std::string& whichVeloras) {
    return command_each(whichVeloras,
                        [](Unit& unit, auto& tag) { unit.ToggleBrowserFullScreen(tag); });
}

std::string ScriptInterface::VeloraSetBrowserScreen(const std::string& whichVeloras,
                                                    bool bFullScreen) {
    return command_each(whichVeloras,
                        [&](Unit& unit, auto& tag) { unit.SetBrowserScreen(bFullScreen, tag); });
}

std::string ScriptInterface::VeloraPushPage(const std::string& whichVeloras,
                                            const std::string& WebPage) {
    return command_each(whichVeloras, [&](Unit& unit, auto& tag) { unit.PushPage(WebPage, tag); });
}

std::string ScriptInterface::VeloraPushIISPage(const std::string& whichVeloras,
                                               const std::string& WebPage) {
    return command_each(whichVeloras,
                        [&](Unit& unit, auto& tag) { unit.PushIISPage(WebPage, tag); });
}

std::string ScriptInterface::VeloraPushFullscreen(const std::string& whichVeloras,
                                                  const std::string& WebPage) {
    return command_each(whichVeloras, [&](Unit& unit, auto& tag) {
        unit.PushPage(WebPage, tag);
        unit.SetWaitsecs(parts_.instance.settings.PushDelay, "");
        unit.ToggleBrowserFullScreen(tag);
    });
}

std::string ScriptInterface::VeloraCyclePower(const std::string& whichVeloras) {
    return command_each(whichVeloras, [](Unit& unit, auto& tag) { unit.CyclePower(tag); });
}

std::string ScriptInterface::VeloraExecute(const std::string& whichVeloras,
                                           const std::string& sCommand) {
    return command_each(whichVeloras, [&](Unit& unit, auto& tag) { unit.Execute(sCommand, tag); });
}

std::string ScriptInterface::VeloraSendCommand(const std::string& whichVeloras,
                                               const std::string& sCommand,
                                               const std::string& sParm,
                                               const std::string& /*sIPx*/) {
    return command_each(whichVeloras,
                        [&](Unit& unit, auto& tag) { unit.SendUDPCommand(sCommand, sParm, tag); });
}

std::string ScriptInterface::VeloraText(const std::string& whichVeloras,
                                        const std::string& sMessage) {
    return parts_.fleet.InternalText(whichVeloras, sMessage);
}

std::string ScriptInterface::VeloraSlideshow(const std::string& whichVeloras) {
    std::string result =
        command_each(whichVeloras, [](Unit& unit, auto& tag) { unit.ShowSlideshow(tag); });
    parts_.slideshow.keep_time();
    return result;
}

std::string ScriptInterface::VeloraTest(const std::string& whichVeloras) {
    return command_each(whichVeloras, [this](Unit& unit, auto& /*tag*/) {
        appliance::Checkout(parts_.instance, unit);
    });
}

// --- reachable or not ----------------------------------------------------------------------------

std::string ScriptInterface::VeloraPluginDisable(const std::string& whichVeloras, bool bDisable) {
    for (const auto& unit : parts_.fleet.GetVeloraObjects(whichVeloras)) {
        unit->set_DisablePlugin(bDisable);
    }
    return {};
}

void ScriptInterface::VeloraSetSlideGroup(const std::string& whichVeloras, std::int16_t iGroup) {
    for (const auto& unit : parts_.fleet.GetVeloraObjects(whichVeloras)) {
        unit->set_SlideGroup(iGroup);
    }
}

bool ScriptInterface::VeloraIsSpeaking(const std::string& whichVeloras) {
    bool is_speaking = false;
    for (const auto& unit : parts_.fleet.GetVeloraObjects(whichVeloras)) {
        is_speaking = is_speaking || unit->isSpeaking();
    }
    return is_speaking;
}

bool ScriptInterface::VeloraCommandBusy(const std::string& whichVeloras, const std::string& sTag) {
    bool is_busy = false;
    for (const auto& unit : parts_.fleet.GetVeloraObjects(whichVeloras)) {
        is_busy = unit->CommandBusy(sTag) || is_busy;
    }
    return is_busy;
}

void ScriptInterface::VeloraResetQueue() {
    for (const auto& unit : parts_.fleet.all()) {
        unit->ResetQueue();
        unit->set_PowerCycleCount(0);
    }
}

void ScriptInterface::VeloraPhjuke(const std::string& whichVeloras, const std::string& sCommand) {
    automation::guarded(parts_.instance.log, "VeloraPhjuke ", [&] {
        for (const auto& unit : parts_.fleet.GetVeloraObjects(whichVeloras)) {
            if (parts_.queue_timer == nullptr) {
                return;
            }
            const std::shared_ptr<appliance::JukeboxLink> player = parts_.queue_timer->phJuke();
            const std::string& port = parts_.instance.settings.PhJukeCommandPort;
            if (player->ConnectPhJuke(unit->IP(), port)) {
                player->SendPhJuke(sCommand);
            } else {
                parts_.instance.log.VeloraWriteLog(
                    core::kLogType, "Unable to connect to phJuke at Velora " + unit->Name() +
                                        " / " + unit->IP() + ":" + port);
            }
        }
    });
}

// --- one unit's state ----------------------------------------------------------------------------

bool ScriptInterface::VeloraSlideshowStatus(const std::string& whichVelora) {
    return read_one(whichVelora, [](Unit& unit) { return unit.Slideshow(); });
}

std::int16_t ScriptInterface::VeloraSoundsVolumeStatus(const std::string& whichVelora) {
    return read_one(whichVelora, [](Unit& unit) { return unit.SoundsVolume(); });
}

std::int16_t ScriptInterface::VeloraVolumeStatus(const std::string& whichVelora) {
    return read_one(whichVelora, [](Unit& unit) { return unit.Volume(); });
}

std::string ScriptInterface::VeloraBacklightStatus(const std::string& whichVelora) {
    return read_one(whichVelora, [](Unit& unit) -> std::string {
        // A status word is no truth value: with a unit this is always a type error (kept).
        return automation::to_boolean(automation::Value(unit.Backlight())) ? "On" : "Off";
    });
}

std::string ScriptInterface::VeloraMailLEDStatus(const std::string& whichVelora) {
    return read_one(whichVelora, [](Unit& unit) { return std::string(unit.MailLED()); });
}

std::string ScriptInterface::VeloraTopLEDStatus(const std::string& whichVelora) {
    return read_one(whichVelora, [](Unit& unit) { return std::string(unit.TopLED()); });
}

std::string ScriptInterface::VeloraSleepStatus(const std::string& whichVelora) {
    return read_one(whichVelora, [](Unit& unit) -> std::string {
        return unit.SleepStatus() ? "awake" : "sleep";
    });
}

bool ScriptInterface::VeloraPluginDisableStatus(const std::string& whichVelora) {
    return read_one(whichVelora, [](Unit& unit) { return unit.DisablePlugin(); });
}

std::int16_t ScriptInterface::VeloraGetSlideGroup(const std::string& whichVelora) {
    return read_one(whichVelora, [](Unit& unit) { return unit.SlideGroup(); });
}

}  // namespace plugin
