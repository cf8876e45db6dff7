#include "home/events/trigger_match.h"

#include <algorithm>
#include <string>

#include "automation/code_page.h"
#include "home/device_values.h"

namespace home {
namespace {

using automation::equals_ignoring_case;

bool is_number(std::string_view text, std::int32_t number) {
    return text == std::to_string(number);
}

bool is_status(std::string_view word, std::int32_t status) {
    return is_number(word, status) ||
           (equals_ignoring_case(word, "on") && status == host::kStatusOn) ||
           (equals_ignoring_case(word, "off") && status == host::kStatusOff);
}

bool is_value(std::string_view word, const DeviceRecord& device) {
    return is_number(word, device.value) ||
           std::ranges::any_of(choices_of(device.fields), [&](const DeviceChoice& choice) {
               return choice.number == device.value && equals_ignoring_case(choice.word, word);
           });
}

}  // namespace

bool matches(const Trigger& trigger, const DeviceChange& change) {
    const auto* wanted = std::get_if<DeviceBecomes>(&trigger);
    if (wanted == nullptr || wanted->code != change.device.code()) {
        return false;
    }
    if (wanted->value.empty()) {
        return true;
    }
    return change.part == DevicePart::Status ? is_status(wanted->value, change.device.status)
                                             : is_value(wanted->value, change.device);
}

bool matches_x10(const Trigger& trigger, std::string_view code, std::string_view command) {
    const auto* wanted = std::get_if<X10Heard>(&trigger);
    return wanted != nullptr && wanted->code == code &&
           (wanted->command == "any" || wanted->command == command);
}

bool matches_phone(const Trigger& trigger, std::int16_t line) {
    const auto* wanted = std::get_if<PhoneRings>(&trigger);
    return wanted != nullptr && wanted->line == line;
}

bool matches_minute(const Event& event, automation::DateTime now) {
    const auto* wanted = std::get_if<AtTime>(&event.definition.trigger);
    const auto today = std::chrono::floor<std::chrono::days>(now);
    return wanted != nullptr && event.last_day != today &&
           std::chrono::floor<std::chrono::minutes>(now - today) == wanted->since_midnight;
}

std::chrono::minutes interval_of(const Trigger& trigger) {
    const auto* every = std::get_if<Every>(&trigger);
    return every == nullptr ? std::chrono::minutes(0) : every->interval;
}

}  // namespace home
