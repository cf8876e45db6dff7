#include "home/events/notation.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <optional>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"
#include "home/x10_code.h"

namespace home {
namespace {

using automation::equals_ignoring_case;
using automation::RunTimeError;
using automation::to_lower;
using automation::trim;

constexpr char kFieldSeparator = '\2';
constexpr int kMinutesPerHour = 60;
constexpr int kMinutesPerDay = 24 * kMinutesPerHour;
constexpr int kLastPhoneLine = 999;
constexpr std::size_t kLongestNumber = 4;  // digits of a device code
constexpr std::string_view kCodeWanted =
    "wanted a device code, a house code character and a number as in [11 or A1";
constexpr std::string_view kX10CodeWanted = "wanted an X10 code, A1 to P16";

RunTimeError wrong(const std::string& text) {
    return {automation::ErrorNumber::InvalidProcedureCall, text};
}

// "'word' is wrong here; wanted ...", or that something is missing behind what there is.
RunTimeError wrong_word(std::string_view word, std::string_view before, std::string_view wanted) {
    if (word.empty()) {
        return wrong("something is missing behind '" + std::string(before) + "'; " +
                     std::string(wanted));
    }
    return wrong("'" + std::string(word) + "' is wrong behind '" + std::string(before) + "'; " +
                 std::string(wanted));
}

// A line cut into its first word and the rest, both without blanks around them.
struct Cut {
    std::string word;
    std::string rest;
};

Cut cut(std::string_view line) {
    const std::string text = trim(line);
    const std::size_t blank = std::min(text.find(' '), text.size());
    return {text.substr(0, blank), trim(std::string_view(text).substr(blank))};
}

void check_characters(std::string_view line) {
    const bool has_control_character = std::ranges::any_of(
        line, [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; });
    if (has_control_character) {
        throw wrong("a control character stands in '" + trim(line) + "'; wanted one line of text");
    }
}

void check_end(const std::string& rest, std::string_view before) {
    if (!rest.empty()) {
        throw wrong_word(rest, before, "wanted the end of the line");
    }
}

std::optional<int> digits(std::string_view word) {
    int number = 0;
    const char* end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, number);
    const bool is_number = error == std::errc() && stop == end && number >= 0;
    return is_number && word.front() != '-' ? std::optional(number) : std::nullopt;
}

std::optional<int> digits_within(std::string_view word, int low, int high) {
    const std::optional<int> number = digits(word);
    return number && *number >= low && *number <= high ? number : std::nullopt;
}

bool is_device_code(std::string_view code) {
    return code.size() >= 2 && code.size() <= kLongestNumber + 1 &&
           !(code.front() >= '0' && code.front() <= '9') && digits(code.substr(1)).has_value();
}

// "CODE = VALUE" or "CODE"; no value in the second form.
struct CodeAndValue {
    std::string code;
    std::optional<std::string> value;
};

CodeAndValue parse_code_and_value(std::string_view first, const std::string& text) {
    const std::size_t equals = text.find('=');
    const Cut left = cut(std::string_view(text).substr(0, equals));
    CodeAndValue result{automation::to_upper(left.word), std::nullopt};
    if (!is_device_code(result.code)) {
        throw wrong_word(left.word, first, kCodeWanted);
    }
    if (!left.rest.empty()) {
        throw wrong_word(left.rest, left.word, "wanted '='");
    }
    if (equals == std::string::npos) {
        return result;
    }
    result.value = trim(std::string_view(text).substr(equals + 1));
    if (result.value->empty()) {
        throw wrong_word({}, "=", "wanted a number or a word");
    }
    return result;
}

// --- triggers -----------------------------------------------------------------------------------

Trigger parse_at(const std::string& text) {
    const Cut line = cut(text);
    const std::vector<std::string> parts = automation::split(line.word, ':');
    const auto hours = digits_within(parts[0], 0, 23);
    const bool has_two_digits = parts.size() == 2 && parts[1].size() == 2;
    const auto minutes = has_two_digits ? digits_within(parts[1], 0, 59) : std::nullopt;
    if (!hours || !minutes || parts[0].size() > 2) {
        throw wrong_word(line.word, "at", "wanted a time of day, 00:00 to 23:59");
    }
    check_end(line.rest, line.word);
    return AtTime{std::chrono::hours(*hours) + std::chrono::minutes(*minutes)};
}

Trigger parse_every(const std::string& text) {
    const Cut count = cut(text);
    const auto minutes = digits_within(count.word, 1, kMinutesPerDay);
    if (!minutes) {
        throw wrong_word(count.word, "every", "wanted a number of minutes, 1 to 1440");
    }
    const Cut unit = cut(count.rest);
    if (!equals_ignoring_case(unit.word, "minutes") && !equals_ignoring_case(unit.word, "minute")) {
        throw wrong_word(unit.word, count.word, "wanted 'minutes'");
    }
    check_end(unit.rest, unit.word);
    return Every{std::chrono::minutes(*minutes)};
}

Trigger parse_device(const std::string& text) {
    CodeAndValue parsed = parse_code_and_value("device", text);
    return DeviceBecomes{std::move(parsed.code), std::move(parsed.value).value_or("")};
}

Trigger parse_x10(const std::string& text) {
    const Cut line = cut(text);
    const std::optional<X10Code> code = parse_x10_code(line.word);
    if (!code) {
        throw wrong_word(line.word, "x10", kX10CodeWanted);
    }
    const Cut command = cut(line.rest);
    const std::string word = to_lower(command.word);
    if (word != "on" && word != "off" && word != "any") {
        throw wrong_word(command.word, line.word, "wanted on, off or any");
    }
    check_end(command.rest, command.word);
    return X10Heard{code->text(), word};
}

Trigger parse_phone(const std::string& text) {
    const Cut line = cut(text);
    const auto number = digits_within(line.word, 1, kLastPhoneLine);
    if (!number) {
        throw wrong_word(line.word, "phone", "wanted the number of a line, 1 to 999");
    }
    check_end(line.rest, line.word);
    return PhoneRings{static_cast<std::int16_t>(*number)};
}

// --- actions ------------------------------------------------------------------------------------

Action parse_script(const std::string& text) {
    return RunScript{text};
}

Action parse_plugin_action(const std::string& text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            plain += text[i];
            continue;
        }
        const std::string mark = text.substr(i, 2);
        if (mark != "\\2" && mark != "\\\\") {
            throw wrong_word(mark, "action", "wanted \\2 for a separator or \\\\ for a backslash");
        }
        plain += mark == "\\2" ? kFieldSeparator : '\\';
        ++i;
    }
    return PluginAction{plain};
}

