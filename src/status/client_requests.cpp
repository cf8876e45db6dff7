#include "status/client_requests.h"

#include <cmath>
#include <memory>
#include <vector>

#include "appliance/velora.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "devices/host_devices.h"
#include "dialogs/controls.h"
#include "fleet/fleet.h"
#include "host/host_interface.h"
#include "pages/user_script.h"
#include "status/control_name.h"
#include "status/setup_update.h"
#include "status/status_state.h"
#include "xap/bsc_endpoints.h"
#include "xap/filters.h"

namespace status {

namespace {

using automation::guarded;

constexpr std::int16_t kSetValue = 19;  // the host's command number
constexpr std::string_view kAllEndpoints = ">:>";
constexpr char kEntryEnd = '\x01';

// Only the button that was pressed has a value.
std::string pressed_column(const Form& form) {
    if (form.FormChecked("ID")) {
        return "DCSort";
    }
    return form.text("Status") + form.text("Name") + form.text("Changed");
}

// The place of the first entry that holds the word; none is -1.
std::int16_t place_of(const std::string& word, const std::string& values) {
    const std::vector<std::string> entries = automation::split(values, kEntryEnd);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (automation::find_ignoring_case(entries[i], word) != std::string::npos) {
            return static_cast<std::int16_t>(i);
        }
    }
    return -1;
}

bool is_switch_of(const appliance::Velora& unit, const std::string& code) {
    return automation::equals_ignoring_case(unit.PowerDevice(), code) ||
           automation::equals_ignoring_case(unit.MotionDevice(), code);
}

}  // namespace

void ClientRequests::ClientRequest(const Form& form) {
    guarded(services_.instance.log, "Status ClientRequest ", [&] {
        if (services_.state.ShowControl && table_request(form) == Then::Stop) {
            return;
        }
        if (!form.FormChecked("Save")) {
            foot_request(form);
            return;
        }
        if (services_.state.ShowSetup) {
            save_setup(form);
        }
        save_options(form);
        if (services_.state.FiltersOnPage) {
            services_.filters.SaveFilterSettigs(
                [&form](const std::string& name) { return form.text(name); });
        }
    });
}

// --- the table of devices -----------------------------------------------------------------------

ClientRequests::Then ClientRequests::table_request(const Form& form) {
    if (form.FormChecked("Refresh")) {
        return Then::Stop;
    }
    if (const std::string key = pressed_column(form); !key.empty()) {
        services_.state.sort_by(services_.instance, key);
        return Then::Stop;
    }
    control_device(device_of_control(form.text("clientinput")),
                   automation::to_upper(form.text("clientvalue")));
    return Then::GoOn;
}

void ClientRequests::control_device(const std::string& code, const std::string& value) {
    if (value == "OFF" || value == "ON") {
        hsExec(code, value);
    } else if (value == "CLEAR") {
        ResetVeloraQueue(code);
    } else {
        set_device(code, value);
    }
}

// A word that no value of the device has is passed over. The empty one, which the page's own blank
// choice sends, is part of each, and so means the first value (kept).
void ClientRequests::set_device(const std::string& code, const std::string& word) {
    const std::shared_ptr<host::Device> device = services_.host_devices.device_with(code);
    if (device == nullptr) {
        return;
    }
    const std::string values = device->fields().values;
    const std::int16_t place = values.empty() ? std::int16_t{-1} : place_of(word, values);
    if (place < 0) {
        return;
    }
    services_.instance.callback().ValueChangeEvent(code, place);
    services_.device_commands.SetVeloraIO(code.substr(0, 1), code.substr(1), kSetValue, place);
}

void ClientRequests::hsExec(const std::string& sDC, const std::string& sCommand) {
    guarded(services_.instance.log, "hsExec", [&] {
        if (!services_.instance.XapHosted) {
            services_.instance.hs().ExecX10(sDC, sCommand);
            return;
        }
        for (const std::shared_ptr<appliance::Velora>& unit : services_.fleet.all()) {
            if (is_switch_of(*unit, sDC)) {
                unit->hsExecX10(sDC, sCommand);
                return;
            }
        }
    });
}

void ClientRequests::ResetVeloraQueue(const std::string& sDC) {
    guarded(services_.instance.log, "ResetVeloraQueue", [&] {
        constexpr double kDevicesOfUnit = 10;
        const double number = automation::numeric_prefix(std::string_view(sDC).substr(1));
        const std::string base =
            sDC.substr(0, 1) + automation::text_of(std::floor((number - 1) / kDevicesOfUnit) + 1);
        for (const std::shared_ptr<appliance::Velora>& unit : services_.fleet.all()) {
            if (unit->DeviceCodeBase() == base) {
                unit->ResetQueue();
                return;
            }
        }
    });
}

// --- the rest of the page -----------------------------------------------------------------------

void ClientRequests::foot_request(const Form& form) {
    if (form.FormChecked("script")) {
        services_.user_script.load();
    } else if (form.FormChecked("query")) {
        services_.endpoints.BSCQuery(std::string(kAllEndpoints));
    }
}

void ClientRequests::save_setup(const Form& form) {
    services_.setup.Load();
    SetupUpdate update(services_.instance, services_.setup, form);
    update.UpdateVeloras();
    update.UpdateDefinitions();
    update.UpdatePower();
    update.UpdateScreen();
    update.UpdateSlideGroup();
    update.UpdateCID();
    services_.setup.OKButton_Click();
}

void ClientRequests::save_options(const Form& form) {
    StatusState& state = services_.state;
    state.ShowControl = form.FormChecked("ShowControl");
    state.ShowSetup = form.FormChecked("ShowSetup");
    state.ShowReceiveMessages = form.FormChecked("ShowReceiveMessages");
    state.ShowReceiveDetail = form.FormChecked("ShowReceiveDetail");
    state.ShowStatus =
        automation::checked_int16(automation::numeric_prefix(form.text("ShowStatus")));
    state.save(services_.instance);
}

}  // namespace status
