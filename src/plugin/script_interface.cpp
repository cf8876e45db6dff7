#include "plugin/script_interface.h"

#include "plugin/identity.h"

// The list of all public operations, by which scripts, pages, the control socket and the host find
// them.
namespace plugin {

namespace {

using automation::Member;
using automation::method;
using automation::property;
using S = ScriptInterface;

constexpr bool kYes = true;
constexpr bool kNo = false;

constexpr auto kMembers = std::to_array<Member>({
    // commands to a selection
    method<&S::VeloraSleep>("VeloraSleep", "whichVeloras, sAction"),
    method<&S::VeloraSpeak>("VeloraSpeak", "whichVeloras, sText"),
    method<&S::VeloraWav>("VeloraWav", "whichVeloras, wavFile"),
    method<&S::VeloraLED>("VeloraLED", "whichVeloras, sAction"),
    method<&S::VeloraTopLed>("VeloraTopLed", "whichVeloras, sState"),
    method<&S::VeloraMailLed>("VeloraMailLed", "whichVeloras, sState"),
    method<&S::VeloraSounds>("VeloraSounds", "whichVeloras, iSound"),
    method<&S::VeloraSoundsVolume>("VeloraSoundsVolume", "whichVeloras, iSoundLevel"),
    method<&S::VeloraVolume>("VeloraVolume", "whichVeloras, iVolume"),
    method<&S::VeloraScreen>("VeloraScreen", "whichVeloras, sAction"),
    method<&S::VeloraBacklight>("VeloraBacklight", "whichVeloras, sAction"),
    method<&S::VeloraRefreshSleepStatus>("VeloraRefreshSleepStatus", "whichVeloras"),
    method<&S::VeloraWaitsecs>("VeloraWaitsecs", "whichVeloras, Seconds"),
    method<&S::VeloraToggleBrowserFullscreen>("VeloraToggleBrowserFullscreen", "whichVeloras"),
    method<&S::VeloraSetBrowserScreen>("VeloraSetBrowserScreen", "whichVeloras, bFullScreen"),
    method<&S::VeloraPushIISPage>("VeloraPushIISPage", "whichVeloras, WebPage"),
    method<&S::VeloraPushFullscreen>("VeloraPushFullscreen", "whichVeloras, WebPage"),
    method<&S::VeloraPushPage>("VeloraPushPage", "whichVeloras, WebPage"),
    method<&S::VeloraText>("VeloraText", "whichVeloras, sMessage"),
    method<&S::VeloraSlideshow>("VeloraSlideshow", "whichVeloras"),
    method<&S::VeloraCyclePower>("VeloraCyclePower", "whichVeloras"),
    method<&S::VeloraTest>("VeloraTest", "whichVeloras"),
    method<&S::VeloraExecute>("VeloraExecute", "whichVeloras, sCommand"),
    method<&S::VeloraSendCommand>("VeloraSendCommand", "whichVeloras, sCommand, sParm, sIPx"),

    // the same for callers with one text, "whichVeloras;argument"
    method<&S::VeloraSpeakEx>("VeloraSpeakEx", "s"),
    method<&S::VeloraBacklightEx>("VeloraBacklightEx", "s"),
    method<&S::VeloraPushIISPageEx>("VeloraPushIISPageEx", "s"),
    method<&S::VeloraPushFullscreenEx>("VeloraPushFullscreenEx", "s"),
    method<&S::VeloraPushPageEx>("VeloraPushPageEx", "s"),
    method<&S::VeloraTopLedEx>("VeloraTopLedEx", "s"),
    method<&S::VeloraMailLedEx>("VeloraMailLedEx", "s"),
    method<&S::VeloraExecuteEx>("VeloraExecuteEx", "s"),
    method<&S::VeloraCommandBusyEx>("VeloraCommandBusyEx", "s"),
    method<&S::VeloraSleepEx>("VeloraSleepEx", "s"),
    method<&S::VeloraWavEx>("VeloraWavEx", "s"),
    method<&S::VeloraLEDEx>("VeloraLEDEx", "s"),
    method<&S::VeloraSoundsEx>("VeloraSoundsEx", "s"),
    method<&S::VeloraSoundsVolumeEx>("VeloraSoundsVolumeEx", "s"),
    method<&S::VeloraWaitsecsEx>("VeloraWaitsecsEx", "s"),
    method<&S::VeloraVolumeEx>("VeloraVolumeEx", "s"),
    method<&S::VeloraSetSlideGroupEx>("VeloraSetSlideGroupEx", "s"),
    method<&S::VeloraSetBrowserScreenEx>("VeloraSetBrowserScreenEx", "s"),
    method<&S::VeloraPluginDisableEx>("VeloraPluginDisableEx", "s"),
    method<&S::VeloraACIDEx>("VeloraACIDEx", "s"),
    method<&S::VeloraSendCIDEx>("VeloraSendCIDEx", "s"),
    method<&S::VeloraTextEx>("VeloraTextEx", "s"),
    method<&S::VeloraSendCommandEx>("VeloraSendCommandEx", "s"),
    method<&S::VeloraPhjukeEx>("VeloraPhjukeEx", "sCommand"),

    // reachable or not
    method<&S::VeloraPluginDisable>("VeloraPluginDisable", "whichVeloras, bDisable"),
    method<&S::VeloraSetSlideGroup>("VeloraSetSlideGroup", "whichVeloras, iGroup"),
    method<&S::VeloraIsSpeaking>("VeloraIsSpeaking", "whichVeloras"),
    method<&S::VeloraCommandBusy>("VeloraCommandBusy", "whichVeloras, sTag"),
    method<&S::VeloraResetQueue>("VeloraResetQueue"),
    method<&S::VeloraPhjuke>("VeloraPhjuke", "whichVeloras, sCommand"),

    // one unit's state
    method<&S::VeloraSlideshowStatus>("VeloraSlideshowStatus", "whichVelora"),
    method<&S::VeloraSoundsVolumeStatus>("VeloraSoundsVolumeStatus", "whichVelora"),
    method<&S::VeloraVolumeStatus>("VeloraVolumeStatus", "whichVelora"),
    method<&S::VeloraBacklightStatus>("VeloraBacklightStatus", "whichVelora"),
    method<&S::VeloraMailLEDStatus>("VeloraMailLEDStatus", "whichVelora"),
    method<&S::VeloraTopLEDStatus>("VeloraTopLEDStatus", "whichVelora"),
    method<&S::VeloraSleepStatus>("VeloraSleepStatus", "whichVelora"),
    method<&S::VeloraPluginDisableStatus>("VeloraPluginDisableStatus", "whichVelora"),
    method<&S::VeloraGetSlideGroup>("VeloraGetSlideGroup", "whichVelora"),

    // names, files, clients, house
    method<&S::VeloraWhoSent>("VeloraWhoSent", "Request"),
    method<&S::VeloraIP>("VeloraIP", "whichVelora"),
    method<&S::VeloraIPLookup>("VeloraIPLookup", "WhichIP"),
    property<&S::VeloraNames>("VeloraNames"),
    property<&S::VELORAIPS>("VELORAIPS"),
    method<&S::VeloraTextToWav>("VeloraTextToWav", "sText"),
    method<&S::VeloraWavTime>("VeloraWavTime", "Filename"),
    method<&S::VeloraACID>("VeloraACID", "sLine1, sLine2"),
    method<&S::VeloraACID>("SendCID", "sLine1, sLine2"),
    method<&S::VeloraSendCID>("VeloraSendCID", "whichVeloras, sLine1, sLine2"),
    method<&S::VeloraSendHspCID>("VeloraSendHspCID", "whichVeloras"),
    method<&S::VeloraSendHspBrowserCID>("VeloraSendHspBrowserCID", "whichVeloras"),
    method<&S::SendCommand>("SendCommand", "sCommand, sParm, sIPx"),
    method<&S::VeloraSlideshowCoordination>("VeloraSlideshowCoordination", "sClient, sAction"),
    property<&S::VeloraNextPicture>("VeloraNextPicture"),
    method<&S::VeloraSlideshowASP>("VeloraSlideshowASP", "RequestObject, ResponseObject"),
    method<&S::VeloraReloadSettings>("VeloraReloadSettings"),
    method<&S::VeloraOnXapMessage>("VeloraOnXapMessage", "oMessage"),

    // without effect; kept for scripts that call them
    method<&S::no_text>("VeloraMP3Load"),
    method<&S::no_text>("VeloraMP3"),
    method<&S::no_text>("VeloraMP3Save"),
    method<&S::no_text>("VeloraMP3Clear"),
    method<&S::no_text>("VeloraMP3Status"),

    // what the host asks
    method<&S::constant<kAccessLevel>>("AccessLevel"),
    method<&S::constant<kInputOutput>>("Capabilities"),
    property<&S::Version>("Version"),
    method<&S::constant<std::int16_t{0}>>("InterfaceStatus"),
    method<&S::nothing>("Exec"),
    method<&S::nothing>("ExecWait"),
    method<&S::ConfigIO>("ConfigIO"),
    method<&S::ConfigIO>("ConfigX10"),
    method<&S::ConfigIO>("ConfigIR"),
    method<&S::InitX10>("InitX10", "port"),
    method<&S::nothing>("ShutDownX10"),
    method<&S::InitIR>("InitIR", "port"),
    method<&S::nothing>("ShutDownIR"),
    method<&S::constant<std::int32_t{1}>>("IRPortType"),
    method<&S::constant<std::int32_t{25}>>("MaxKeys"),
    method<&S::constant<std::int32_t{10}>>("MaxDevices"),
    method<&S::constant<std::int32_t{1}>>("MaxZones"),
    method<&S::constant<kYes>>("HasOptions"),
    method<&S::constant<kYes>>("SupportsIRMatch"),
    method<&S::constant<kYes>>("IRMatchSupport"),
    method<&S::constant<kYes>>("KeyLearnable", "loc"),
    method<&S::constant<kNo>>("IsMatchable", "loc"),
    method<&S::constant<std::int32_t{0}>>("KeyColor", "loc"),
    method<&S::nothing>("SetZone", "Zone"),
    method<&S::nothing>("PlayIR", "loc"),
    method<&S::LearnIR>("LearnIR", "loc"),
    method<&S::constant<kNo>>("SupportsTriggerUI"),
    method<&S::constant<kNo>>("SupportsActionUI"),
    method<&S::constant<kNo>>("SupportsConditionUI"),
    method<&S::no_text>("TriggerUI"),
    method<&S::no_text>("TriggerUIFormat"),
    method<&S::no_text>("CustomActionDialogUI"),
    method<&S::no_text>("ConditionUI"),
    method<&S::no_text>("ConditionUIFormat"),
    method<&S::no_text>("ConditionCheck"),
    method<&S::no_text>("ValidateTriggerUI"),
    method<&S::no_text>("ValidateActionUI"),
    method<&S::nothing>("ModifyTriggerUI", "controls"),
    method<&S::no_text>("ActionUI", "trigger_String"),
    method<&S::ModifyActionUI>("ModifyActionUI", "controls"),
    method<&S::ActionUIFormat>("ActionUIFormat", "Action"),
    method<&S::TriggerAction>("TriggerAction", "actionStr"),
    method<&S::ButtonPress>("ButtonPress", "ButtonName"),
    method<&S::no_text>("GenPage", "lnk"),
    property<&S::get_Link, &S::set_Link>("Link"),
    property<&S::get_linktext, &S::set_linktext>("linktext"),
    property<&S::get_page_title, &S::set_page_title>("page_title"),
    method<&S::plugin_name>("Name"),
});

}  // namespace

std::string ScriptInterface::plugin_name() const {
    return std::string(kPluginName);
}

std::span<const Member> ScriptInterface::members() const {
    return kMembers;
}

}  // namespace plugin
