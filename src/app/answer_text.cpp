#include "app/answer_text.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string_view>
#include <vector>

#include "app/text_table.h"
#include "automation/convert.h"

namespace app {
namespace {

constexpr std::string_view kFaint = "\x1b[2m";
constexpr std::string_view kCyan = "\x1b[36m";
constexpr std::string_view kPlain = "\x1b[0m";

std::string text_member(const Json& object, const char* name) {
    return printable(object.at(name).get<std::string>());
}

std::string number_member(const Json& object, const char* name) {
    return std::to_string(object.at(name).get<std::int64_t>());
}

std::string joined(const Json& texts) {
    std::string text;
    for (const Json& entry : texts) {
        text += (text.empty() ? "" : ", ") + printable(entry.get<std::string>());
    }
    return text;
}

// A unit that has nothing to do remembers what it was asked last.
std::string command_line_of(const Json& unit) {
    const std::string command = text_member(unit, "command");
    const Json& flags = unit.at("flags");
    const bool is_idle = std::ranges::any_of(
        flags, [](const Json& flag) { return flag.get<std::string>() == "QueueEmpty"; });
    return command.empty() ? ""
                           : (is_idle ? "    last       " : "    in flight  ") + command + "\n";
}

// Commands may be longer than a line is wide: they stand below their unit.
std::string units_text(const Json& units) {
    const std::vector<Column> columns = {{"UNIT"},
                                         {"ADDRESS"},
                                         {"RETRIES", Align::Right},
                                         {"TIME-OUTS", Align::Right},
                                         {"POWER CYCLES", Align::Right},
                                         {"FLAGS"}};
    std::vector<std::vector<std::string>> rows;
    for (const Json& unit : units) {
        rows.push_back({text_member(unit, "name"), text_member(unit, "address"),
                        number_member(unit, "retries_left"), number_member(unit, "timeouts"),
                        number_member(unit, "power_cycles"), joined(unit.at("flags"))});
    }
    const std::vector<std::string> lines = text_table(columns, rows);
    std::string text = lines.front() + "\n";
    for (std::size_t i = 0; i < units.size(); ++i) {
        text += lines[i + 1] + "\n" + command_line_of(units[i]);
        text += "    " + automation::trim(text_member(units[i], "queue")) + "\n";
    }
    return text;
}

std::string timers_text(const Json& timers) {
    std::vector<std::vector<std::string>> rows;
    for (const Json& timer : timers) {
        rows.push_back({text_member(timer, "name"), number_member(timer, "interval_ms") + " ms"});
    }
    std::string text;
    for (const std::string& line : text_table({{"TIMER"}, {"INTERVAL", Align::Right}}, rows)) {
        text += line + "\n";
    }
    return text;
}

std::string coloured(std::string_view colour, const std::string& text, Colours colours) {
    return colours == Colours::Off ? text : std::string(colour).append(text).append(kPlain);
}

}  // namespace

std::string result_text(const Json& result) {
    if (result.is_null()) {
        return {};
    }
    std::string text;
    if (result.is_string()) {
        text = result.get<std::string>();
    } else if (result.is_boolean()) {
        text = automation::text_of(result.get<bool>());
    } else if (result.is_number()) {
        text = automation::text_of(result.get<double>());
    } else {
        text = one_line(result);
    }
    return text.empty() ? text : text + "\n";
}

std::string status_text(const Json& status) {
    const std::string flags = joined(status.at("flags"));
    std::string text = "role   " + text_member(status, "role") + "\n";
    text.append("flags  ").append(flags.empty() ? "none" : flags).append("\n\n");
    text.append(status.at("units").empty() ? "no units\n" : units_text(status.at("units")));
    text.append("\n");
    text.append(status.at("timers").empty() ? "no timer runs\n" : timers_text(status.at("timers")));
    return text;
}

std::string LogText::line(const Json& line) {
    std::string time = text_member(line, "time");
    std::ranges::replace(time, 'T', ' ');
    std::string type = text_member(line, "type");
    type_width_ = std::max(type_width_, width_of(type));
    type.append(type_width_ - width_of(type), ' ');
    std::string text = coloured(kFaint, time, colours_);
    text.append("  ").append(coloured(kCyan, type, colours_));
    return text.append("  ").append(text_member(line, "message")).append("\n");
}

}  // namespace app
