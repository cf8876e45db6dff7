#include "plugin/timer_events.h"

#include <memory>

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
    parts_.sound_files.RemoveOldFiles();
}

}  // namespace plugin
