#include "app/setup_changes.h"

#include <algorithm>
#include <charconv>
#include <nlohmann/json.hpp>
#include <optional>
#include <string_view>

#include "app/control_client.h"
#include "app/echo_rows.h"
#include "app/setup_fields.h"
#include "app/text_table.h"
#include "automation/code_page.h"

namespace app {
namespace {

using automation::code_page_to_utf8;
using automation::equals_ignoring_case;

struct Word {
    std::string name;
    std::optional<std::size_t> index;
    std::string value;
};

std::optional<std::size_t> number_of(std::string_view text) {
    std::size_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end && !text.empty() ? std::optional(number)
                                                                : std::nullopt;
}

Word parse_word(const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) {
        throw CommandFailure(std::string("a change is NAME=VALUE, not '").append(text).append("'"));
    }
    Word word{text.substr(0, equals), {}, text.substr(equals + 1)};
    const std::size_t point = word.name.rfind('.');
    if (point != std::string::npos) {
        word.index = number_of(std::string_view(word.name).substr(point + 1));
        if (!word.index) {
            throw CommandFailure("there is no place '" + word.name + "'");
        }
        word.name.erase(point);
    }
    return word;
}

// The first control of that name, which tells about all of its array.
const Json& control_of(const Json& setup, const std::string& name) {
    for (const Json& control : setup.at("controls")) {
        if (equals_ignoring_case(control.at("name").get<std::string>(), name) ||
            equals_ignoring_case(control.at("setting").get<std::string>(), name)) {
            return control;
        }
    }
    throw CommandFailure("there is no control '" + name + "'; see zynvelora setup --list");
}

Json change_of(const Json& setup, const std::string& text) {
    const Word word = parse_word(text);
    const Json& control = control_of(setup, word.name);
    if (word.index || control.at("kind").get<std::string>() != "option") {
        return {
            {"name", control.at("name")}, {"index", word.index.value_or(0)}, {"text", word.value}};
    }
    const std::optional<std::size_t> button = number_of(word.value);
    if (!button) {
        throw CommandFailure("'" + word.name + "' takes the number of a button, from 0");
    }
    return {{"name", control.at("name")}, {"index", *button}, {"text", "1"}};
}

std::string value_of(const SetupField& field) {
    if (!field.is_group) {
        return field.set_text();
    }
    return field.chosen < field.choices.size()
               ? std::to_string(field.chosen) + " (" + field.choices[field.chosen] + ")"
               : "";
}

}  // namespace

std::vector<std::string> setup_table(const Json& setup) {
    std::vector<std::vector<std::string>> rows;
    for (const SetupField& field : setup_fields(setup)) {
        if (field.kind == FieldKind::Button) {
            continue;
        }
        const bool is_place = field.count > 1 && !field.is_group;
        std::string name = code_page_to_utf8(field.name);
        if (is_place) {
            name.append(".").append(std::to_string(field.index));
        }
        rows.push_back({code_page_to_utf8(field.page), name,
                        printable(code_page_to_utf8(value_of(field))),
                        printable(code_page_to_utf8(field.caption))});
    }
    return text_table(
        {{.title = "PAGE"}, {.title = "CONTROL"}, {.title = "VALUE"}, {.title = "CAPTION"}}, rows);
}

Json parse_changes(const Json& setup, const std::vector<std::string>& words) {
    Json changes = Json::array();
    for (const std::string& word : words) {
        changes.push_back(change_of(setup, word));
    }
    return changes;
}

std::string printable_lines(const std::string& text) {
    std::string lines;
    for (const std::string& row : last_rows(text, text.size() + 1, text.size())) {
        lines += row + "\n";
    }
    return lines;
}

}  // namespace app
