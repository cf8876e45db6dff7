#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/instance.h"

namespace appliance {
class Velora;
}

namespace fleet {

class Fleet;

// What watches over the units beside their queues: a check once a minute, the schedule of power
// cycles, and what motion in front of a unit does. Owned by the plug-in's entry class. Each routine
// logs its own errors, so that the next one runs. All may pump.
class Supervision {
  public:
    Supervision(core::Instance& instance, Fleet& fleet) : instance_(instance), fleet_(fleet) {}

    // Counts the minutes to the next question from `SleepMonitorInterval` again; a load of the
    // settings calls it.
    void restart_sleep_check() noexcept;

    // --- once a minute, in this order ------------------------------------------------------------

    // Wakes units that are never to dim, and asks each unit for its sleep state once in
    // `SleepMonitorInterval` + 1 minutes; never for 0.
    void UpdateSleepModeStatus();

    // Keeps the screens of units that show slides on, until nobody has moved there for long enough.
    void UpdateSlideshowNoMotionStatus();

    // Starts the power cycles of an hour of `PowerCycleInterval`, then cycles one unit a minute,
    // the last one first.
    void EvaluatePowerCycle();

    // --- motion ----------------------------------------------------------------------------------

    // The sensor `code` says `status` (2 for motion). The host still has the state before.
    void CheckMotionEvent(const std::string& code, std::int32_t status);

  private:
    // Whether the unit's slides want a screen that is on; counts the minutes without motion.
    [[nodiscard]] bool is_watched(appliance::Velora& unit);
    [[nodiscard]] std::shared_ptr<appliance::Velora> unit_of_sensor(const std::string& code) const;
    void put_out_seen_lights(appliance::Velora& unit);
    void awaken(appliance::Velora& unit);
    void cycle_next_unit();
    [[nodiscard]] bool is_scheduled(std::int16_t hour) const;

    core::Instance& instance_;
    Fleet& fleet_;
    std::int16_t cycle_index_ = -1;           // unit whose power is cycled next, -1 for none
    std::int16_t sleep_check_countdown_ = 0;  // minutes
};

}  // namespace fleet
