#include "xap/receiver.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "appliance/velora.h"
#include "automation/code_page.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "callerid/caller_dispatch.h"
#include "core/instance.h"
#include "devices/actions.h"
#include "devices/status_board.h"
#include "fleet/fleet.h"
#include "host/host_interface.h"
#include "host/xap_message.h"
#include "xap/bsc_endpoints.h"
#include "xap/filters.h"

namespace xap {

namespace {

using automation::guarded;

constexpr std::string_view kAddress = "zyn.zynVelora.";
constexpr std::string_view kCaller = "CID.Incoming";
constexpr std::string_view kX10 = "xAP-X10.event";
constexpr std::string_view kTime = "Time.Today";
constexpr std::string_view kState = "output.state";

// What a message must find besides its class.
enum class Duty : std::uint8_t {
    Always,
    WhileHosted,     // only in the separate xAP program
    WhileNoneIsSent  // until this house has told a call itself
};

}  // namespace

struct Receiver::Rule {
    std::string_view message_class;
    Duty duty;
    void (Receiver::*act)(const host::XapMessage& message);
};

bool Receiver::is_on_duty(const Rule& rule, const core::Instance& instance) {
    switch (rule.duty) {
        case Duty::WhileHosted:
            return instance.XapHosted;
        case Duty::WhileNoneIsSent:
            return !instance.XapCIDSent;
        case Duty::Always:
            break;
    }
    return true;
}

void Receiver::OnXapMessage(const host::XapMessage& message) {
    static constexpr std::array<Rule, 9> kRules{{
        {"xAP-OSD.Display", Duty::Always, &Receiver::on_display},
        {"tts.speak", Duty::Always, &Receiver::on_speak},
        {"xap.voice", Duty::Always, &Receiver::on_speak},
        {kCaller, Duty::WhileNoneIsSent, &Receiver::on_caller},
        {"xAPBSC.query", Duty::Always, &Receiver::on_query},
        {"xAPBSC.cmd", Duty::Always, &Receiver::on_command},
        {kX10, Duty::WhileHosted, &Receiver::on_x10},
        {kTime, Duty::WhileHosted, &Receiver::on_time},
        {"Homeseer.Control", Duty::WhileHosted, &Receiver::on_button},
    }};
    guarded(services_.instance.log, "OnXapMessage ", [&] {
        services_.filters.record(message);
        const auto rule = std::ranges::find_if(kRules, [&](const Rule& row) {
            return is_on_duty(row, services_.instance) && message.CompareClass(row.message_class);
        });
        if (rule != kRules.end()) {
            (this->*rule->act)(message);
        }
    });
}

// The first one in the order of the table.
std::shared_ptr<appliance::Velora> Receiver::addressed_unit(const host::XapMessage& message) const {
    for (const auto& unit : services_.fleet.all()) {
        if (message.CompareTarget(std::string(kAddress) + unit->Name())) {
            return unit;
        }
    }
    return nullptr;
}

void Receiver::on_display(const host::XapMessage& message) {
    if (const auto unit = addressed_unit(message)) {
        unit->ReceiveXapMessageOSD(message);
    }
}

void Receiver::on_speak(const host::XapMessage& message) {
    if (const auto unit = addressed_unit(message)) {
        unit->ReceiveXapMessageTTS(message);
    }
}

void Receiver::on_caller(const host::XapMessage& message) {
    callerid::CallState& call = services_.call;
    call.CIDName = message.GetItem(kCaller, "Name");
    call.CIDNumber = message.GetItem(kCaller, "Phone");
    call.NameDetected = true;
    call.NumberDetected = true;
    services_.dispatch.set_xap_incoming(true);
    services_.dispatch.ProcessModemInput();
    services_.dispatch.set_xap_incoming(false);
}

void Receiver::on_query(const host::XapMessage& message) {
    services_.endpoints.BSCQuery(message.MsgTarget());
}

// Behind "output.state" the next block is number 2, also when there is a number 1 (kept).
void Receiver::on_command(const host::XapMessage& message) {
    std::string block(kState);
    if (message.GetItem(block, "ID") == host::kXapUnknown) {
        block = std::string(kState) + ".1";
    }
    for (std::int32_t number = 1;; ++number) {
        const std::string id = message.GetItem(block, "ID");
        if (id == host::kXapUnknown) {
            return;
        }
        services_.endpoints.BSCCmd(message.MsgTarget(), id, message.GetItem(block, "State"),
                                   message.GetItem(block, "Level"));
        block = std::string(kState) + "." + std::to_string(number + 1);
    }
}

void Receiver::on_x10(const host::XapMessage& message) {
    const std::string state = message.GetItem(kX10, "event");
    for (const std::string& device : automation::split(message.GetItem(kX10, "device"), ',')) {
        UpdateDeviceStatus(device, state);
    }
}

void Receiver::on_time(const host::XapMessage& message) {
    services_.instance.Sunrise = message.GetItem(kTime, "Sunrise");
    services_.instance.Sunset = message.GetItem(kTime, "Sunset");
}

void Receiver::on_button(const host::XapMessage& message) {
    services_.actions.ButtonPress(message.GetItem("Button.Press", "Button"));
}

void Receiver::UpdateDeviceStatus(std::string_view device, std::string_view state) {
    guarded(services_.instance.log, "UpdateDeviceStatus ", [&] {
        const std::string code = automation::to_upper(device);
        const auto is_switch_of = [&code](const fleet::Appliance& appliance) {
            return automation::to_upper(appliance.VeloraPowerDevice) == code ||
                   automation::to_upper(appliance.VeloraMotionDevice) == code;
        };
        if (code.empty() || std::ranges::none_of(services_.fleet.table(), is_switch_of)) {
            return;
        }
        const bool is_on = automation::equals_ignoring_case(state, "on");
        host::HostInterface& hs = services_.instance.hs();
        hs.SetDeviceStatusNoReport(code, is_on ? host::kStatusOn : host::kStatusOff, 0);
        hs.SetDeviceString(code, services_.status_board.FormatString(is_on ? "ON" : "OFF"));
    });
}

}  // namespace xap
