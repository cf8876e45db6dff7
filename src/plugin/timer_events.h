#pragma once

#include <cstddef>
#include <span>

#include "appliance/queue_timer.h"

namespace plugin {

struct Subsystems;

// What each tick of the hidden event object does. Owned by the entry class. An error of a tick
// that has no handler of its own goes to the pump's caller.
class TimerEvents : public appliance::QueueTimerEvents {
  public:
    explicit TimerEvents(Subsystems& parts) : parts_(parts) {}

    // The tick goes to the unit that has borrowed the timer. Throws: RunTimeError 9 from index 6
    // on, where the pools end.
    void Timer1_Timer(std::size_t index) override;
    void IETimer_Timer(std::size_t index) override;

    // Once a minute.
    void Timer2_Timer() override;

    // Time for the slideshow's next picture.
    void Timer3_Timer() override;

    // The host's device has shown a call for long enough; a call's second line has not come.
    void Timer4_Timer() override;
    void Timer5_Timer() override;

    // Messages wait for the xAP network.
    void BSCTimer_Timer() override;

    // Calls wait for the user's script.
    void ScriptQueueTimer_Timer() override;

    // Time limits of the line to the music players.
    void ConnectTimer_Timer() override;
    void SendTimer_Timer() override;

    // Motion, once start-up has finished. Errors are logged.
    void HSEvent(std::span<const automation::Value> parms) override;

  private:
    Subsystems& parts_;
};

}  // namespace plugin
