#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "automation/convert.h"
#include "automation/members.h"
#include "fleet/fleet.h"

namespace plugin {

class Lifecycle;
struct Subsystems;

// The plug-in as late-bound callers see it: scripts, pages, the control socket. Its one table of
// members is the list of all public operations. Owned by the entry class, which outlives it.
//
// `whichVeloras` selects units by name or address, separated by commas or else by blanks; empty
// means all. An operation on a selection gives a tag, or "" when a unit was not reachable; units
// that are reachable get the command all the same. The tag is the operation's own and not the
// queue's: `VeloraCommandBusy` does not know it (kept). No operation has an error handler: errors
// go to the calling script. All may pump.
class ScriptInterface final : public automation::TableObject {
  public:
    ScriptInterface(Subsystems& parts, Lifecycle& lifecycle)
        : parts_(parts), lifecycle_(lifecycle) {}

    [[nodiscard]] std::string type_name() const override { return "hspi"; }

    [[nodiscard]] std::span<const automation::Member> members() const override;

    // --- commands to a selection; see fleet_operations.cpp ---------------------------------------
    std::string VeloraSleep(const std::string& whichVeloras, const std::string& sAction);
    std::string VeloraSpeak(const std::string& whichVeloras, const std::string& sText);
    std::string VeloraWav(const std::string& whichVeloras, const std::string& wavFile);
    std::string VeloraLED(const std::string& whichVeloras, const std::string& sAction);
    std::string VeloraTopLed(const std::string& whichVeloras, const std::string& sState);
    std::string VeloraMailLed(const std::string& whichVeloras, const std::string& sState);
    std::string VeloraSounds(const std::string& whichVeloras, std::int16_t iSound);
    std::string VeloraSoundsVolume(const std::string& whichVeloras, std::int16_t iSoundLevel);
    std::string VeloraVolume(const std::string& whichVeloras, std::int16_t iVolume);
    std::string VeloraBacklight(const std::string& whichVeloras, const std::string& sAction);
    std::string VeloraScreen(const std::string& whichVeloras, const std::string& sAction);
    std::string VeloraRefreshSleepStatus(const std::string& whichVeloras);
    std::string VeloraWaitsecs(const std::string& whichVeloras, std::int16_t Seconds);
    std::string VeloraToggleBrowserFullscreen(const std::string& whichVeloras);
    std::string VeloraSetBrowserScreen(const std::string& whichVeloras, bool bFullScreen);
    std::string VeloraPushPage(const std::string& whichVeloras, const std::string& WebPage);
    std::string VeloraPushIISPage(const std::string& whichVeloras, const std::string& WebPage);
    std::string VeloraPushFullscreen(const std::string& whichVeloras, const std::string& WebPage);
    std::string VeloraText(const std::string& whichVeloras, const std::string& sMessage);
    std::string VeloraSlideshow(const std::string& whichVeloras);
    std::string VeloraCyclePower(const std::string& whichVeloras);
    std::string VeloraTest(const std::string& whichVeloras);
    std::string VeloraExecute(const std::string& whichVeloras, const std::string& sCommand);
    std::string VeloraSendCommand(const std::string& whichVeloras, const std::string& sCommand,
                                  const std::string& sParm, const std::string& sIPx);

    // --- reachable or not ------------------------------------------------------------------------
    std::string VeloraPluginDisable(const std::string& whichVeloras, bool bDisable);
    void VeloraSetSlideGroup(const std::string& whichVeloras, std::int16_t iGroup);
    bool VeloraIsSpeaking(const std::string& whichVeloras);
    bool VeloraCommandBusy(const std::string& whichVeloras, const std::string& sTag);
    void VeloraResetQueue();
    void VeloraPhjuke(const std::string& whichVeloras, const std::string& sCommand);

    // --- one unit's state; "" or 0 or false without one
    // -------------------------------------------
    bool VeloraSlideshowStatus(const std::string& whichVelora);
    std::int16_t VeloraSoundsVolumeStatus(const std::string& whichVelora);
    std::int16_t VeloraVolumeStatus(const std::string& whichVelora);
    std::string VeloraBacklightStatus(const std::string& whichVelora);
    std::string VeloraMailLEDStatus(const std::string& whichVelora);
    std::string VeloraTopLEDStatus(const std::string& whichVelora);
    std::string VeloraSleepStatus(const std::string& whichVelora);
    bool VeloraPluginDisableStatus(const std::string& whichVelora);
    std::int16_t VeloraGetSlideGroup(const std::string& whichVelora);

    // --- names and addresses ---------------------------------------------------------------------
    std::string VeloraWhoSent(const std::shared_ptr<automation::Object>& Request);
    std::string VeloraIP(const std::string& whichVelora);
    std::string VeloraIPLookup(const std::string& WhichIP);
    std::string VeloraNames();
    std::string VELORAIPS();

