#include "callerid/caller_dispatch.h"

#include <algorithm>
#include <array>
#include <optional>

#include "appliance/velora.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/date.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "callerid/echo_window.h"
#include "callerid/phonebook_dictionary.h"
#include "core/instance.h"
#include "devices/status_board.h"
#include "fleet/fleet.h"
#include "host/clock.h"
#include "host/host_interface.h"
#include "host/pump.h"
#include "host/telephone.h"
#include "udp/client_link.h"

namespace callerid {

namespace {

using automation::guarded;
using automation::text_of;

constexpr std::int32_t kOn = 2;
constexpr std::int32_t kOff = 3;
constexpr std::string_view kUnknown = "Unknown";
constexpr std::string_view kBetween = " : ";

bool is_withheld(std::string_view name) {
    constexpr std::array<std::string_view, 3> kWords{"WITHHELD", "O", "P"};
    return std::ranges::any_of(kWords,
                               [&](std::string_view word) {
                                   return automation::equals_ignoring_case(name, word);
                               }) ||
           automation::equals_ignoring_case(name.substr(0, 3), "OUT");
}

struct NumberAndName {
    std::string number;
    std::string name;
};

NumberAndName split_caller_text(const std::string& text) {
    const std::vector<std::string> parts = automation::split(text, kBetween);
    return {parts[0], parts.size() > 1 ? parts[1] : std::string()};
}

// By the first colon, both sides trimmed; nothing without one.
std::optional<NumberAndName> cut_at_colon(const std::string& text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos) {
        return std::nullopt;
    }
    return NumberAndName{automation::trim(text.substr(0, colon)),
                         automation::trim(text.substr(colon + 1))};
}

// "Anna Smith/home": for destinations with little room.
std::string short_form(std::string_view name) {
    return automation::replace_all(name, " from ", "/");
}

}  // namespace

// A call of the modem's road.
struct CallerDispatch::ShownCall {
    std::string given_name;  // of the telephone network
    std::string name;        // as it is shown
    std::string number;
};

// --- the modem's road ---------------------------------------------------------------------------

void CallerDispatch::ProcessModemInput() {
    core::Instance& instance = services_.instance;
    CallState& call = services_.call;
    guarded(instance.log, "ProcessModemInput ", [&] {
        services_.echo.add_data(" ... CID Detected ... ");
        instance.log.debug([&] {
            return "ProcessModemInput NumberDetected=" + text_of(call.NumberDetected) +
                   ", NameDetected=" + text_of(call.NameDetected) + ", Name=" + call.CIDName +
                   ", Number=" + call.CIDNumber;
        });
        if (host::Timer* const timer = services_.timer5()) {
            timer->set_enabled(false);
        }
        if (is_withheld(call.CIDName)) {
            call.CIDName = kUnknown;
        }
        const auto [number, name] = split_caller_text(
            services_.phonebook.HSPAddressBookLookup(call.CIDNumber, call.CIDName));
        dispatch({.given_name = call.CIDName, .name = name, .number = number});
        call = {};
    });
}

// Device first, network next, then the units' speech and text, then the log.
void CallerDispatch::dispatch(const ShownCall& call) {
    core::Instance& instance = services_.instance;
    const core::UtilitySettings& settings = instance.settings;
    const std::string units = services_.fleet.DoCIDNames();
    show_on_device(std::string(call.number).append(kBetween).append(call.name));
    if (instance.XapHosted && !xap_incoming_ && xap_ != nullptr) {
        xap_->XapCID(call.given_name, call.name, services_.call.CIDNumber);
    }
    if (settings.AcidCIDResponse) {
        InternalSendCID(units, short_form(call.name), call.number);
    }
    if (settings.CIDSentry) {
        services_.clients.SendCIDSentry(short_form(call.name), call.number, names_and_addresses());
    }
    if (settings.SoundCIDResponse) {
        services_.fleet.InternalSpeak(units, "Phone from " + call.name);
    }
    if (settings.BrowserCIDResponse) {
        services_.fleet.InternalText(units,
                                     call.name + "\r\n" + call.number + "\r\n" + time_line());
    }
    if (settings.LogCID) {
        instance.log.VeloraWriteLog(core::kLogType,
                                    std::string(call.number).append(kBetween).append(call.name));
    }
}

void CallerDispatch::show_on_device(const std::string& text) {
    core::Instance& instance = services_.instance;
    const std::string& code = instance.settings.CIDDeviceCode;
    instance.hs().SetDeviceString(code, services_.status_board.FormatValue(0, text));
    if (instance.settings.GenerateCIDEvent) {
        if (host::Timer* const timer = services_.timer4(); timer != nullptr && !timer->enabled()) {
            timer->set_enabled(true);
        }
        instance.hs().SetDeviceStatus(code, kOn);
    }
    instance.hs().SetDeviceLastChange(code, instance.platform().clock.now());
    services_.status_board.announce(code);
}

void CallerDispatch::Timer4_Timer() {
    services_.instance.hs().SetDeviceStatus(services_.instance.settings.CIDDeviceCode, kOff);
    if (host::Timer* const timer = services_.timer4()) {
        timer->set_enabled(false);
    }
}

std::string CallerDispatch::InternalSendCID(const std::string& whichVeloras,
                                            const std::string& name, const std::string& number) {
    return guarded(services_.instance.log, "InternalSendCID ", [&] {
        services_.fleet.command_each(whichVeloras,
                                     [&](appliance::Velora& unit, const std::string& tag) {
                                         unit.SendUDPCID(name, number, tag);
                                         fleet::wake_unless_always_awake(unit);
                                     });
        return std::string();
    });
}

