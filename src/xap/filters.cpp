#include "xap/filters.h"

#include <algorithm>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"
#include "core/instance.h"
#include "host/clock.h"
#include "host/host_interface.h"
#include "host/xap_message.h"

namespace xap {

namespace {

using automation::guarded;
using automation::split;

constexpr std::string_view kReceived = "Received";
constexpr std::string_view kDevices = "Devices";
constexpr std::string_view kDeviceMessages = "Device Messages";
constexpr std::string_view kNoKey = "~";

Filter filter_of(const std::string& key, const std::string& value) {
    const std::size_t end = value.find(';');
    return {.key = key,
            .tag = value.substr(0, end),
            .event = end == std::string::npos ? std::string() : value.substr(end + 1)};
}

std::string full_key(const std::string& tag, const std::string& item) {
    return automation::to_lower(tag + "." + item);
}

void add_item(DeviceClass& device, const std::string& key, const std::string& name,
              const std::string& value) {
    constexpr std::int32_t kKeyIsTaken = 457;
    if (!device.MessageList.add(key, value)) {
        throw automation::RunTimeError(
            kKeyIsTaken, "This key is already associated with an element of this collection");
    }
    device.MessageKeyList.push_back(name);
}

DeviceClass new_device(const std::string& tag) {
    DeviceClass device;
    device.Tag = tag;
    return device;
}

// As the key of a line in the settings file, or as one of the parts behind it.
bool reads_back(const std::string& name) {
    const bool is_plain = std::ranges::none_of(name, [](char c) {
        return static_cast<unsigned char>(c) < ' ' || c == '=' || c == ';' || c == '"';
    });
    return is_plain && !name.empty() && name.find_first_of("[# ") != 0 && name.back() != ' ';
}

// A value on one line.
std::string on_one_line(std::string value) {
    std::ranges::replace_if(
        value, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return value;
}

}  // namespace

std::string Filter::message_class() const {
    const std::size_t mark = key.find('~');
    return mark == std::string::npos ? std::string() : key.substr(mark + 1);
}

// --- what the settings file holds ---------------------------------------------------------------

std::vector<std::string> Filters::entries_of(std::string_view section) const {
    const std::string text =
        core::without_quotes(instance_.hs().GetINISection(section, core::kSettingsFile));
    return split(text, '\0');
}

// A further "=" of a line cuts its value.
void Filters::InitFilterDictionary() {
    guarded(instance_.log, "InitFilterDictionary ", [&] {
        filters_.clear();
        for (const std::string& entry : entries_of(kReceived)) {
            const std::vector<std::string> fields = split(entry, '=');
            if (!fields[0].empty() && fields.size() > 1) {
                filters_.add(fields[0], filter_of(fields[0], fields[1]));
            }
        }
    });
}

void Filters::InitDeviceDictionary() {
    guarded(instance_.log, "InitDeviceDictionary ", [&] {
        devices_.clear();
        saved_sequence_ = FilterSequence_;
        for (const std::string& entry : entries_of(kDevices)) {
            const std::vector<std::string> fields = split(entry, '=');
            if (!fields[0].empty() && fields.size() > 1 && devices_.find(fields[0]) == nullptr) {
                devices_.add(fields[0], read_device(fields[0], fields[1]));
            }
        }
    });
}

DeviceClass Filters::read_device(const std::string& tag, const std::string& value) const {
    DeviceClass device = new_device(tag);
    const std::vector<std::string> parts = split(value, ';');
    if (const auto date = automation::parse_date(parts[0])) {
        device.LastChange = automation::date_time_of(*date);
    }
    for (std::size_t i = 1; i < parts.size(); ++i) {
        const std::string key = full_key(tag, parts[i]);
        add_item(device, key, automation::to_lower(parts[i]),
                 core::read_setting(instance_, kDeviceMessages, key, ""));
    }
    return device;
}

// --- a message ----------------------------------------------------------------------------------

void Filters::record(const host::XapMessage& message) {
    const Filter* const filter =
        filters_.size() == 0 ? nullptr
                             : filters_.find(message.MsgSource() + "~" + message.MsgClass());
    if (filter == nullptr) {
        return;
    }
    DeviceClass heard;
    const std::vector<std::string> blocks = message.MsgSection();
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        for (const std::string& line : message.msgCollection(i)) {
            if (const std::size_t equals = line.find('='); equals != std::string::npos) {
                const std::string name = blocks[i] + "." + line.substr(0, equals);
                add_item(heard, name, name, line.substr(equals + 1));
            }
        }
    }
    DeviceClass* const device = devices_.find(filter->tag);
    if (device == nullptr) {
        return;
    }
    device->MessageList = std::move(heard.MessageList);
    device->MessageKeyList = std::move(heard.MessageKeyList);
    device->LastChange = instance_.platform().clock.now();
    device->Sequence = ++FilterSequence_;
    if (!filter->event.empty()) {
        queue_event_(filter->tag);
    }
}

// --- what a person changes ----------------------------------------------------------------------

void Filters::SaveFilterSettigs(const FormField& field) {
    guarded(instance_.log, "SaveFilterSettigs ", [&] {
        automation::KeyedCollection<Filter> filters;
        host::SettingsEntries entries;
        std::vector<std::string> tags;
        for (std::size_t row = 0; row <= filters_.size(); ++row) {
            const std::string number = std::to_string(row);
            const std::string key = field("Source" + number) + "~" + field("Class" + number);
            if (key == kNoKey) {
                continue;
            }
            const std::string tag = automation::replace_all(field("FilterTag" + number), " ", "_");
            const std::string event = field("FilterEvent" + number);
            tags.push_back(tag);
            if (filters.add(key, {.key = key, .tag = tag, .event = event})) {
                entries.emplace_back(key, std::string(tag).append(";").append(event));
            }
        }
        instance_.hs().SaveINISection(kReceived, entries, core::kSettingsFile);
        filters_ = std::move(filters);
        for (const std::string& tag : tags) {
            devices_.add(tag, new_device(tag));
        }
    });
}

// --- what is to outlive the program -------------------------------------------------------------

void Filters::SaveDeviceDictionary() {
    guarded(instance_.log, "SaveDeviceDictionary ", [&] {
        if (FilterSequence_ == saved_sequence_) {
            return;
        }
        const std::int32_t sequence = FilterSequence_;
        host::SettingsEntries devices;
        host::SettingsEntries messages;
        for (const DeviceClass& device : devices_) {
            if (!reads_back(device.Tag)) {
                continue;
            }
            std::string line = automation::general_date(device.LastChange);
            auto value = device.MessageList.begin();
            for (const std::string& name : device.MessageKeyList) {
                if (reads_back(name)) {
                    line += ";" + name;
                    messages.emplace_back(full_key(device.Tag, name), on_one_line(*value));
                }
                ++value;
            }
            devices.emplace_back(device.Tag, line);
        }
        instance_.hs().SaveINISection(kDeviceMessages, messages, core::kSettingsFile);
        instance_.hs().SaveINISection(kDevices, devices, core::kSettingsFile);
        saved_sequence_ = sequence;
    });
}

}  // namespace xap
