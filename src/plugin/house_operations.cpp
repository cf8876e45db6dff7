#include <vector>

#include "automation/code_page.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "plugin/script_interface.h"
#include "plugin/subsystems.h"
#include "plugin/xap_message_object.h"

// The public operations that are no command to a selection of units: names, files, clients.
namespace plugin {

namespace {

std::string identity(std::string_view name) {
    return automation::to_lower(automation::trim(name));
}

std::string joined(const std::vector<fleet::Appliance>& table,
                   std::string fleet::Appliance::*field) {
    std::vector<std::string> texts;
    texts.reserve(table.size());
    for (const fleet::Appliance& appliance : table) {
        texts.push_back(appliance.*field);
    }
    return automation::join(texts, ",");
}

}  // namespace

std::string ScriptInterface::VeloraWhoSent(const std::shared_ptr<automation::Object>& Request) {
    if (Request == nullptr) {
        throw automation::RunTimeError(automation::ErrorNumber::ObjectVariableNotSet);
    }
    std::vector<automation::Value> arguments{automation::Value("REMOTE_ADDR")};
    return VeloraIPLookup(automation::to_text(Request->call("ServerVariables", arguments)));
}

std::string ScriptInterface::VeloraIP(const std::string& whichVelora) {
    for (const fleet::Appliance& appliance : parts_.fleet.table()) {
        if (identity(appliance.VeloraName) == identity(whichVelora)) {
            return appliance.VeloraIP;
        }
    }
    return {};
}

std::string ScriptInterface::VeloraIPLookup(const std::string& WhichIP) {
    for (const fleet::Appliance& appliance : parts_.fleet.table()) {
        if (automation::trim(appliance.VeloraIP) == automation::trim(WhichIP)) {
            return appliance.VeloraName;
        }
    }
    return {};
}

std::string ScriptInterface::VeloraNames() {
    return joined(parts_.fleet.table(), &fleet::Appliance::VeloraName);
}

std::string ScriptInterface::VELORAIPS() {
    return joined(parts_.fleet.table(), &fleet::Appliance::VeloraIP);
}

std::string ScriptInterface::VeloraTextToWav(const std::string& sText) {
    std::string file = parts_.sound_files.next_shared_name();
    parts_.sound_files.TextToWavFile(sText, file);
    return file;
}

std::int16_t ScriptInterface::VeloraWavTime(const std::string& Filename) {
    return automation::checked_int16(parts_.sound_files.ComputeWavTime(Filename));
}

std::string ScriptInterface::VeloraACID(const std::string& sLine1, const std::string& sLine2) {
    std::string name = sLine1;
    std::string number = sLine2;
    return parts_.udp_link.UDPSendCID(name, number, "");
}

std::string ScriptInterface::VeloraSendCID(const std::string& whichVeloras,
                                           const std::string& sLine1, const std::string& sLine2) {
    return parts_.caller_id.dispatch().InternalSendCID(whichVeloras, sLine1, sLine2);
}

std::string ScriptInterface::VeloraSendHspCID(const std::string& whichVeloras) {
    return parts_.caller_id.dispatch().InternalSendHspCID(whichVeloras);
}

std::string ScriptInterface::VeloraSendHspBrowserCID(const std::string& whichVeloras) {
    return parts_.caller_id.dispatch().InternalSendHspBrowserCID(whichVeloras);
}

std::string ScriptInterface::SendCommand(const std::string& sCommand, const std::string& sParm,
                                         const std::string& /*sIPx*/) {
    parts_.udp_link.UDPSendCommand(sCommand, sParm, "");
    return {};
}

bool ScriptInterface::VeloraSlideshowCoordination(const std::string& sClient,
                                                  const std::string& sAction) {
    return automation::guarded(parts_.instance.log, "VeloraSlideshowStatus: ", [&] {
        const bool goes_on = sAction != "links" && parts_.instance.SlideshowMode != 2;
        for (const fleet::Appliance& appliance : parts_.fleet.table()) {
            if (appliance.VeloraIP != sClient || appliance.unit == nullptr) {
                continue;
            }
            const auto unit = appliance.unit;
            unit->set_Slideshow(goes_on);
            if (goes_on) {
                unit->SetMailLED("off", "");
                unit->SetTopLED("Off", "");
            }
            break;
        }
        return goes_on;
    });
}

std::string ScriptInterface::VeloraNextPicture() {
    return parts_.slideshow.VeloraNextPicture();
}

std::string ScriptInterface::VeloraSlideshowASP(
    const std::shared_ptr<automation::Object>& RequestObject,
    const std::shared_ptr<automation::Object>& ResponseObject) {
    return parts_.slideshow_asp.VeloraSlideshow_ASP(RequestObject, ResponseObject);
}

void ScriptInterface::VeloraOnXapMessage(const std::shared_ptr<automation::Object>& oMessage) {
    if (oMessage == nullptr) {
        throw automation::RunTimeError(automation::ErrorNumber::ObjectVariableNotSet);
    }
    parts_.xap_node.receiver().OnXapMessage(XapMessageObject(oMessage));
}

void ScriptInterface::VeloraReloadSettings() {
    parts_.settings.InitVeloraUtilities();
}

}  // namespace plugin
