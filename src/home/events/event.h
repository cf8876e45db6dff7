#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "automation/date.h"

namespace home {

// --- what sets an event off

// Once a day in this minute of the wall clock, 0 to 1439 minutes after midnight.
struct AtTime {
    std::chrono::minutes since_midnight{};
    friend bool operator==(const AtTime&, const AtTime&) = default;
};

// Again and again, 1 to 1440 minutes apart.
struct Every {
    std::chrono::minutes interval{};
    friend bool operator==(const Every&, const Every&) = default;
};

// Value or status of a device become other than they were. `value` is a number, a word of the
// device's list of values, or "on" or "off" for the status; "" for any change.
struct DeviceBecomes {
    std::string code;
    std::string value;
    friend bool operator==(const DeviceBecomes&, const DeviceBecomes&) = default;
};

// Somebody else has sent "on" or "off" over the power line; "any" for both.
struct X10Heard {
    std::string code;
    std::string command;
    friend bool operator==(const X10Heard&, const X10Heard&) = default;
};

// A call comes in on a telephone line, from 1.
struct PhoneRings {
    std::int16_t line = 1;
    friend bool operator==(const PhoneRings&, const PhoneRings&) = default;
};

using Trigger = std::variant<AtTime, Every, DeviceBecomes, X10Heard, PhoneRings>;

// --- what it does

// One line of script.
struct RunScript {
    std::string text;
    friend bool operator==(const RunScript&, const RunScript&) = default;
};

// An action that a plug-in understands, as it goes to the plug-in: fields separated by chr 2.
struct PluginAction {
    std::string text;
    friend bool operator==(const PluginAction&, const PluginAction&) = default;
};

// `value` is a number or a word that the device knows when the event runs.
struct SetDevice {
    std::string code;
    std::string value;
    friend bool operator==(const SetDevice&, const SetDevice&) = default;
};

// A button of a device: "<label> @ <location> Velora".
struct PressButton {
    std::string text;
    friend bool operator==(const PressButton&, const PressButton&) = default;
};

using Action = std::variant<RunScript, PluginAction, SetDevice, PressButton>;

// --- the event

// What a person writes down.
struct EventDefinition {
    std::string name;
    Trigger trigger;
    std::vector<Action> actions;  // at least one, run in this order
    bool enabled = true;          // one that is not runs only by hand

    friend bool operator==(const EventDefinition&, const EventDefinition&) = default;
};

// An event of the house with what became of it.
struct Event {
    std::int64_t id = 0;  // never given twice
    EventDefinition definition;
    std::optional<automation::DateTime> last_run;  // absent before the first
    std::int64_t runs = 0;
    // The day on which its time of day came last, so that a clock that is set back, or a new start
    // of the program, brings no second run.
    std::optional<std::chrono::local_days> last_day;

    friend bool operator==(const Event&, const Event&) = default;
};

}  // namespace home