Action parse_set(const std::string& text) {
    CodeAndValue parsed = parse_code_and_value("set", text);
    if (!parsed.value) {
        throw wrong_word({}, parsed.code, "wanted '=' and a value");
    }
    return SetDevice{std::move(parsed.code), *std::move(parsed.value)};
}

Action parse_press(const std::string& text) {
    return PressButton{text};
}

// --- the first words ----------------------------------------------------------------------------

template <typename Result>
struct Form {
    std::string_view word;
    std::string_view wanted;  // behind the word
    Result (*parse)(const std::string& rest);
};

constexpr std::array<Form<Trigger>, 5> kTriggers{{
    {"at", "wanted a time of day, 00:00 to 23:59", parse_at},
    {"every", "wanted a number of minutes, 1 to 1440", parse_every},
    {"device", kCodeWanted, parse_device},
    {"x10", kX10CodeWanted, parse_x10},
    {"phone", "wanted the number of a line, 1 to 999", parse_phone},
}};

constexpr std::array<Form<Action>, 4> kActions{{
    {"script", "wanted a line of script", parse_script},
    {"action", "wanted the text of a plug-in's action", parse_plugin_action},
    {"set", kCodeWanted, parse_set},
    {"press", "wanted the text of a button", parse_press},
}};

template <typename Result, std::size_t Count>
Result parse(std::string_view line, const std::array<Form<Result>, Count>& forms,
             std::string_view what) {
    check_characters(line);
    const Cut first = cut(line);
    std::vector<std::string> words;
    for (const Form<Result>& form : forms) {
        if (equals_ignoring_case(form.word, first.word)) {
            if (first.rest.empty()) {
                throw wrong_word({}, form.word, form.wanted);
            }
            return form.parse(first.rest);
        }
        words.emplace_back(form.word);
    }
    throw wrong("'" + first.word + "' is no " + std::string(what) + "; wanted one of " +
                automation::join(words, ", "));
}

std::string code_and_value(std::string_view word, const std::string& code,
                           const std::string& value) {
    return std::string(word) + " " + code + (value.empty() ? "" : " = " + value);
}

struct TriggerText {
    std::string operator()(const AtTime& at) const {
        const auto minutes = static_cast<int>(at.since_midnight.count());
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), "at %02d:%02d", minutes / kMinutesPerHour,
                      minutes % kMinutesPerHour);
        return text.data();
    }

    std::string operator()(const Every& every) const {
        return "every " + std::to_string(every.interval.count()) + " minutes";
    }

    std::string operator()(const DeviceBecomes& device) const {
        return code_and_value("device", device.code, device.value);
    }

    std::string operator()(const X10Heard& heard) const {
        return "x10 " + heard.code + " " + heard.command;
    }

    std::string operator()(const PhoneRings& phone) const {
        return "phone " + std::to_string(phone.line);
    }
};

struct ActionText {
    std::string operator()(const RunScript& script) const { return "script " + script.text; }

    std::string operator()(const PluginAction& action) const {
        const std::string escaped = automation::replace_all(action.text, "\\", "\\\\");
        return "action " + automation::replace_all(escaped, {&kFieldSeparator, 1}, "\\2");
    }

    std::string operator()(const SetDevice& device) const {
        return code_and_value("set", device.code, device.value);
    }

    std::string operator()(const PressButton& button) const { return "press " + button.text; }
};

}  // namespace

Trigger parse_trigger(std::string_view line) {
    return parse(line, kTriggers, "trigger");
}

Action parse_action(std::string_view line) {
    return parse(line, kActions, "action");
}

std::string text_of(const Trigger& trigger) {
    return std::visit(TriggerText{}, trigger);
}

std::string text_of(const Action& action) {
    return std::visit(ActionText{}, action);
}

}  // namespace home
