#pragma once

#include <array>
#include <cstdint>
#include <memory>

namespace core {
class VeloraLog;
}

namespace host {
class Timer;
}

namespace appliance {

class QueueTimer;

// A unit that has borrowed timers.
class TimerOwner {
  public:
    virtual ~TimerOwner() = default;
    virtual void TimerTimeout() = 0;  // tick of its command timer
    virtual void ReceiveData() = 0;   // tick of its browser timer
};

// A timer on loan: an element of `Timer1` or `IETimer`. Without a timer when none was free.
struct LentTimer {
    host::Timer* timer = nullptr;
    std::int16_t index = -1;

    [[nodiscard]] bool exists() const noexcept { return timer != nullptr; }

    // Throws: RunTimeError 91 without a timer.
    [[nodiscard]] host::Timer& get() const;
};

// Lends the timers of `QueueTimer` to units and remembers who has which, so that a tick finds its
// way back. Six of each kind: a seventh unit gets none. Owned by the plug-in's entry class; empty
// whenever there is no `QueueTimer`.
class TimerPools {
  public:
    static constexpr std::size_t kPoolSize = 6;

    explicit TimerPools(core::VeloraLog& log) : log_(log) {}

    // Takes the event object whose timers are lent, or none; all entries are free afterwards.
    void attach(QueueTimer* queue_timer) noexcept;

    [[nodiscard]] LentTimer GetTimer(std::weak_ptr<TimerOwner> owner);

    // Logs when none is free.
    [[nodiscard]] LentTimer GetIETimer(std::weak_ptr<TimerOwner> owner);

    // Do nothing for an index outside the pool.
    void ReleaseTimer(std::int16_t index);
    void ReleaseIETimer(std::int16_t index);

    // Frees the entries whose owner is gone.
    void release_abandoned();

    // The owner of an entry; none when it is free. Throws: RunTimeError 9 from index 6 on.
    [[nodiscard]] std::shared_ptr<TimerOwner> command_timer_owner(std::size_t index) const;
    [[nodiscard]] std::shared_ptr<TimerOwner> browser_timer_owner(std::size_t index) const;

  private:
    struct Entry {
        bool in_use = false;
        std::weak_ptr<TimerOwner> owner;
    };

    using Pool = std::array<Entry, kPoolSize>;

    // Index of the entry that is now the owner's, -1 when none is free.
    static std::int16_t occupy(Pool& pool, std::weak_ptr<TimerOwner> owner);
    void release(Pool& pool, std::int16_t index);

    core::VeloraLog& log_;
    QueueTimer* queue_timer_ = nullptr;
    Pool command_timers_;
    Pool browser_timers_;
};

}  // namespace appliance
