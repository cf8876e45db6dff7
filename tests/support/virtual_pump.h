#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "automation/date.h"
#include "host/clock.h"
#include "host/pump.h"

namespace support {

// A run that never comes to rest; the text names what is pending and how deep the runs nest.
class RunawayPump : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The pump and the wall clock of tests, on a time of their own that starts at 10:00:00.000 on
// 24 November 2026. One queue holds all events, ordered by due time and then by arming; a nested
// run draws from the same queue. Time moves only when nothing is ready, to the next due time or to
// the end of the run, so that an event sees its own due time as now.
//
// Owned by the fixture, as its first member. All runs throw host::PumpStopped after `stop`, and
// RunawayPump when an outermost run, with all runs nested in it, passes the event limit.
class VirtualPump : public host::Pump, public host::Clock {
  public:
    static constexpr std::size_t kEventLimit = 200'000;
    static constexpr std::size_t kDepthLimit = 500;

    explicit VirtualPump(std::size_t event_limit = kEventLimit);
    ~VirtualPump() override;

    // --- verbs of tests -------------------------------------------------------------------------

    // Runs all that falls due within this time, its end included.
    void run_for(std::chrono::milliseconds duration);

    // A machine that was busy or asleep for this long: time passes while nothing runs, then all
    // that fell due meanwhile runs in its order. A repeating timer ticks once.
    void jump(std::chrono::milliseconds duration);

    // Somebody sets the clock. Due times keep their distance.
    void set_wall_clock(automation::DateTime now);

    // Runs `event` once, after `delay`.
    void call_later(std::chrono::milliseconds delay, std::function<void()> event);

    // One line for each waiting event: "in 50 ms: timer of 100 ms".
    [[nodiscard]] std::string pending() const;

    // Present time of day for traces: "10:00:00.050".
    [[nodiscard]] std::string time_of_day() const;

    // --- host::Pump and host::Clock -------------------------------------------------------------

    void post(std::function<void()> event) override;
    [[nodiscard]] std::unique_ptr<host::Timer> make_timer(std::function<void()> on_tick) override;
    void run_ready() override;
    bool run_until(const std::function<bool()>& done, std::chrono::milliseconds limit) override;
    void stop() noexcept override;
    [[nodiscard]] std::chrono::nanoseconds steady_now() const override;
    [[nodiscard]] automation::DateTime now() const override;

  private:
    class VirtualTimer;
    class Nesting;

    // Place in the queue: due time on the steady clock, then number of arming.
    using Place = std::pair<std::chrono::nanoseconds, std::uint64_t>;

    struct Event {
        std::function<void()> run;
        std::string name;  // for `pending`
    };

    Place enqueue(std::chrono::nanoseconds due, Event event);
    void run_event(Place place);
    void throw_if_stopped() const;
    void throw_if_runaway() const;

    std::map<Place, Event> queue_;
    std::uint64_t armings_ = 0;
    std::chrono::nanoseconds steady_now_{0};
    automation::DateTime wall_clock_at_zero_;
    std::size_t event_limit_;
    std::size_t events_in_run_ = 0;
    std::size_t depth_ = 0;
    bool stopped_ = false;
};

}  // namespace support
