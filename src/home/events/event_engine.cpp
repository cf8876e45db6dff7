#include "home/events/event_engine.h"

#include <algorithm>
#include <utility>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "home/events/notation.h"
#include "home/events/trigger_match.h"
#include "home/nearest.h"
#include "home/sqlite/sqlite_event_store.h"
#include "host/clock.h"
#include "host/log.h"

namespace home {
namespace {

using automation::equals_ignoring_case;
using automation::ErrorNumber;
using automation::RunTimeError;

constexpr std::string_view kLogType = "Event";
constexpr std::size_t kLongestName = 100;

std::string in_quotes(const std::string& name) {
    return "'" + name + "'";
}

RunTimeError wrong(const std::string& text) {
    return {ErrorNumber::InvalidProcedureCall, text};
}

void check_name(const std::string& name) {
    const bool is_printable =
        std::ranges::all_of(name, [](char c) { return static_cast<unsigned char>(c) >= ' '; });
    if (name.empty() || name.size() > kLongestName || !is_printable) {
        throw wrong(in_quotes(name) + " is no name for an event; wanted 1 to " +
                    std::to_string(kLongestName) + " characters on one line");
    }
}

// What the notation cannot say, such as a script of several lines, could not be stored.
void check_notation(const EventDefinition& definition) {
    if (parse_trigger(text_of(definition.trigger)) != definition.trigger) {
        throw wrong(in_quotes(text_of(definition.trigger)) + " is no trigger");
    }
    for (const Action& action : definition.actions) {
        if (parse_action(text_of(action)) != action) {
            throw wrong(in_quotes(text_of(action)) + " is no action");
        }
    }
}

// One run on the stack of those under way.
template <typename Runs, typename Chain>
class UnderWay {
  public:
    UnderWay(Runs& runs, const Chain& chain) : runs_(runs) { runs_.push_back(chain); }

    UnderWay(const UnderWay&) = delete;
    UnderWay& operator=(const UnderWay&) = delete;

    ~UnderWay() { runs_.pop_back(); }

