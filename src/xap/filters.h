#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/keyed_collection.h"
#include "xap/device_class.h"

namespace core {
class Instance;
}

namespace host {
class XapMessage;
}

namespace xap {

// One of the user's filters: which messages are recorded, and under which tag.
struct Filter {
    std::string key;  // source, "~", class
    std::string tag;
    std::string event;  // not empty: the user's script is called

    [[nodiscard]] std::string source() const { return key.substr(0, key.find('~')); }

    [[nodiscard]] std::string message_class() const;
};

// The user's filters with what they have recorded. In the settings file, the section "Received"
// holds the filters, "Devices" and "Device Messages" what was recorded. Part of the node.
class Filters {
  public:
    // A filter whose event is wanted has recorded a message on this tag.
    using QueueFilterEvent = std::function<void(std::string_view tag)>;

    // Gives a field of the form that a person has sent, "" when it is not there.
    using FormField = std::function<std::string(const std::string& name)>;

    Filters(core::Instance& instance, QueueFilterEvent queue_event)
        : instance_(instance), queue_event_(std::move(queue_event)) {}

    // Both read their sections anew. Errors are logged, and end that reading.
    void InitFilterDictionary();
    void InitDeviceDictionary();

    // Records a message that a filter wants. Throws: RunTimeError 457 for an item that stands twice
    // in the message, before anything is recorded.
    void record(const host::XapMessage& message);

    // Takes all filters from a form, fields "Source0", "Class0", "FilterTag0" and "FilterEvent0"
    // and so on up to the present number: rows without source and class are dropped, and so is a
    // second one of the same. Each tag is one to record on from now on. Errors are logged; the old
    // filters then stay.
    void SaveFilterSettigs(const FormField& field);

    // Writes what was recorded to the settings file, unless nothing was since the last time. Names
    // that would not read back are left out. Errors are logged.
    void SaveDeviceDictionary();

    [[nodiscard]] const automation::KeyedCollection<Filter>& FilterDictionary() const noexcept {
        return filters_;
    }

    [[nodiscard]] const automation::KeyedCollection<DeviceClass>& DeviceDictionary()
        const noexcept {
        return devices_;
    }

  private:
    [[nodiscard]] std::vector<std::string> entries_of(std::string_view section) const;
    [[nodiscard]] DeviceClass read_device(const std::string& tag, const std::string& value) const;

    core::Instance& instance_;
    QueueFilterEvent queue_event_;
    automation::KeyedCollection<Filter> filters_;
    automation::KeyedCollection<DeviceClass> devices_;
    std::int32_t FilterSequence_ = 0;
    std::int32_t saved_sequence_ = 0;
};

}  // namespace xap
