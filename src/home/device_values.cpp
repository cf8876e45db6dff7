#include "home/device_values.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"
#include "home/x10_code.h"

namespace home {
namespace {

using automation::equals_ignoring_case;

constexpr char kBetweenEntries = '\1';
constexpr char kBetweenFields = '\2';
constexpr std::string_view kOn = "on";
constexpr std::string_view kOff = "off";

// Whole numbers of 32 bits, with a sign or without.
std::optional<std::int32_t> whole_number(std::string_view text) {
    std::int32_t number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end && !text.empty() ? std::optional(number)
                                                                : std::nullopt;
}

// The two fields of each entry of a list; entries with fewer or more are left out.
std::vector<std::vector<std::string>> pairs_of(std::string_view list) {
    std::vector<std::vector<std::string>> pairs;
    for (const std::string& entry : automation::split(list, kBetweenEntries)) {
        std::vector<std::string> fields = automation::split(entry, kBetweenFields);
        if (fields.size() == 2) {
            pairs.push_back(std::move(fields));
        }
    }
    return pairs;
}

automation::RunTimeError no_value(const host::DeviceFields& fields, std::string_view text,
                                  const std::string& wanted) {
    return {automation::ErrorNumber::InvalidProcedureCall,
            fields.hc + fields.dc + " takes no '" + std::string(text) + "'; " + wanted};
}

std::string text_of(const std::vector<DeviceChoice>& choices) {
    std::vector<std::string> texts;
    texts.reserve(choices.size());
    for (const DeviceChoice& choice : choices) {
        texts.push_back(std::to_string(choice.number) + " " + choice.word);
    }
    return automation::join(texts, ", ");
}

std::int32_t chosen(const host::DeviceFields& fields, const std::vector<DeviceChoice>& choices,
                    const std::string& text) {
    const auto by_word = std::ranges::find_if(choices, [&](const DeviceChoice& choice) {
        return equals_ignoring_case(automation::trim(choice.word), text);
    });
    if (by_word != choices.end()) {
        return by_word->number;
    }
    const auto number = whole_number(text);
    if (number && std::ranges::find(choices, *number, &DeviceChoice::number) != choices.end()) {
        return *number;
    }
    throw no_value(fields, text, "there is " + text_of(choices));
}

}  // namespace

std::vector<DeviceChoice> choices_of(const host::DeviceFields& fields) {
    std::vector<DeviceChoice> choices;
    for (const std::vector<std::string>& pair : pairs_of(fields.values)) {
        if (const auto number = whole_number(automation::trim(pair[1]))) {
            choices.push_back({pair[0], *number});
        }
    }
    return choices;
}

std::vector<DeviceButton> buttons_of(const host::DeviceFields& fields) {
    std::vector<DeviceButton> buttons;
    for (const std::vector<std::string>& pair : pairs_of(fields.buttons)) {
        buttons.push_back({pair[0], pair[1]});
    }
    return buttons;
}

bool is_x10_device(const host::DeviceFields& fields) {
    return parse_x10_code(fields.hc + fields.dc).has_value();
}

std::int32_t device_value(const host::DeviceFields& fields, std::string_view text) {
    const std::string wanted = automation::trim(text);
    const std::vector<DeviceChoice> choices = choices_of(fields);
    if (!choices.empty()) {
        return chosen(fields, choices, wanted);
    }
    const bool is_switch = is_x10_device(fields);
    if (is_switch && equals_ignoring_case(wanted, kOn)) {
        return 1;
    }
    if (is_switch && equals_ignoring_case(wanted, kOff)) {
        return 0;
    }
    if (const auto number = whole_number(wanted)) {
        return *number;
    }
    throw no_value(fields, wanted,
                   is_switch ? "wanted on, off or a whole number" : "wanted a whole number");
}

std::string x10_command(const host::DeviceFields& fields, std::int32_t value) {
    for (const DeviceChoice& choice : choices_of(fields)) {
        std::string word = automation::to_lower(automation::trim(choice.word));
        if (choice.number == value && (word == kOn || word == kOff)) {
            return word;
        }
    }
    return std::string(value == 0 ? kOff : kOn);
}

}  // namespace home
