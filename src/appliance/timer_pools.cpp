#include "appliance/timer_pools.h"

#include <algorithm>
#include <string>
#include <utility>

#include "appliance/queue_timer.h"
#include "automation/run_time_error.h"
#include "core/velora_log.h"

namespace appliance {

namespace {

using automation::ErrorNumber;
using automation::RunTimeError;

template <typename Pool>
std::shared_ptr<TimerOwner> owner_at(const Pool& pool, std::size_t index) {
    if (index >= pool.size()) {
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return pool[index].owner.lock();
}

}  // namespace

host::Timer& LentTimer::get() const {
    if (timer == nullptr) {
        throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    }
    return *timer;
}

void TimerPools::attach(QueueTimer* queue_timer) noexcept {
    queue_timer_ = queue_timer;
    command_timers_ = {};
    browser_timers_ = {};
}

std::int16_t TimerPools::occupy(Pool& pool, std::weak_ptr<TimerOwner> owner) {
    const auto free =
        std::find_if(pool.begin(), pool.end(), [](const Entry& entry) { return !entry.in_use; });
    if (free == pool.end()) {
        return -1;
    }
    *free = {true, std::move(owner)};
    return static_cast<std::int16_t>(free - pool.begin());
}

LentTimer TimerPools::GetTimer(std::weak_ptr<TimerOwner> owner) {
    const std::int16_t index =
        queue_timer_ == nullptr ? std::int16_t{-1} : occupy(command_timers_, std::move(owner));
    if (index < 0) {
        return {};
    }
    log_.debug([&] { return "GetTimer(" + std::to_string(index) + ")"; });
    return {&queue_timer_->Timer1(static_cast<std::size_t>(index)), index};
}

LentTimer TimerPools::GetIETimer(std::weak_ptr<TimerOwner> owner) {
    const std::int16_t index =
        queue_timer_ == nullptr ? std::int16_t{-1} : occupy(browser_timers_, std::move(owner));
    if (index < 0) {
        log_.VeloraWriteLog(core::kLogType, "Unable to find unused timer for IE");
        return {};
    }
    log_.debug([&] { return "GetIETimer(" + std::to_string(index) + ")"; });
    return {&queue_timer_->IETimer(static_cast<std::size_t>(index)), index};
}

void TimerPools::release(Pool& pool, std::int16_t index) {
    if (index < 0 || static_cast<std::size_t>(index) >= pool.size()) {
        return;
    }
    pool[static_cast<std::size_t>(index)] = {};
    log_.debug([&] { return "Release Timer(" + std::to_string(index) + ")"; });
}

void TimerPools::ReleaseTimer(std::int16_t index) {
    release(command_timers_, index);
}

void TimerPools::ReleaseIETimer(std::int16_t index) {
    release(browser_timers_, index);
}

void TimerPools::release_abandoned() {
    for (std::size_t i = 0; i < kPoolSize; ++i) {
        if (command_timers_[i].owner.expired()) {
            ReleaseTimer(static_cast<std::int16_t>(i));
        }
        if (browser_timers_[i].owner.expired()) {
            ReleaseIETimer(static_cast<std::int16_t>(i));
        }
    }
}

std::shared_ptr<TimerOwner> TimerPools::command_timer_owner(std::size_t index) const {
    return owner_at(command_timers_, index);
}

std::shared_ptr<TimerOwner> TimerPools::browser_timer_owner(std::size_t index) const {
    return owner_at(browser_timers_, index);
}

}  // namespace appliance