    // --- files, clients, house -------------------------------------------------------------------
    std::string VeloraTextToWav(const std::string& sText);
    std::int16_t VeloraWavTime(const std::string& Filename);
    std::string VeloraACID(const std::string& sLine1, const std::string& sLine2);
    std::string VeloraSendCID(const std::string& whichVeloras, const std::string& sLine1,
                              const std::string& sLine2);
    std::string VeloraSendHspCID(const std::string& whichVeloras);
    std::string VeloraSendHspBrowserCID(const std::string& whichVeloras);
    std::string SendCommand(const std::string& sCommand, const std::string& sParm,
                            const std::string& sIPx);
    bool VeloraSlideshowCoordination(const std::string& sClient, const std::string& sAction);
    std::string VeloraNextPicture();
    std::string VeloraSlideshowASP(const std::shared_ptr<automation::Object>& RequestObject,
                                   const std::shared_ptr<automation::Object>& ResponseObject);
    void VeloraReloadSettings();
    void VeloraOnXapMessage(const std::shared_ptr<automation::Object>& oMessage);

    // --- forms that take one text, "whichVeloras;argument"; see ex_operations.cpp
    // -----------------
    std::string VeloraSpeakEx(const std::string& s);
    std::string VeloraBacklightEx(const std::string& s);
    std::string VeloraPushIISPageEx(const std::string& s);
    std::string VeloraPushFullscreenEx(const std::string& s);
    std::string VeloraPushPageEx(const std::string& s);
    std::string VeloraTextEx(const std::string& s);
    std::string VeloraTopLedEx(const std::string& s);
    std::string VeloraMailLedEx(const std::string& s);
    std::string VeloraExecuteEx(const std::string& s);
    bool VeloraCommandBusyEx(const std::string& s);
    std::string VeloraSleepEx(const std::string& s);
    std::string VeloraWavEx(const std::string& s);
    std::string VeloraLEDEx(const std::string& s);
    std::string VeloraSoundsEx(const std::string& s);
    std::string VeloraSoundsVolumeEx(const std::string& s);
    std::string VeloraWaitsecsEx(const std::string& s);
    std::string VeloraVolumeEx(const std::string& s);
    void VeloraSetSlideGroupEx(const std::string& s);
    std::string VeloraSetBrowserScreenEx(const std::string& s);
    std::string VeloraPluginDisableEx(const std::string& s);
    std::string VeloraACIDEx(const std::string& s);
    std::string VeloraSendCIDEx(const std::string& s);
    std::string VeloraSendCommandEx(const std::string& s);
    void VeloraPhjukeEx(const std::string& sCommand);

    // --- what the host asks; see host_contract.cpp -----------------------------------------------
    [[nodiscard]] std::string plugin_name() const;
    std::string Version();
    std::string InitX10(std::int32_t port);
    std::string InitIR(std::int32_t port);
    void ConfigIO();
    automation::Value LearnIR(const automation::Value& loc);
    void ModifyActionUI(const std::shared_ptr<automation::Object>& controls);
    std::string ActionUIFormat(const std::string& Action);
    void TriggerAction(const std::string& actionStr);
    void ButtonPress(const std::string& ButtonName);

    std::string get_Link() const { return link_; }

    void set_Link(const std::string& text) { link_ = text; }

    std::string get_linktext() const { return link_text_; }

    void set_linktext(const std::string& text) { link_text_ = text; }

    std::string get_page_title() const { return page_title_; }

    void set_page_title(const std::string& text) { page_title_ = text; }

    // Operations that do nothing but give a fixed answer, whatever arguments come.
    using Ignored = std::optional<automation::Value>;

    template <auto answer>
    [[nodiscard]] auto constant(const Ignored&, const Ignored&, const Ignored&,
                                const Ignored&) const {
        return answer;
    }

    [[nodiscard]] std::string no_text(const Ignored&, const Ignored&, const Ignored&,
                                      const Ignored&) const {
        return {};
    }

    [[nodiscard]] automation::Value nothing(const Ignored&, const Ignored&, const Ignored&,
                                            const Ignored&) const {
        return {};
    }

  private:
    using Unit = appliance::Velora;

    std::string command_each(const std::string& whichVeloras, const fleet::Fleet::Command& command);

    // Reads from the one unit that the name chooses.
    template <typename Read>
    auto read_one(const std::string& whichVelora, Read&& read) -> std::invoke_result_t<Read, Unit&>;

    Subsystems& parts_;
    Lifecycle& lifecycle_;
    std::string link_;
    std::string link_text_;
    std::string page_title_;
};

}  // namespace plugin