  private:
    Runs& runs_;
};

}  // namespace

EventEngine::EventEngine(host::Pump& pump, const host::Clock& clock, host::Log& log,
                         SqliteEventStore& store)
    : pump_(pump), clock_(clock), log_(log), store_(store) {
    StoredEvents stored = store_.load();
    events_ = std::move(stored.events);
    for (const std::string& problem : stored.problems) {
        log_line(problem);
    }
}

EventEngine::~EventEngine() = default;

// --- what there is ------------------------------------------------------------------------------

Event* EventEngine::find(std::string_view name) {
    const std::string wanted = automation::trim(name);
    const auto found = std::ranges::find_if(events_, [&](const Event& event) {
        return equals_ignoring_case(event.definition.name, wanted);
    });
    return found == events_.end() ? nullptr : &*found;
}

Event* EventEngine::find(std::int64_t id) {
    const auto found = std::ranges::find(events_, id, &Event::id);
    return found == events_.end() ? nullptr : &*found;
}

Event& EventEngine::existing(std::string_view name) {
    if (Event* event = find(name)) {
        return *event;
    }
    std::vector<std::string> names;
    for (const Event& event : events_) {
        names.push_back(event.definition.name);
    }
    throw wrong("there is no event " + in_quotes(automation::trim(name)) +
                nearest_text(names, name));
}

const Event& EventEngine::event(std::string_view name) {
    return existing(name);
}

EventDefinition EventEngine::checked(EventDefinition definition, std::int64_t own_id) {
    definition.name = automation::trim(definition.name);
    check_name(definition.name);
    if (definition.actions.empty()) {
        throw wrong("the event " + in_quotes(definition.name) +
                    " has no action; wanted at least one");
    }
    check_notation(definition);
    const Event* holder = find(definition.name);
    if (holder != nullptr && holder->id != own_id) {
        throw RunTimeError(ErrorNumber::FileAlreadyExists,
                           "there is an event " + in_quotes(holder->definition.name) + " already");
    }
    return definition;
}

void EventEngine::add(EventDefinition definition) {
    Event event;
    event.definition = checked(std::move(definition), event.id);
    event.id = store_.add(event);
    events_.push_back(std::move(event));
    keep_repetitions();
}

void EventEngine::replace(std::string_view name, EventDefinition definition) {
    Event& event = existing(name);
    Event changed = event;
    changed.definition = checked(std::move(definition), event.id);
    if (changed.definition.trigger != event.definition.trigger) {
        changed.last_day.reset();  // another time of day may still come today
    }
    save(event, changed);
}

void EventEngine::remove(std::string_view name) {
    const std::int64_t id = existing(name).id;
    store_.remove(id);
    std::erase_if(events_, [&](const Event& event) { return event.id == id; });
    keep_repetitions();
}

void EventEngine::enable(std::string_view name) {
    turn(name, Switch::On);
}

void EventEngine::disable(std::string_view name) {
    turn(name, Switch::Off);
}

void EventEngine::turn(std::string_view name, Switch position) {
    Event& event = existing(name);
    Event changed = event;
    changed.definition.enabled = position == Switch::On;
    save(event, changed);
}

void EventEngine::save(Event& event, const Event& changed) {
    store_.save(changed);
    event = changed;
    keep_repetitions();
}

// --- what happens -------------------------------------------------------------------------------

void EventEngine::device_changed(const DeviceChange& change) {
    // The one cause that actions have themselves; all others come from outside.
    const Chain cause = under_way_.empty() ? Chain{} : under_way_.back();
    set_off_all([&](const Event& event) { return matches(event.definition.trigger, change); },
                cause);
}

void EventEngine::x10_received(std::string_view code, std::string_view command) {
    set_off_all(
        [&](const Event& event) { return matches_x10(event.definition.trigger, code, command); },
        {});
}

void EventEngine::telephone_rings(std::int16_t line) {
    set_off_all([&](const Event& event) { return matches_phone(event.definition.trigger, line); },
                {});
}

void EventEngine::set_off_all(const Test& test, const Chain& cause) {
    for (const Event& event : events_) {
        if (has_started() && event.definition.enabled && test(event)) {
            set_off(event, cause);
        }
    }
}

void EventEngine::set_off(const Event& event, const Chain& cause) {
    const std::int64_t id = event.id;
    if (std::ranges::find(waiting_, id) != waiting_.end()) {
        return;
    }
    if (is_under_way(id)) {
        log_line(in_quotes(event.definition.name) + " is still running and is not set off again");
        return;
    }
    if (std::ranges::count(cause, id) >= kOwnRuns) {
        log_line(in_quotes(event.definition.name) +
                 " sets itself off again and again; cut off after " + std::to_string(kOwnRuns) +
                 " runs");
        return;
    }
    Chain chain = cause;
    chain.push_back(id);
    waiting_.push_back(id);
    pump_.post([this, id, chain, engine = std::weak_ptr(alive_)] {
        if (!engine.expired()) {
            run_waiting(id, chain);
        }
    });
}

// --- a run --------------------------------------------------------------------------------------

void EventEngine::run_waiting(std::int64_t id, const Chain& chain) {
    std::erase(waiting_, id);
    const Event* event = find(id);
    if (event != nullptr && event->definition.enabled && !is_under_way(id)) {
        run_now(*event, chain);
    }
}

void EventEngine::run(std::string_view name) {
    const Event& event = existing(name);
    if (is_under_way(event.id)) {
        throw RunTimeError(ErrorNumber::PermissionDenied,
                           "the event " + in_quotes(event.definition.name) + " is still running");
    }
    Chain chain = under_way_.empty() ? Chain{} : under_way_.back();
    chain.push_back(event.id);
    run_now(event, chain);
}

void EventEngine::run_now(const Event& event, const Chain& chain) {
    const EventDefinition definition = event.definition;  // an action may change the event
    const UnderWay<std::vector<Chain>, Chain> under_way(under_way_, chain);
    log_line(in_quotes(definition.name) + " runs (" + text_of(definition.trigger) + ")");
    if (Event* noted = find(event.id)) {
        Event changed = *noted;
        changed.last_run = clock_.now();
        ++changed.runs;
        note(*noted, changed);
    }
    for (std::size_t i = 0; i < definition.actions.size(); ++i) {
        carry_out(definition.name, i + 1, definition.actions[i]);
    }
}

void EventEngine::carry_out(const std::string& name, std::size_t number, const Action& action) {
    try {
        runner_.carry_out(action);
    } catch (const RunTimeError& error) {
        log_line(in_quotes(name) + ", action " + std::to_string(number) + " (" + text_of(action) +
                 ") failed: " + error.description());
    }
}

// What became of an event counts in memory also when the store refuses it.
void EventEngine::note(Event& event, const Event& changed) {
    event = changed;
    try {
        store_.save(event);
    } catch (const RunTimeError& error) {
        log_line("the run of " + in_quotes(event.definition.name) +
                 " is not stored: " + error.description());
    }
}

bool EventEngine::is_under_way(std::int64_t id) const {
    return std::ranges::any_of(under_way_, [&](const Chain& chain) { return chain.back() == id; });
}

void EventEngine::log_line(const std::string& text) {
    log_.Writelog(kLogType, text);
}

// --- the clock ----------------------------------------------------------------------------------

void EventEngine::start() {
    minute_timer_ = pump_.make_timer([this] { on_minute(); });
    const automation::DateTime now = clock_.now();
    for (const Event& event : events_) {
        const auto interval = interval_of(event.definition.trigger);
        const bool is_late = event.definition.enabled && interval.count() > 0 && event.last_run &&
                             now - *event.last_run >= interval;
        if (is_late) {
            set_off(event, {});
        }
    }
    keep_repetitions();
    on_minute();
}

// The wall clock may be set at any time, so no timer is armed for longer than to the next minute.
void EventEngine::wait_for_minute() {
    const automation::DateTime now = clock_.now();
    const automation::DateTime next =
        std::chrono::floor<std::chrono::minutes>(now) + std::chrono::minutes(1);
    minute_timer_->set_interval(next - now);
    minute_timer_->set_enabled(true);
}

void EventEngine::on_minute() {
    wait_for_minute();
    const automation::DateTime now = clock_.now();
    for (Event& event : events_) {
        if (event.definition.enabled && matches_minute(event, now)) {
            Event changed = event;
            changed.last_day = std::chrono::floor<std::chrono::days>(now);
            note(event, changed);
            set_off(event, {});
        }
    }
}

void EventEngine::keep_repetitions() {
    if (!has_started()) {
        return;
    }
    std::erase_if(repetitions_, [&](const Repetition& repetition) {
        const Event* event = find(repetition.id);
        return event == nullptr || !event->definition.enabled ||
               interval_of(event->definition.trigger) != repetition.interval;
    });
    for (const Event& event : events_) {
        const auto interval = interval_of(event.definition.trigger);
        const bool is_kept =
            std::ranges::find(repetitions_, event.id, &Repetition::id) != repetitions_.end();
        if (event.definition.enabled && interval.count() > 0 && !is_kept) {
            repetitions_.push_back({event.id, interval, make_timer(event)});
        }
    }
}

// The first tick comes when the interval since the last run is over, as long as the wall clock
// makes sense of that.
std::unique_ptr<host::Timer> EventEngine::make_timer(const Event& event) {
    const std::chrono::milliseconds interval = interval_of(event.definition.trigger);
    std::chrono::milliseconds rest = interval;
    if (event.last_run) {
        const std::chrono::milliseconds passed = clock_.now() - *event.last_run;
        if (passed > std::chrono::milliseconds(0) && passed < interval) {
            rest = interval - passed;
        }
    }
    auto timer = pump_.make_timer([this, id = event.id] { on_repetition(id); });
    timer->set_interval(rest);
    timer->set_enabled(true);
    return timer;
}

void EventEngine::on_repetition(std::int64_t id) {
    const auto repetition = std::ranges::find(repetitions_, id, &Repetition::id);
    if (repetition == repetitions_.end()) {
        return;
    }
    if (repetition->timer->interval() != repetition->interval) {
        repetition->timer->set_interval(repetition->interval);  // the first one was a rest
    }
    if (const Event* event = find(id)) {
        set_off(*event, {});
    }
}

}  // namespace home
