#include "app/house_text.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <vector>

#include "app/text_table.h"

namespace app {
namespace {

using Rows = std::vector<std::vector<std::string>>;

constexpr const char* kIndent = "    ";

std::string text_member(const Json& object, const char* name) {
    return printable(object.at(name).get<std::string>());
}

std::string number_member(const Json& object, const char* name) {
    return std::to_string(object.at(name).get<std::int64_t>());
}

// "2026-11-24 16:03:03", "never" for null.
std::string moment_member(const Json& object, const char* name) {
    if (object.at(name).is_null()) {
        return "never";
    }
    std::string text = text_member(object, name);
    std::ranges::replace(text, 'T', ' ');
    return text;
}

std::string worded_value(const Json& device) {
    std::string value = number_member(device, "value");
    if (const std::string word = text_member(device, "word"); !word.empty()) {
        value.append(" ").append(word);
    }
    return value;
}

std::string table_text(const std::vector<Column>& columns, const Rows& rows) {
    std::string text;
    for (const std::string& line : text_table(columns, rows)) {
        text += line + "\n";
    }
    return text;
}

}  // namespace

std::string devices_text(const Json& devices) {
    if (devices.empty()) {
        return "no devices\n";
    }
    Rows rows;
    for (const Json& device : devices) {
        rows.push_back({text_member(device, "code"), text_member(device, "name"),
                        text_member(device, "location"), worded_value(device),
                        text_member(device, "text"), moment_member(device, "last_change")});
    }
    return table_text({{"CODE"}, {"NAME"}, {"LOCATION"}, {"VALUE"}, {"SHOWS"}, {"LAST CHANGE"}},
                      rows);
}

std::string device_text(const Json& device) {
    std::string text = devices_text(Json::array({device}));
    if (!device.at("values").empty()) {
        Rows rows;
        for (const Json& choice : device.at("values")) {
            rows.push_back({number_member(choice, "number"), text_member(choice, "word")});
        }
        text.append("\n").append(table_text({{"VALUE", Align::Right}, {"WORD"}}, rows));
    }
    if (!device.at("buttons").empty()) {
        Rows rows;
        for (const Json& button : device.at("buttons")) {
            rows.push_back({printable(button.get<std::string>())});
        }
        text.append("\n").append(table_text({{"BUTTON"}}, rows));
    }
    return text;
}

std::string events_text(const Json& events) {
    if (events.empty()) {
        return "no events\n";
    }
    Rows rows;
    for (const Json& event : events) {
        rows.push_back({text_member(event, "name"), event.at("enabled").get<bool>() ? "yes" : "no",
                        text_member(event, "when"), number_member(event, "runs"),
                        moment_member(event, "last_run")});
    }
    const std::vector<std::string> lines =
        text_table({{"EVENT"}, {"ENABLED"}, {"WHEN"}, {"RUNS", Align::Right}, {"LAST RUN"}}, rows);
    std::string text = lines.front() + "\n";
    for (std::size_t i = 0; i < events.size(); ++i) {
        text += lines[i + 1] + "\n";
        for (const Json& action : events[i].at("actions")) {
            text += kIndent + printable(action.get<std::string>()) + "\n";
        }
    }
    return text;
}

std::string menu_text(const Json& menu) {
    std::string text;
    for (const Json& label : menu) {
        text += printable(label.get<std::string>()) + "\n";
    }
    return text.empty() ? "no menu entries\n" : text;
}

}  // namespace app