// --- the road of the telephone add-on -----------------------------------------------------------

std::string CallerDispatch::MessageCIDEvent(Datagram datagram, std::string_view ip) {
    core::Instance& instance = services_.instance;
    return guarded(instance.log, "MessageCIDEvent", [&] {
        std::string number = "1234567890";
        std::string name = "HSP Not Available";
        if (services_.phonebook.InitHSP()) {
            const std::int16_t line = instance.settings.CIDLineNumber;
            number = services_.phonebook.hsp().CIDNumber(line);
            name = services_.phonebook.hsp().CIDName(line);
        }
        std::string text = services_.phonebook.HSPAddressBookLookup(number, name);
        if (datagram == Datagram::ToClients) {
            auto [sent_number, sent_name] = split_caller_text(text);
            sent_name = automation::replace_ignoring_case(sent_name, " from ", "/");
            services_.clients.UDPSendCID(sent_name, sent_number, ip);
        }
        return text;
    });
}

void CallerDispatch::CID(appliance::Velora& unit) {
    unit.PushTextMessage(MessageCIDEvent(Datagram::None, unit.IP()), "");
}

std::string CallerDispatch::InternalSendHspCID(const std::string& whichVeloras) {
    core::Instance& instance = services_.instance;
    const core::UtilitySettings& settings = instance.settings;
    return guarded(instance.log, "InternalSendHspCID ", [&] {
        bool wants_last = false;  // of the unit that was looked at last
        std::string text = serve_units(whichVeloras, wants_last);
        const std::string names =
            whichVeloras.empty() ? names_of_units_that_want_callers(wants_last) : whichVeloras;
        const bool is_wanted = settings.BrowserCIDResponse || settings.SoundCIDResponse ||
                               settings.CIDSentry || instance.XapHosted;
        if (text.empty() && is_wanted) {
            // Without an address the call reaches every client, if that unit wants callers (kept).
            text = MessageCIDEvent(wants_last ? Datagram::ToClients : Datagram::None, "");
        }
        if (settings.CIDSentry) {
            send_sentry(text);
        }
        if (instance.XapHosted) {
            send_xap(text);
        }
        show_on_device(text);
        if (settings.SoundCIDResponse) {
            play_or_speak(names, text);
        }
        if (settings.BrowserCIDResponse) {
            services_.fleet.InternalText(
                names, automation::replace_all(text, ":", "\r\n") + "\r\n" + time_line());
        }
        if (settings.LogCID) {
            instance.log.VeloraWriteLog(core::kLogType, text);
        }
        return std::string();
    });
}

// The clients of these units that want callers; gives the caller text, "" when there was none.
std::string CallerDispatch::serve_units(const std::string& whichVeloras, bool& wants_last) {
    std::string text;
    if (!services_.instance.settings.AcidCIDResponse) {
        return text;
    }
    for (const auto& unit : services_.fleet.GetVeloraObjects(whichVeloras)) {
        wants_last = unit->DoCID();
        if (wants_last) {
            text = MessageCIDEvent(Datagram::ToClients, unit->IP());
            fleet::wake_unless_always_awake(*unit);
        }
    }
    return text;
}

std::string CallerDispatch::names_of_units_that_want_callers(bool& wants_last) {
    std::vector<std::string> names;
    for (const auto& unit : services_.fleet.all()) {
        wants_last = unit->DoCID();
        if (wants_last && services_.fleet.IsReachable(*unit)) {
            names.push_back(unit->Name());
        }
    }
    return automation::join(names, ",");
}

void CallerDispatch::send_sentry(const std::string& caller_text) {
    const auto cut = cut_at_colon(caller_text);
    services_.clients.SendCIDSentry(cut ? cut->name : std::string(),
                                    cut ? cut->number : caller_text, names_and_addresses());
}

void CallerDispatch::send_xap(const std::string& caller_text) {
    if (xap_ == nullptr) {
        return;
    }
    const auto cut = cut_at_colon(caller_text);
    const std::string name = cut ? cut->name : std::string(kUnknown);
    xap_->XapCID(name, name, cut ? cut->number : caller_text);
}

void CallerDispatch::play_or_speak(const std::string& names, const std::string& caller_text) {
    if (const std::string wav = services_.phonebook.CallerWav(); !wav.empty()) {
        services_.fleet.InternalWav(names, wav);
        return;
    }
    const std::size_t colon = caller_text.find(':');
    services_.fleet.InternalSpeak(
        names, colon == std::string::npos ? caller_text : caller_text.substr(colon + 1));
}

std::string CallerDispatch::InternalSendHspBrowserCID(const std::string& whichVeloras) {
    for (const auto& unit : services_.fleet.GetVeloraObjects(whichVeloras)) {
        if (services_.fleet.IsReachable(*unit)) {
            MessageCIDEvent(Datagram::None, unit->IP());
        }
    }
    return {};
}

// --- helpers ------------------------------------------------------------------------------------

std::vector<std::string> CallerDispatch::names_and_addresses() const {
    std::vector<std::string> texts;
    for (const auto& unit : services_.fleet.all()) {
        texts.push_back(unit->Name());
        texts.push_back(unit->IP());
    }
    return texts;
}

std::string CallerDispatch::time_line() const {
    return automation::weekday_and_time(services_.instance.platform().clock.now());
}

}  // namespace callerid
