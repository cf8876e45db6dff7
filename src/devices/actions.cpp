#include "devices/actions.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"
#include "devices/host_devices.h"
#include "devices/status_table.h"
#include "host/host_interface.h"

namespace devices {

namespace {

constexpr char kFieldSeparator = '\x02';
constexpr char kEntrySeparator = '\x01';
constexpr std::string_view kPluginName = "zynVelora";
constexpr std::string_view kTriggerPrefix = "Velora";
constexpr std::string_view kTriggerLogType = "TriggerAction";

constexpr std::size_t kPairs = 12;
constexpr std::size_t kFirstPair = 2;  // field
constexpr std::size_t kLastDashPosition = 4;
constexpr int kHighestDeviceNumber = 63;

// --- the layout of the host's controls -----------------------------------------------------------

constexpr std::int32_t kRowHeight = 360;
constexpr std::int32_t kFirstRow = 50;

struct ControlColumn {
    std::int32_t left;
    std::int32_t width;
    bool is_label;  // labels have a height, and their text stands to the right
};

constexpr std::array<ControlColumn, 4> kColumns{{
    {500, 300, true},
    {3050, 300, true},
    {850, 2000, false},
    {3400, 800, false},
}};
constexpr std::int32_t kLabelHeight = 375;
constexpr std::int32_t kAlignRight = 1;

// Throws: RunTimeError 424 for what is no object, 91 for Nothing.
std::shared_ptr<automation::Object> object_of(const automation::Value& value) {
    auto object = automation::to_object(value);
    if (object == nullptr) {
        throw automation::RunTimeError(automation::ErrorNumber::ObjectVariableNotSet);
    }
    return object;
}

void place(automation::Object& control, const ControlColumn& column, std::int32_t top) {
    control.let("Left", column.left);
    control.let("Width", column.width);
    control.let("Top", top);
    if (column.is_label) {
        control.let("Height", kLabelHeight);
        control.let("Alignment", kAlignRight);
    }
}

// --- what an action text says --------------------------------------------------------------------

struct ActionPair {
    std::string device;  // "[11-Kitchen"
    std::int16_t index;  // status index of its label
};

std::optional<std::int16_t> index_of_label(std::string_view label) {
    for (std::int16_t index = 0; static_cast<std::size_t>(index) < kStatusCount; ++index) {
        if (DeviceCommands(index) == label) {
            return index;
        }
    }
    return std::nullopt;
}

bool names_a_device(std::string_view device) {
    const std::size_t dash = device.find('-');
    return dash != std::string_view::npos && dash < kLastDashPosition;
}

std::vector<ActionPair> pairs_of(std::string_view action) {
    std::vector<ActionPair> pairs;
    const std::vector<std::string> fields = automation::split(action, kFieldSeparator);
    for (std::size_t pair = 0; pair < kPairs; ++pair) {
        const std::size_t field = kFirstPair + 2 * pair;
        if (field + 1 >= fields.size()) {
            break;
        }
        const auto index = index_of_label(fields[field + 1]);
        if (index && names_a_device(fields[field])) {
            pairs.push_back({fields[field], *index});
        }
    }
    return pairs;
}

// "[13" for "[11-Kitchen" and 2.
std::string device_code(std::string_view device, std::int32_t offset) {
    const std::size_t dash = device.find('-');
    const std::string_view digits = dash > 1 ? device.substr(1, dash - 1) : std::string_view();
    const std::int32_t first = automation::checked_int32(automation::numeric_prefix(digits));
    return std::string(device.substr(0, 1)) + std::to_string(first + offset);
}

std::string shown_name(const std::string& device) {
    const std::size_t semicolon = device.find(';');
    return semicolon == std::string::npos ? device : automation::trim(device.substr(semicolon + 1));
}

// --- what a label does ---------------------------------------------------------------------------

struct ActionRow {
    std::int16_t first;
    std::int16_t last;
    std::int32_t offset;  // of the device that is set
    std::int32_t step;    // between the values of neighbours
};

// The labels of the browser fall to the mail LED with the values 3 and 4, and volumes go out in
// percent, where a button gives 0 to 4: events in use rely on both.
constexpr std::array<ActionRow, 8> kActionRows{{
    {0, 3, 0, 1},
    {4, 7, 1, 1},
    {8, 9, 2, 1},
    {10, 12, 3, 1},
    {13, 17, 4, 1},
    {18, 36, 6, 1},
    {37, 41, 7, 25},
    {42, 46, 8, 25},
}};

const ActionRow& row_of(std::int16_t index) {
    return *std::ranges::find_if(kActionRows,
                                 [index](const ActionRow& row) { return index <= row.last; });
}

}  // namespace

void Actions::ModifyActionUI(const std::shared_ptr<automation::Object>& controls) {
    automation::guarded(instance_.log, "ModifyActionUI: ", [&] {
        instance_.log.debug([] { return "ModifyActionUI"; });
        const auto collection = object_of(controls);
        std::int32_t position = 0;
        for (std::size_t row = 0; row < kPairs; ++row) {
            const std::int32_t top = static_cast<std::int32_t>(row) * kRowHeight + kFirstRow;
            for (const ControlColumn& column : kColumns) {
                std::array<automation::Value, 1> at{automation::Value(++position)};
                const auto control = object_of(
                    collection->invoke(automation::kDefaultMember, automation::Access::Call, at));
                instance_.log.debug([&] {
                    return "Modify Control Top/Left/Width " + std::to_string(top) + "/" +
                           std::to_string(column.left) + "/" + std::to_string(column.width);
                });
                place(*control, column, top);
            }
        }
    });
}

std::string Actions::ActionUIFormat(std::string_view action) {
    return automation::guarded(instance_.log, "Action UI Error: ", [&] {
        std::string words;
        if (!action.starts_with(kPluginName)) {
            return words;
        }
        for (const ActionPair& pair : pairs_of(action)) {
            words += (words.empty() ? "" : " AND ") + std::string(DeviceCommands(pair.index)) +
                     " to " + shown_name(pair.device) + " Velora";
        }
        return words;
    });
}

void Actions::TriggerAction(std::string_view action) {
    automation::guarded(instance_.log, "TriggerAction: ", [&] {
        std::string shown(action);
        std::ranges::replace(shown, kFieldSeparator, ':');
        instance_.log.VeloraWriteLog(kTriggerLogType, shown);
        if (!action.starts_with(kTriggerPrefix)) {
            return;
        }
        for (const ActionPair& pair : pairs_of(action)) {
            const ActionRow& row = row_of(pair.index);
            instance_.hs().SetDeviceValue(device_code(pair.device, row.offset),
                                          (pair.index - row.first) * row.step);
        }
    });
}

void Actions::ButtonPress(std::string_view button_name) {
    automation::guarded(instance_.log, "ButtonPress", [&] {
        const std::vector<std::string> sides = automation::split(button_name, '@');
        if (sides.size() != 2) {
            return;
        }
        std::string location = sides[1];
        constexpr std::string_view kWord = "Velora";
        for (auto at = automation::find_ignoring_case(location, kWord); at != std::string::npos;
             at = automation::find_ignoring_case(location, kWord)) {
            location.erase(at, kWord.size());
        }
        press(automation::to_lower(automation::trim(location)),
              std::string(kPluginName) + kFieldSeparator + automation::trim(sides[0]));
    });
}

std::string Actions::code_of(int number) const {
    return instance_.HouseCode + std::to_string(number);
}

void Actions::press(std::string_view location, std::string_view button) {
    instance_.log.debug([&] {
        return "Button Press, Location=" + std::string(location) +
               ", Button=" + std::string(button) + ", HouseCode=" + instance_.HouseCode;
    });
    for (int number = 1; number <= kHighestDeviceNumber; ++number) {
        const auto device = host_devices_.device_with(code_of(number));
        if (device == nullptr || automation::to_lower(device->fields().location) != location) {
            continue;
        }
        instance_.log.VeloraWriteLog(core::kLogType,
                                     "Button Device Found, Location is " + std::string(location));
        instance_.log.VeloraWriteLog(core::kLogType, "Button Location Found");
        if (press_from(number, button)) {
            return;
        }
    }
}

bool Actions::press_from(int first, std::string_view button) {
    for (std::size_t offset = 0; offset < kSubDeviceCount; ++offset) {
        const std::string code = code_of(first + static_cast<int>(offset));
        const auto device = host_devices_.device_with(code);
        if (device == nullptr) {
            return false;
        }
        const std::vector<std::string> entries =
            automation::split(device->fields().buttons, kEntrySeparator);
        const auto entry = std::ranges::find_if(entries, [button](const std::string& candidate) {
            return candidate.find(button) != std::string::npos;
        });
        if (entry == entries.end()) {
            continue;
        }
        instance_.log.VeloraWriteLog(core::kLogType, "Button Found");
        instance_.log.VeloraWriteLog(core::kLogType, "Button SetDeviceValue=" + code);
        instance_.hs().SetDeviceValue(code, static_cast<std::int32_t>(entry - entries.begin()));
        return true;
    }
    return false;
}

}  // namespace devices
