#include "status/device_rows.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <compare>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "devices/host_devices.h"
#include "devices/status_table.h"
#include "fleet/names_section.h"
#include "host/clock.h"
#include "host/host_interface.h"
#include "status/control_name.h"

namespace status {

namespace {

using automation::DateTime;
using automation::split;

constexpr std::size_t kTextSize = 255;  // characters of a text field
constexpr std::size_t kNameItems = 4;   // name, first device, power switch, motion sensor
constexpr char kEntryEnd = '\x01';
constexpr char kCaptionBegin = '\x02';

std::string cut(std::string_view text) {
    return std::string(text.substr(0, kTextSize));
}

// --- order --------------------------------------------------------------------------------------

// What a row sorts by: one of the two is set.
struct SortKey {
    std::string text{};  // lower case
    DateTime moment{};

    friend auto operator<=>(const SortKey& left, const SortKey& right) {
        return left.text != right.text ? left.text <=> right.text : left.moment <=> right.moment;
    }

    friend bool operator==(const SortKey&, const SortKey&) = default;
};

struct SortField {
    std::string_view name;
    SortKey (*key)(const DeviceRow& row);
};

constexpr std::array<SortField, 4> kSortFields{{
    {"DCSort",
     [](const DeviceRow& row) { return SortKey{.text = automation::to_lower(row.DCSort)}; }},
    {"Status",
     [](const DeviceRow& row) { return SortKey{.text = automation::to_lower(row.Status)}; }},
    {"Name", [](const DeviceRow& row) { return SortKey{.text = automation::to_lower(row.Name)}; }},
    {"Changed", [](const DeviceRow& row) { return SortKey{.text = "", .moment = row.Changed}; }},
}};

const SortField& field_of(std::string_view name) {
    const auto field = std::ranges::find_if(kSortFields, [name](const SortField& each) {
        return automation::equals_ignoring_case(each.name, name);
    });
    return field == kSortFields.end() ? kSortFields.front() : *field;
}

// "A02" for "A2"; of three digits the last two.
std::string sort_code(const std::string& code) {
    constexpr std::size_t kDigits = 2;
    const std::string padded = "0" + code.substr(1);
    return code.substr(0, 1) + padded.substr(padded.size() - std::min(kDigits, padded.size()));
}

std::string caption_of(std::string_view entry) {
    const std::size_t mark = entry.find(kCaptionBegin);
    const std::string_view caption =
        mark == std::string_view::npos ? entry : entry.substr(mark + 1);
    return automation::trim(caption.substr(0, caption.find('@')));
}

}  // namespace

void DeviceRecordset::Sort(std::string_view order) {
    const std::vector<std::string> words = split(order, ' ');
    const SortField& field = field_of(words.front());
    const bool descends = automation::equals_ignoring_case(words.back(), "DESC");
    std::vector<std::pair<SortKey, std::size_t>> places;
    for (const DeviceRow& row : rows_) {
        places.emplace_back(field.key(row), places.size());
    }
    std::ranges::stable_sort(places, [descends](const auto& left, const auto& right) {
        return descends ? right.first < left.first : left.first < right.first;
    });
    std::vector<DeviceRow> sorted;
    sorted.reserve(rows_.size());
    for (const auto& [key, place] : places) {
        sorted.push_back(std::move(rows_[place]));
    }
    rows_ = std::move(sorted);
}

std::string FormatChanged(DateTime date, DateTime today) {
    if (date >= today) {
        return "Today " + automation::long_time(date);
    }
    if (date >= today - std::chrono::days{1}) {
        return "Yesterday " + automation::long_time(date);
    }
    return automation::general_date(date);
}

// --- the devices --------------------------------------------------------------------------------

bool DeviceRows::knows(std::string_view code) const {
    return !code.empty() && host_devices_.hsDeviceExists(code) != host::kNoDevice;
}

bool DeviceRows::is_own(std::string_view code) const {
    return !code.empty() && code.substr(0, 1) == instance_.HouseCode;
}

void DeviceRows::AddDeviceRow(const std::string& sDC, std::string_view sLocation,
                              std::string_view sName, DeviceRecordset& recordset, bool bControl) {
    if (!knows(sDC)) {
        return;
    }
    recordset.AddNew({.DC = sDC,
                      .Location = cut(sLocation),
                      .Name = cut(sName),
                      .Changed = instance_.hs().DeviceLastChange(sDC),
                      .Control = bControl,
                      .DCSort = sort_code(sDC),
                      .Status = cut(instance_.hs().DeviceString(sDC))});
}

void DeviceRows::add_unit(std::string_view location, std::string_view value,
                          DeviceRecordset& recordset) {
    std::vector<std::string> items = split(value, ',');
    items.resize(std::max(items.size(), kNameItems));
    const std::string& name = items[0];
    const std::string& base = items[1];
    if (name.empty() || base.empty()) {
        return;
    }
    const double first = automation::numeric_prefix(std::string_view(base).substr(1));
    for (std::size_t i = 0; i < devices::kSubDeviceCount; ++i) {
        AddDeviceRow(base.substr(0, 1) + automation::text_of(first + static_cast<double>(i)),
                     location, name + " " + std::string(devices::kSubDevices[i].name), recordset,
                     true);
    }
    AddDeviceRow(items[2], location, name + " Power", recordset, true);
    AddDeviceRow(items[3], location, name + " Motion", recordset, true);
}

DeviceRecordset DeviceRows::all_devices() {
    DeviceRecordset recordset;
    for (const std::string& line : split(fleet::names_section(instance_), '\0')) {
        const std::vector<std::string> parts = split(line, '=');
        if (parts.size() == 2 && !parts[0].empty() && !parts[1].empty()) {
            add_unit(parts[0], parts[1], recordset);
        }
    }
    AddDeviceRow(instance_.settings.CIDDeviceCode, "Velora", "CID", recordset, false);
    return recordset;
}

// --- the rows -----------------------------------------------------------------------------------

void DeviceRows::add_rows(PageText& page, const StatusState& state) {
    DeviceRecordset recordset = all_devices();
    if (!recordset.empty()) {
        recordset.Sort(automation::trim(state.StatusSortKey + " " + state.StatusSortDirection));
    }
    const DateTime today = std::chrono::floor<std::chrono::days>(instance_.platform().clock.now());
    page.set_row_class(kEvenRow);
    std::string_view row_class = kEvenRow;
    for (const DeviceRow& row : recordset) {
        const std::string code = automation::to_upper(row.DC);
        page.set_row_class(row_class);
        page.row_cell(instance_.hs().DeviceString(code));
        add_code_cells(page, code);
        page.row_cell(page.value(row.Name));
        page.row_cell(FormatChanged(row.Changed, today));
        if (row.Control) {
            page.row_cell(ControlPulldown(page, code));
        }
        page.Add(kNextRow);
        row_class = other_row(row_class);
    }
}

// The number of an own device in the way of the network has a column of its own, but in the
// network's own program, which shows nothing else.
void DeviceRows::add_code_cells(PageText& page, const std::string& code) const {
    const bool is_own_device = is_own(code);
    const std::string number =
        is_own_device ? hex_text(automation::checked_int32(
                            automation::numeric_prefix(std::string_view(code).substr(1))))
                      : "&nbsp;";
    if (!instance_.XapHosted) {
        page.row_cell(page.value(code));
        page.row_cell(number);
        return;
    }
    page.row_cell(is_own_device ? number : page.value(code));
}

// --- the controls -------------------------------------------------------------------------------

std::vector<std::string> DeviceRows::choices_of(const std::string& code,
                                                const std::string& buttons) const {
    if (const std::size_t mark = buttons.find(kCaptionBegin); mark != std::string::npos) {
        return split(std::string_view(buttons).substr(mark + 1), kEntryEnd);
    }
    return is_own(code) ? std::vector<std::string>{"\x02" "Clear"}
                        : std::vector<std::string>{"\x02OFF", "\x02ON"};
}

std::string DeviceRows::ControlPulldown(const PageText& page, const std::string& sDC) {
    return automation::guarded(instance_.log, "ControlPulldown", [&] {
        const std::shared_ptr<host::Device> device = host_devices_.device_with(sDC);
        if (device == nullptr) {
            return std::string();
        }
        const std::string selected;  // no entry is, so far
        std::string html = "<select class='formdropdown' onChange='ClearSubmit(this);' name='" +
                           page.value(control_name(sDC)) + "' size='1'><option selected=' '>" +
                           selected + "</option>";
        for (const std::string& choice : choices_of(sDC, device->fields().buttons)) {
            const std::string text = caption_of(choice);
            const std::string shown = page.value(text);
            html += text == selected ? "<option selected='" : "<option value='";
            html.append(shown).append("'>").append(shown).append("</option>");
        }
        return html + "</select>";
    });
}

}  // namespace status
