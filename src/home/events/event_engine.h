#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "home/device_table.h"
#include "home/events/event.h"
#include "home/events/event_runner.h"
#include "host/pump.h"

namespace host {
class Clock;
class Log;
}  // namespace host

namespace home {

class SqliteEventStore;

// The events of the house: it keeps them, hears of what happens, and runs those that are set off.
// Owned by the host. Names are compared without regard to case.
//
// A run is an event of the pump of its own, after the one that set it off. A trigger that comes
// while a run of the same event waits adds none; nor does one that comes while a run is under way,
// such as one that its own action makes, which is a line in the log. Events that set each other
// off run kOwnRuns times each in such a chain and are then cut off with a line in the log. An
// action that fails is a line in the log, and the next action follows.
class EventEngine {
  public:
    static constexpr int kOwnRuns = 3;

    // All must outlive the engine. Events that cannot be read are a line in the log and stay in
    // the store. Throws: RunTimeError of the store.
    EventEngine(host::Pump& pump, const host::Clock& clock, host::Log& log,
                SqliteEventStore& store);
    EventEngine(const EventEngine&) = delete;
    EventEngine& operator=(const EventEngine&) = delete;
    ~EventEngine();

    // --- what there is; a change is on disk when the call returns

    // Oldest first. Valid until the next change or run.
    [[nodiscard]] const std::vector<Event>& events() const noexcept { return events_; }

    // Valid as above. Throws: RunTimeError 5 with the nearest names for one that there is not.
    [[nodiscard]] const Event& event(std::string_view name);

    // All throw RunTimeError, and then nothing has changed: 5 for a name that there is not or that
    // is no name, or a definition without actions; 58 for a name that is taken; the store's.
    void add(EventDefinition definition);
    // Keeps the place, the last run and the number of runs; may give another name.
    void replace(std::string_view name, EventDefinition definition);
    void remove(std::string_view name);
    void enable(std::string_view name);
    void disable(std::string_view name);

    // --- who carries the actions out; installed by the program

    // They throw RunTimeError for what fails, and may pump. An action whose carrier is missing
    // fails with a text that says so.
    EventRunner& runner() noexcept { return runner_; }

    // --- what happens

    // From now on what happens sets events off; before, they run only by hand. An interval goes on
    // where it was before the program ended; one that would have run meanwhile runs now. Missed
    // times of day are skipped. Called once, when everything that actions need is there.
    void start();

    void device_changed(const DeviceChange& change);
    void x10_received(std::string_view code, std::string_view command);
    void telephone_rings(std::int16_t line);

    // By hand, enabled or not, before the call returns. May pump. Throws: RunTimeError 5 for a
    // name that there is not, 70 when a run of it is under way.
    void run(std::string_view name);

  private:
    using Test = std::function<bool(const Event&)>;
    // Ids of the events that led to a run, each set off by the one before it; its own comes last.
    using Chain = std::vector<std::int64_t>;
    enum class Switch : std::uint8_t { Off, On };

    // The timer of an event that comes again and again, on the pump's steady clock.
    struct Repetition {
        std::int64_t id;
        std::chrono::minutes interval;
        std::unique_ptr<host::Timer> timer;
    };

    [[nodiscard]] bool has_started() const noexcept { return minute_timer_ != nullptr; }

    [[nodiscard]] Event* find(std::string_view name);
    [[nodiscard]] Event* find(std::int64_t id);
    [[nodiscard]] Event& existing(std::string_view name);
    [[nodiscard]] EventDefinition checked(EventDefinition definition, std::int64_t own_id);
    void save(Event& event, const Event& changed);
    void turn(std::string_view name, Switch position);

    void set_off_all(const Test& test, const Chain& cause);
    void set_off(const Event& event, const Chain& cause);
    void run_waiting(std::int64_t id, const Chain& chain);
    void run_now(const Event& event, const Chain& chain);
    void carry_out(const std::string& name, std::size_t number, const Action& action);
    void note(Event& event, const Event& changed);
    [[nodiscard]] bool is_under_way(std::int64_t id) const;

    void on_minute();
    void wait_for_minute();
    void keep_repetitions();
    [[nodiscard]] std::unique_ptr<host::Timer> make_timer(const Event& event);
    void on_repetition(std::int64_t id);
    void log_line(const std::string& text);

    host::Pump& pump_;
    const host::Clock& clock_;
    host::Log& log_;
    SqliteEventStore& store_;
    EventRunner runner_;
    std::vector<Event> events_;
    std::vector<std::int64_t> waiting_;          // whose run is posted and has not begun
    std::vector<Chain> under_way_;               // the innermost run last
    std::unique_ptr<host::Timer> minute_timer_;  // none before the start
    std::vector<Repetition> repetitions_;
    // Gone when the engine is; posted events look for it.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace home
