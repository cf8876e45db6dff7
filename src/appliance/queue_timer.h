#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "appliance/jukebox_link.h"
#include "host/events.h"
#include "host/plugin.h"
#include "host/pump.h"

namespace core {
class Instance;
}

namespace appliance {

inline constexpr std::size_t kTimersInArray = 13;

// Where the ticks of the hidden event object go. All run on the pump thread and may pump.
class QueueTimerEvents {
  public:
    virtual ~QueueTimerEvents() = default;
    virtual void Timer1_Timer(std::size_t index) = 0;
    virtual void IETimer_Timer(std::size_t index) = 0;
    virtual void Timer2_Timer() = 0;

    virtual void Timer3_Timer() {}

    virtual void Timer4_Timer() {}

    virtual void Timer5_Timer() {}

    virtual void BSCTimer_Timer() {}

    virtual void ScriptQueueTimer_Timer() {}

    virtual void ConnectTimer_Timer() {}

    virtual void SendTimer_Timer() {}

    // An X10 event of the host: element 1 the number, 2 the house letter, 3 the status.
    virtual void HSEvent(std::span<const automation::Value> /*parms*/) {}
};

// The hidden event object "VeloraQueue": it owns the timers that make up the plug-in's main loop,
// and the line to the units' music players.
// The plug-in creates it at start-up and drops it at shut-down.
class QueueTimer : public host::EventListener {
  public:
    QueueTimer(core::Instance& instance, QueueTimerEvents& events);
    ~QueueTimer() override;

    // Asks the host for its events, if the settings want motion to be followed.
    void Load();

    void HSEvent(std::span<const automation::Value> parms) override;

    // Throws: RunTimeError 9 for an index above 12.
    [[nodiscard]] host::Timer& Timer1(std::size_t index);
    [[nodiscard]] host::Timer& IETimer(std::size_t index);

    [[nodiscard]] host::Timer& Timer2() { return *timer2_; }

    [[nodiscard]] host::Timer& Timer3() { return *timer3_; }

    [[nodiscard]] host::Timer& Timer4() { return *timer4_; }

    [[nodiscard]] host::Timer& Timer5() { return *timer5_; }

    [[nodiscard]] host::Timer& BSCTimer() { return *bsc_timer_; }

    [[nodiscard]] host::Timer& ScriptQueueTimer() { return *script_queue_timer_; }

    // Whoever waits in it keeps it for as long.
    [[nodiscard]] const std::shared_ptr<JukeboxLink>& phJuke() { return jukebox_; }

    [[nodiscard]] host::Timer& ConnectTimer() { return jukebox_->ConnectTimer(); }

    [[nodiscard]] host::Timer& SendTimer() { return jukebox_->SendTimer(); }

    // Timers that tick now.
    [[nodiscard]] std::vector<host::TimerStatus> running_timers() const;

  private:
    using TimerPointer = std::unique_ptr<host::Timer>;
    using TimerArray = std::array<TimerPointer, kTimersInArray>;

    core::Instance& instance_;
    QueueTimerEvents& events_;
    TimerArray timer1_;
    TimerArray ie_timer_;
    TimerPointer timer2_;
    TimerPointer timer3_;
    TimerPointer timer4_;
    TimerPointer timer5_;
    TimerPointer bsc_timer_;
    TimerPointer script_queue_timer_;
    std::shared_ptr<JukeboxLink> jukebox_;
};

}  // namespace appliance
