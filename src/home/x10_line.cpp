#include "home/x10_line.h"

#include <array>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "home/event_board.h"
#include "host/devices.h"
#include "host/log.h"
#include "host/pump.h"

namespace home {
namespace {

using automation::ErrorNumber;
using automation::RunTimeError;

constexpr std::string_view kLogType = "X10";

std::optional<std::int32_t> status_after(std::string_view command) {
    if (automation::equals_ignoring_case(command, "on")) {
        return host::kStatusOn;
    }
    if (automation::equals_ignoring_case(command, "off")) {
        return host::kStatusOff;
    }
    return std::nullopt;
}

RunTimeError no_code(std::string_view text) {
    return {ErrorNumber::InvalidProcedureCall, "No X10 code: '" + std::string(text) + "'"};
}

}  // namespace

X10Line::X10Line(host::Pump& pump, host::Devices& devices, host::Log& log, EventBoard& events)
    : pump_(pump), devices_(devices), log_(log), events_(events) {}

X10Line::Message X10Line::parse_message(std::string_view code, std::string_view command) {
    const std::optional<X10Code> parsed = parse_x10_code(code);
    if (!parsed) {
        throw no_code(code);
    }
    return {*parsed, automation::to_lower(automation::trim(command)),
            status_after(automation::trim(command))};
}

void X10Line::ExecX10(std::string_view code, std::string_view command) {
    const Message message = parse_message(code, command);
    take_state(message);
    operate_modules(message);
    tell_followers(message, X10Origin::Sent);
    pump_.post([this, message, line = std::weak_ptr(alive_)] {
        if (!line.expired()) {
            announce(message);
        }
    });
}

void X10Line::receive(std::string_view code, std::string_view command) {
    const Message message = parse_message(code, command);
    announce(message);
    take_state(message);
    operate_modules(message);
    tell_followers(message, X10Origin::Received);
}

void X10Line::take_state(const Message& message) {
    const std::string code = message.code.text();
    if (message.status) {
        states_[code] = *message.status;
        devices_.SetDeviceStatus(code, *message.status);
    }
    log_.Writelog(kLogType, code + " " + message.command);
}

void X10Line::note_status(std::string_view code, std::int32_t status) {
    const std::optional<X10Code> parsed = parse_x10_code(code);
    if (parsed && (status == host::kStatusOn || status == host::kStatusOff)) {
        states_[parsed->text()] = status;
    }
}

void X10Line::operate_modules(const Message& message) {
    const std::string code = message.code.text();
    const auto modules = modules_.find(code);
    if (modules != modules_.end()) {
        modules->second.call(message.command);
    }
}

void X10Line::tell_followers(const Message& message, X10Origin origin) {
    followers_.call({message.code.text(), message.command, origin});
}

Subscription X10Line::follow(std::function<void(const X10Command&)> follower) {
    return followers_.add(std::move(follower));
}

void X10Line::announce(const Message& message) {
    if (!message.status) {
        return;
    }
    // The unit number stands before the house letter.
    const std::array<automation::Value, 4> parms = {EventBoard::kX10, message.code.unit,
                                                    message.code.house, *message.status};
    events_.deliver(EventBoard::kX10, parms);
}

bool X10Line::isOn(std::string_view code) {
    return status_of(code) == host::kStatusOn;
}

bool X10Line::IsOff(std::string_view code) {
    return status_of(code) == host::kStatusOff;
}

std::int32_t X10Line::status_of(std::string_view text) const {
    const std::optional<X10Code> code = parse_x10_code(text);
    if (!code) {
        return host::kStatusUnknown;
    }
    const std::int32_t status = devices_.DeviceStatus(code->text());
    if (status == host::kStatusOn || status == host::kStatusOff) {
        return status;
    }
    const auto known = states_.find(code->text());
    return known == states_.end() ? host::kStatusUnknown : known->second;
}

Subscription X10Line::attach(std::string_view code, Module module) {
    const std::optional<X10Code> parsed = parse_x10_code(code);
    if (!parsed) {
        throw no_code(code);
    }
    const std::string name = parsed->text();
    return modules_[name].add([this, name, act = std::move(module)](std::string_view command) {
        try {
            act(command);
        } catch (const RunTimeError& error) {
            log_.Writelog(kLogType,
                          name + " " + std::string(command) + " failed: " + error.description());
        }
    });
}

}  // namespace home
