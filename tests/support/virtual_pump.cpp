#include "support/virtual_pump.h"

#include <algorithm>
#include <iomanip>
#include <optional>
#include <sstream>

namespace support {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

namespace {

constexpr std::size_t kShownEvents = 20;

constexpr automation::DateTime start_of_time() {
    using namespace std::chrono_literals;
    return std::chrono::local_days{2026y / 11 / 24} + 10h;
}

long long in_milliseconds(nanoseconds time) {
    return std::chrono::duration_cast<milliseconds>(time).count();
}

}  // namespace

class VirtualPump::VirtualTimer : public host::Timer {
  public:
    VirtualTimer(VirtualPump& pump, std::function<void()> on_tick)
        : pump_(pump), on_tick_(std::make_shared<std::function<void()>>(std::move(on_tick))) {}

    ~VirtualTimer() override { disarm(); }

    [[nodiscard]] milliseconds interval() const override { return interval_; }

    void set_interval(milliseconds interval) override {
        interval_ = interval;
        restart();
    }

    [[nodiscard]] bool enabled() const override { return enabled_; }

    void set_enabled(bool enabled) override {
        enabled_ = enabled;
        restart();
    }

  private:
    void restart() {
        disarm();
        if (enabled_ && interval_ > milliseconds::zero()) {
            arm(pump_.steady_now() + interval_);
        }
    }

    void arm(nanoseconds due) {
        const std::string name = "timer of " + std::to_string(interval_.count()) + " ms";
        place_ = pump_.enqueue(due, {[this, due] { tick(due); }, name});
    }

    void disarm() {
        if (place_) {
            pump_.queue_.erase(*place_);
            place_.reset();
        }
    }

    void tick(nanoseconds due) {
        const auto on_tick = on_tick_;  // *this may go while it runs
        const nanoseconds next = due + interval_;
        arm(next > pump_.steady_now() ? next : pump_.steady_now() + interval_);
        (*on_tick)();
    }

    VirtualPump& pump_;
    std::shared_ptr<std::function<void()>> on_tick_;
    milliseconds interval_{0};
    bool enabled_ = false;
    std::optional<Place> place_;  // in the queue, while armed
};

// One run on the stack. The outermost one starts the count of events.
class VirtualPump::Nesting {
  public:
    explicit Nesting(VirtualPump& pump) : pump_(pump) {
        pump_.throw_if_stopped();
        if (pump_.depth_++ == 0) {
            pump_.events_in_run_ = 0;
        }
    }

    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

    ~Nesting() { --pump_.depth_; }

  private:
    VirtualPump& pump_;
};

VirtualPump::VirtualPump(std::size_t event_limit)
    : wall_clock_at_zero_(start_of_time()), event_limit_(event_limit) {}

VirtualPump::~VirtualPump() = default;

void VirtualPump::run_for(milliseconds duration) {
    run_until([] { return false; }, duration);
}

void VirtualPump::jump(milliseconds duration) {
    steady_now_ += duration;
    run_ready();
}

void VirtualPump::set_wall_clock(automation::DateTime now) {
    wall_clock_at_zero_ = now - std::chrono::floor<milliseconds>(steady_now_);
}

void VirtualPump::call_later(milliseconds delay, std::function<void()> event) {
    enqueue(steady_now_ + delay, {std::move(event), "call"});
}

std::string VirtualPump::pending() const {
    std::ostringstream text;
    std::size_t shown = 0;
    for (const auto& [place, event] : queue_) {
        if (shown++ == kShownEvents) {
            text << "and " << queue_.size() - kShownEvents << " more\n";
            break;
        }
        text << "in " << in_milliseconds(place.first - steady_now_) << " ms: " << event.name
             << '\n';
    }
    return text.str();
}

std::string VirtualPump::time_of_day() const {
    const automation::DateTime moment = now();
    const std::chrono::hh_mm_ss time{moment - std::chrono::floor<std::chrono::days>(moment)};
    std::ostringstream text;
    text << std::setfill('0') << std::setw(2) << time.hours().count() << ':' << std::setw(2)
         << time.minutes().count() << ':' << std::setw(2) << time.seconds().count() << '.'
         << std::setw(3) << time.subseconds().count();
    return text.str();
}

void VirtualPump::post(std::function<void()> event) {
    enqueue(steady_now_, {std::move(event), "post"});
}

std::unique_ptr<host::Timer> VirtualPump::make_timer(std::function<void()> on_tick) {
    return std::make_unique<VirtualTimer>(*this, std::move(on_tick));
}

void VirtualPump::run_ready() {
    const Nesting nesting(*this);
    const std::uint64_t armed_before = armings_;
    const auto first_ready = [&] {
        return std::find_if(queue_.begin(), queue_.end(), [&](const auto& entry) {
            return entry.first.first > steady_now_ || entry.first.second <= armed_before;
        });
    };
    for (auto next = first_ready(); next != queue_.end() && next->first.first <= steady_now_;
         next = first_ready()) {
        run_event(next->first);
    }
}

bool VirtualPump::run_until(const std::function<bool()>& done, milliseconds limit) {
    const Nesting nesting(*this);
    const nanoseconds deadline = steady_now_ + limit;
    while (!done()) {
        if (queue_.empty() || queue_.begin()->first.first > deadline) {
            steady_now_ = std::max(steady_now_, deadline);
            return false;
        }
        run_event(queue_.begin()->first);
    }
    return true;
}

void VirtualPump::stop() noexcept {
    stopped_ = true;
}

nanoseconds VirtualPump::steady_now() const {
    return steady_now_;
}

automation::DateTime VirtualPump::now() const {
    return wall_clock_at_zero_ + std::chrono::floor<milliseconds>(steady_now_);
}

VirtualPump::Place VirtualPump::enqueue(nanoseconds due, Event event) {
    const Place place{due, ++armings_};
    queue_.emplace(place, std::move(event));
    return place;
}

void VirtualPump::run_event(Place place) {
    ++events_in_run_;
    throw_if_runaway();
    const auto taken = queue_.extract(place);
    steady_now_ = std::max(steady_now_, place.first);
    taken.mapped().run();
    throw_if_stopped();
}

void VirtualPump::throw_if_stopped() const {
    if (stopped_) {
        throw host::PumpStopped();
    }
}

void VirtualPump::throw_if_runaway() const {
    if (events_in_run_ <= event_limit_ && depth_ <= kDepthLimit) {
        return;
    }
    throw RunawayPump("The run does not end: " + std::to_string(events_in_run_) +
                      " events, depth " + std::to_string(depth_) + ", at " + time_of_day() +
                      ", pending:\n" + pending());
}

}  // namespace support
