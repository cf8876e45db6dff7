#include "unit/unit_command.h"

#include <stdexcept>
#include <string>

#include "automation/whole_number.h"

namespace unit {
namespace {

constexpr std::string_view kCommandList =
    "normal, silent, slow MS, drop, not-found, hang, power off, power on, boot SECONDS, subscribe, "
    "unsubscribe, state";
constexpr std::string_view kBootPrefix = "boot ";
constexpr std::string_view kBlanks = " \t\r\n";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string complaint(std::string_view command) {
    const std::string problem =
        command.empty() ? "no command" : "unknown command \"" + std::string(command) + "\"";
    return problem + "; the commands are: " + std::string(kCommandList);
}

}  // namespace

UnitCommand parse_unit_command(std::string_view line) {
    const std::string_view command = trimmed(line);
    if (const auto fault = parse_fault(command)) {
        return *fault;
    }
    if (command == "power off") {
        return PowerSwitch::Off;
    }
    if (command == "power on") {
        return PowerSwitch::On;
    }
    if (command == "subscribe") {
        return Subscription::Start;
    }
    if (command == "unsubscribe") {
        return Subscription::End;
    }
    if (command == "state") {
        return AskState{};
    }
    if (command.starts_with(kBootPrefix)) {
        const auto seconds =
            automation::whole_number(command.substr(kBootPrefix.size()), 0, kLongestBoot.count());
        if (seconds) {
            return SetBootTime{std::chrono::seconds(*seconds)};
        }
    }
    throw std::invalid_argument(complaint(command));
}

}  // namespace unit
