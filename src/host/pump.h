#pragma once

#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <string>

namespace host {

// Thrown out of a waiting call when the program ends, so that waits nested in one another unwind
// to the outermost run. No RunTimeError: no routine's error handler takes it.
class PumpStopped : public std::exception {
  public:
    [[nodiscard]] const char* what() const noexcept override { return "the pump has stopped"; }
};

// A repeating timer, owned by whoever made it. Destroying it cancels it; both members may be set
// from within its own tick, and it may be destroyed there.
class Timer {
  public:
    Timer() = default;
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    virtual ~Timer() = default;

    // 0 or less never ticks. Setting either property, to whatever value, restarts the interval.
    [[nodiscard]] virtual std::chrono::milliseconds interval() const = 0;
    virtual void set_interval(std::chrono::milliseconds interval) = 0;
    [[nodiscard]] virtual bool enabled() const = 0;
    virtual void set_enabled(bool enabled) = 0;
};

// The message pump: the one thread on which everything from outside arrives as an event, one at a
// time. It belongs to the program and outlives all that uses it. Events run in the order in which
// they fall due, equal due times in the order of arming. An event may wait, and then other events
// run on top of it: after a wait, find your objects again.
class Pump {
  public:
    Pump() = default;
    Pump(const Pump&) = delete;
    Pump& operator=(const Pump&) = delete;
    virtual ~Pump() = default;

    // Runs `event` after the present one, from the outermost or a nested run.
    virtual void post(std::function<void()> event) = 0;

    // A disabled timer of interval 0. `on_tick` runs as an event; an exception of it leaves
    // through the run that carries it.
    [[nodiscard]] virtual std::unique_ptr<Timer> make_timer(std::function<void()> on_tick) = 0;

    // Runs the events that are ready now, at least one if there is one, and returns.
    // Throws: PumpStopped after `stop`.
    virtual void run_ready() = 0;

    // Runs events until `done` holds, tested first and after each event, or until `limit` has
    // passed. Returns whether `done` held. Throws: PumpStopped after `stop`.
    virtual bool run_until(const std::function<bool()>& done, std::chrono::milliseconds limit) = 0;

    // Ends every run, nested ones first, with PumpStopped. May be called from within an event.
    virtual void stop() noexcept = 0;

    // Time that has passed on the pump's steady clock; only differences have a meaning.
    [[nodiscard]] virtual std::chrono::nanoseconds steady_now() const = 0;
};

}  // namespace host
