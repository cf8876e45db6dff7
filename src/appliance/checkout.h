#pragma once

#include <string_view>

namespace core {
class Instance;
}

namespace appliance {

class Velora;

// Walks one unit through its functions, for a person who stands in front of it. A check that fails
// writes a line to the log, and the test goes on. It looks at what the unit was told and not at
// what it does, so that a unit without power passes too. Pumps; the caller holds the unit. Errors
// end the test and are logged.
//
// A test sends more commands than a queue holds: by itself it ends with a power cycle of the unit.
// With `self_test_leaves_the_queue_room` it waits between its steps until the unit is idle.
void Checkout(core::Instance& instance, Velora& unit);

// One step: "PUSH", "AUDIO", "TEXT", "LED", "SLEEP" or "BACKLIGHT"; others do nothing. `Checkout`
// goes through the first four. Errors leave.
void perform_test(core::Instance& instance, Velora& unit, std::string_view step);

}  // namespace appliance
