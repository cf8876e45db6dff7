#include "plugin/timer_events.h"

#include <memory>

#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "plugin/subsystems.h"

namespace plugin {

void TimerEvents::Timer1_Timer(std::size_t index) {
    if (const auto owner = parts_.timer_pools.command_timer_owner(index)) {
        owner->TimerTimeout();
    }
}

void TimerEvents::IETimer_Timer(std::size_t index) {
    if (const auto owner = parts_.timer_pools.browser_timer_owner(index)) {
        parts_.queue_timer->IETimer(index).set_enabled(false);
        owner->ReceiveData();
    }
}

void TimerEvents::Timer2_Timer() {
    parts_.queue_timer->Timer2().set_enabled(true);
    parts_.supervision.UpdateSleepModeStatus();
    parts_.supervision.UpdateSlideshowNoMotionStatus();
    parts_.supervision.EvaluatePowerCycle();
    parts_.sound_files.RemoveOldFiles();
}

void TimerEvents::Timer3_Timer() {
    parts_.slideshow.UpdateSlideshow();
}

void TimerEvents::Timer4_Timer() {
    parts_.caller_id.dispatch().Timer4_Timer();
}

void TimerEvents::Timer5_Timer() {
    parts_.caller_id.reader().Timer5_Timer();
}

void TimerEvents::ConnectTimer_Timer() {
    parts_.queue_timer->phJuke()->ConnectTimer_Timer();
}

void TimerEvents::SendTimer_Timer() {
    parts_.queue_timer->phJuke()->SendTimer_Timer();
}

void TimerEvents::BSCTimer_Timer() {
    parts_.xap_node.queue().BSCTimer_Timer();
}

void TimerEvents::ScriptQueueTimer_Timer() {
    parts_.user_script.ScriptQueueTimer_Timer();
}

void TimerEvents::HSEvent(std::span<const automation::Value> parms) {
    constexpr std::size_t kNumber = 1;
    constexpr std::size_t kHouseLetter = 2;
    constexpr std::size_t kStatus = 3;
    automation::guarded(parts_.instance.log, "HSEvent ", [&] {
        if (!parts_.instance.StartupReady) {
            return;
        }
        if (parms.size() <= kStatus) {
            throw automation::RunTimeError(automation::ErrorNumber::SubscriptOutOfRange);
        }
        parts_.supervision.CheckMotionEvent(
            automation::to_text(parms[kHouseLetter]) + automation::to_text(parms[kNumber]),
            automation::to_int32(parms[kStatus]));
    });
}

}  // namespace plugin
