#include "appliance/queue_timer.h"

#include <chrono>
#include <utility>

#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "core/instance.h"
#include "host/host_interface.h"

namespace appliance {

namespace {

using namespace std::chrono_literals;

constexpr auto kCallerDisplayTime = 10000ms;
constexpr std::int32_t kX10Events = 1;

host::Timer& element(const std::array<std::unique_ptr<host::Timer>, kTimersInArray>& timers,
                     std::size_t index) {
    if (index >= timers.size()) {
        throw automation::RunTimeError(automation::ErrorNumber::SubscriptOutOfRange);
    }
    return *timers[index];
}

bool is_switched_on(const core::Instance& instance, std::string_view key) {
    const auto number =
        automation::parse_number(core::read_setting(instance, core::kSettingsSection, key, "0"));
    return number.value_or(0) != 0;
}

}  // namespace

QueueTimer::QueueTimer(core::Instance& instance, QueueTimerEvents& events)
    : instance_(instance), events_(events) {
    host::Pump& pump = instance.platform().pump;
    for (std::size_t i = 0; i < kTimersInArray; ++i) {
        timer1_[i] = pump.make_timer([this, i] { events_.Timer1_Timer(i); });
        ie_timer_[i] = pump.make_timer([this, i] { events_.IETimer_Timer(i); });
        ie_timer_[i]->set_enabled(true);
    }
    timer2_ = pump.make_timer([this] { events_.Timer2_Timer(); });
    timer3_ = pump.make_timer([this] { events_.Timer3_Timer(); });
    timer4_ = pump.make_timer([this] { events_.Timer4_Timer(); });
    timer4_->set_interval(kCallerDisplayTime);
    timer5_ = pump.make_timer([this] { events_.Timer5_Timer(); });
    timer5_->set_enabled(true);
    bsc_timer_ = pump.make_timer([this] { events_.BSCTimer_Timer(); });
    script_queue_timer_ = pump.make_timer([this] { events_.ScriptQueueTimer_Timer(); });
    jukebox_ = std::make_shared<JukeboxLink>(
        instance, [this] { events_.ConnectTimer_Timer(); }, [this] { events_.SendTimer_Timer(); });
}

QueueTimer::~QueueTimer() {
    jukebox_->shut();
    instance_.hs().UnregisterEventCB(*this);
}

void QueueTimer::Load() {
    automation::guarded(instance_.log, "QueueTimer Load ", [&] {
        if (is_switched_on(instance_, "AwakenOnMotion") ||
            is_switched_on(instance_, "StartSlildeshow")) {
            instance_.hs().RegisterEventCB(kX10Events, *this);
        }
    });
}

void QueueTimer::HSEvent(std::span<const automation::Value> parms) {
    events_.HSEvent(parms);
}

host::Timer& QueueTimer::Timer1(std::size_t index) {
    return element(timer1_, index);
}

host::Timer& QueueTimer::IETimer(std::size_t index) {
    return element(ie_timer_, index);
}

std::vector<host::TimerStatus> QueueTimer::running_timers() const {
    std::vector<host::TimerStatus> running;
    const auto add = [&running](std::string name, const host::Timer& timer) {
        if (timer.enabled() && timer.interval() > 0ms) {
            running.push_back({std::move(name), timer.interval(), true});
        }
    };
    for (std::size_t i = 0; i < kTimersInArray; ++i) {
        add("Timer1(" + std::to_string(i) + ")", *timer1_[i]);
        add("IETimer(" + std::to_string(i) + ")", *ie_timer_[i]);
    }
    const std::pair<const char*, const host::Timer&> single[] = {
        {"Timer2", *timer2_},
        {"Timer3", *timer3_},
        {"Timer4", *timer4_},
        {"Timer5", *timer5_},
        {"BSCTimer", *bsc_timer_},
        {"ScriptQueueTimer", *script_queue_timer_},
        {"ConnectTimer", jukebox_->ConnectTimer()},
        {"SendTimer", jukebox_->SendTimer()},
    };
    for (const auto& [name, timer] : single) {
        add(name, timer);
    }
    return running;
}

}  // namespace appliance
