#include "dialogs/unit_rows.h"

#include <algorithm>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/strings.h"
#include "core/instance.h"
#include "dialogs/setup_controls.h"
#include "dialogs/stored_text.h"
#include "fleet/names_section.h"
#include "host/host_interface.h"

// A line is `ip/computer="name,dc,power,motion,enableSlideshow,doCID,x10server"`; only the name is
// required, and "/computer" may be missing. The last field may hold commas.
namespace dialogs {

namespace {

using automation::split;
using fleet::kNamesSection;
using fleet::restore_brackets;
using fleet::store_brackets;

constexpr std::size_t kFields = 7;

std::string raw_key(std::string_view line) {
    return std::string(line.substr(0, line.find('=')));
}

std::vector<std::string> fields_of(std::string_view value) {
    std::vector<std::string> fields = split(value, ',');
    if (fields.size() > kFields) {
        const std::vector<std::string> rest(fields.begin() + kFields - 1, fields.end());
        fields[kFields - 1] = automation::join(rest, ",");
    }
    fields.resize(kFields);
    return fields;
}

// Whether the fleet takes a unit from the line, once quotes and brackets are as they are meant.
bool names_unit(std::string_view line) {
    const std::vector<std::string> sides = split(line, '=');
    return sides.size() == 2 && !sides[0].empty() &&
           !automation::trim(split(sides[1], ',').front()).empty();
}

// A key that stands there already gets the new value: there is but one line for each.
void put(host::SettingsEntries& entries, const std::string& key, const std::string& value) {
    const auto known = std::ranges::find_if(entries, [&key](const auto& entry) {
        return automation::equals_ignoring_case(entry.first, key);
    });
    if (known == entries.end()) {
        entries.emplace_back(key, value);
    } else {
        known->second = value;
    }
}

bool has_key(const host::SettingsEntries& entries, std::string_view key) {
    return std::ranges::any_of(entries, [key](const auto& entry) {
        return automation::equals_ignoring_case(entry.first, key);
    });
}

}  // namespace

std::vector<std::string> UnitRows::stored_lines() const {
    std::vector<std::string> lines =
        split(instance_.hs().GetINISection(kNamesSection, core::kSettingsFile), '\0');
    std::erase(lines, std::string());
    return lines;
}

void UnitRows::load(SetupControls& controls) {
    shown_.fill({});
    for (std::size_t row = 0; row < kUnitRows; ++row) {
        controls.set_Value({slideshow_group_name(row), 0}, true);
    }
    std::size_t row = 0;
    for (const std::string& line : stored_lines()) {
        const std::string meant = restore_brackets(core::without_quotes(line));
        if (row < kUnitRows && names_unit(meant)) {
            shown_[row].key = raw_key(line);
            show(controls, row++, meant);
        }
    }
}

void UnitRows::show(SetupControls& controls, std::size_t row, std::string_view line) {
    const std::size_t equals = line.find('=');
    const std::string_view key = line.substr(0, equals);
    const std::size_t slash = key.find('/');
    shown_[row].address = automation::trim(key.substr(0, slash));
    controls.set_Text({"aIP", row}, shown_[row].address);
    if (slash != std::string_view::npos) {
        controls.set_Text({"aComputer", row}, automation::trim(key.substr(slash + 1)));
    }
    const std::vector<std::string> fields = fields_of(line.substr(equals + 1));
    controls.set_Text({"aName", row}, fields[0]);
    controls.set_Text({"aDC", row}, fields[1]);
    controls.set_Text({"aPower", row}, fields[2]);
    controls.set_Text({"aMotion", row}, fields[3]);
    shown_[row].slideshow = fields[4];
    const double group = automation::parse_number(fields[4]).value_or(0);
    const std::string buttons = slideshow_group_name(row);
    controls.choose_none(buttons);
    for (std::size_t button = 0; button < kSlideshowButtons; ++button) {
        if (group == static_cast<double>(button)) {
            controls.set_Value({buttons, button}, true);
        }
    }
    controls.set_Value({"aDoCID", row}, is_tick(fields[5]));
    controls.set_Text({"aX10Server", row}, fields[6]);
}

void UnitRows::save(const SetupControls& controls) {
    host::SettingsEntries entries = lines_of_rows(controls);
    std::array<Shown, kUnitRows> written;
    for (std::size_t row = 0; row < kUnitRows; ++row) {
        written[row] = {key_of(controls, row), controls.Text({"aIP", row}),
                        slideshow_of(controls, row)};
    }
    for (const std::string& line : stored_lines()) {
        const std::string key = raw_key(line);
        if (!is_shown(key) && !has_key(entries, key)) {
            entries.emplace_back(key, line.substr(std::min(key.size() + 1, line.size())));
        }
    }
    instance_.hs().SaveINISection(kNamesSection, entries, core::kSettingsFile);
    shown_ = written;  // for another try, should a later step fail
}

host::SettingsEntries UnitRows::lines_of_rows(const SetupControls& controls) {
    host::SettingsEntries entries;
    for (std::size_t row = 0; row < kUnitRows; ++row) {
        const std::string& address = controls.Text({"aIP", row});
        const std::string& name = controls.Text({"aName", row});
        const std::string key = key_of(controls, row);
        if (address.empty() || name.empty() || key.empty()) {
            continue;
        }
        instance_.log.debug([&] {
            return std::string("OK Click Saving Name ").append(name).append(" at ").append(address);
        });
        put(entries, key, value_of(controls, row));
    }
    return entries;
}

// A computer may be typed behind the address, too, and then counts. One that is the address,
// perhaps with a port, moves with it.
std::string UnitRows::computer_of(const SetupControls& controls, std::size_t row) const {
    const std::string& address = controls.Text({"aIP", row});
    const std::string& computer = controls.Text({"aComputer", row});
    const std::size_t slash = address.find('/');
    if (slash != std::string::npos) {
        return address.substr(slash + 1);
    }
    const std::string& before = shown_[row].address;
    const bool is_address =
        !before.empty() && (computer == before || computer.starts_with(before + ":"));
    return is_address ? address + computer.substr(before.size()) : computer;
}

std::string UnitRows::key_of(const SetupControls& controls, std::size_t row) const {
    const host::Protection& protection = instance_.platform().protection;
    const std::string& address = controls.Text({"aIP", row});
    const std::string ip = stored_key(protection, address.substr(0, address.find('/')));
    const std::string computer = stored_key(protection, computer_of(controls, row));
    return store_brackets(ip.empty() || computer.empty() ? ip : ip + "/" + computer);
}

std::string UnitRows::value_of(const SetupControls& controls, std::size_t row) const {
    const host::Protection& protection = instance_.platform().protection;
    const auto field = [&](std::string_view name) {
        return stored_field(protection, controls.Text({name, row}));
    };
    const std::vector<std::string> fields = {
        field("aName"),
        field("aDC"),
        field("aPower"),
        field("aMotion"),
        slideshow_of(controls, row),
        controls.Value({"aDoCID", row}) ? "1" : "0",
        stored_value(protection, controls.Text({"aX10Server", row})),
    };
    return "\"" + store_brackets(automation::join(fields, ",")) + "\"";
}

// The group of the chosen button; with none, what the line had, which has no button.
std::string UnitRows::slideshow_of(const SetupControls& controls, std::size_t row) const {
    const std::size_t button = controls.chosen(slideshow_group_name(row));
    return button < kSlideshowButtons ? std::to_string(button) : shown_[row].slideshow;
}

bool UnitRows::is_shown(std::string_view key) const {
    return std::ranges::any_of(shown_, [key](const Shown& row) {
        return !row.key.empty() && automation::equals_ignoring_case(row.key, key);
    });
}

}  // namespace dialogs
