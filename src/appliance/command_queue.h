#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "appliance/timer_pools.h"
#include "appliance/unit_log.h"
#include "appliance/wait_n_dispatch.h"
#include "automation/date.h"
#include "core/instance.h"

namespace host {
class PageFetch;
}

namespace appliance {

class UdpLink;

// What a queue needs to know of its unit, and what it makes the unit do.
class QueueOwner {
  public:
    virtual ~QueueOwner() = default;

    [[nodiscard]] virtual const std::string& Name() const = 0;
    [[nodiscard]] virtual const std::string& IP() const = 0;
    [[nodiscard]] virtual const std::string& Computer() const = 0;
    [[nodiscard]] virtual const std::string& PowerDevice() const = 0;
    [[nodiscard]] virtual const std::string& BrowserFlagFile() const = 0;

    // Code of the device that shows the queue, "" without one.
    [[nodiscard]] virtual const std::string& queue_device() const = 0;

    // Switches the unit's power, "on" or "off".
    virtual void hsExecX10(std::string_view code, std::string_view command) = 0;

    // Power is on again, the unit boots: its devices show so.
    virtual void power_came_back() = 0;

    // The unit is up: it takes its state after power-on and gets its page.
    virtual void boot_finished() = 0;
};

// State of a queue, in the words that its log lines use.
struct QueueState {
    bool QueueEmpty = true;             // nothing waits and nothing is in flight
    bool QueueUpdating = false;         // PutInQueue is running
    bool WaitActive = false;            // a wait or a UDP gap owns the command timer
    bool UDPGap = false;                // the last command went out by UDP
    bool PowerCycleInProgress = false;  // commands wait
    bool PowerWait = true;              // power is off and comes on at the next tick
    bool DisablePlugin = false;         // every command is refused
    bool isSpeaking = false;            // a sound file is being loaded
    std::int16_t RetriesLeft = 0;
    std::int16_t TimeoutCount = 0;     // time-outs without a sign of life
    std::int16_t PowerCycleCount = 0;  // power cycles without an answer; 3 and more is given up
    std::int16_t PowerUpMinutes = 0;   // boot time left
    std::string CurrentCommand;
    std::string CurrentURL;
    std::string CurrentTag;
    std::int32_t CurrentTimeout = 5000;  // milliseconds
    automation::DateTime SentAt{};       // of the last page fetch
    std::string QueueTags;               // all queued tags, joined with ","
};

// The one road of commands to a unit: it serialises them, gives each a time-out, retries,
// recognises a dead unit, power cycles it and in the end gives up. Owned by its unit. All members
// run on the pump thread; those that send may pump ("waitsecs" taken from the queue).
class CommandQueue {
  public:
    // Commands that may wait; one more means that the unit is stuck.
    static constexpr std::size_t kMaximumWaiting = 21;

    CommandQueue(core::Instance& instance, QueueOwner& owner, UnitLog& log, UdpLink& udp);
    ~CommandQueue();
    CommandQueue(const CommandQueue&) = delete;
    CommandQueue& operator=(const CommandQueue&) = delete;

    // Takes what the unit has borrowed and made; see Velora's start and shut-down.
    void set_timers(LentTimer command_timer, LentTimer browser_timer);
    void create_page_fetch();
    void create_wait();
    void drop_all();

    // Sends the command at once if the unit is idle, else queues it. `timeout_ms` is cut to a
    // minute. Returns the tag of the command: always a new one, whatever `tag` is; "" when the unit
    // is disabled.
    std::string AsyncCommand(const std::string& command, std::int32_t timeout_ms,
                             const std::string& tag);

    // True while the tag belongs to the current command or occurs in the tags of the waiting ones,
    // so that an empty tag is always busy.
    [[nodiscard]] bool CommandBusy(const std::string& tag);

    // Polls up to ten times, `seconds` / 10 apart; true when still busy. Pumps.
    // Logs error 6 when `seconds` x 100 leaves 16 bits.
    bool WaitForCommandComplete(const std::string& tag, std::int16_t seconds);

    // Forgets the waiting commands and the running fetch; flags and counters stay.
    void ResetQueue();

    void ShowQueue();

    // "Queue: 2)  | led.shtml?t1 | scrOn.shtml"; "Queue: 0) " when none waits.
    [[nodiscard]] std::string queue_text() const;

    // Tick of the command timer.
    void TimerTimeout();

    // A page has come; the work is done 50 ms later, on the browser timer.
    void IEObj_DocumentComplete(const std::string& url);

    // Starts the next waiting command, or notes that the unit is idle. Does nothing during a wait
    // or a power cycle.
    void DoNextCommand();

    // Pumps for this time, on the unit's one wait object.
    // Throws: RunTimeError 0x800403E9 inside another wait of this unit.
    void Wait(std::int32_t milliseconds);

    // Text of the page that came last.
    [[nodiscard]] std::string page_text() const;

    void clear_timeout_count() noexcept { state_.TimeoutCount = 0; }

    void set_power_cycle_count(std::int16_t count) noexcept { state_.PowerCycleCount = count; }

    void set_disabled(bool disabled) noexcept { state_.DisablePlugin = disabled; }

    [[nodiscard]] const QueueState& state() const noexcept { return state_; }

    [[nodiscard]] std::vector<std::string> waiting_commands() const;

    [[nodiscard]] bool has_command_timer() const noexcept { return command_timer_.exists(); }

  private:
    struct Entry {
        std::string command;
        std::string tag;
        std::int32_t timeout_ms = 0;
    };

    [[nodiscard]] bool URLBusy();

    [[nodiscard]] std::size_t waiting() const noexcept { return entries_.size() - 1; }

    void SendCommandWithTag(const std::string& command, const std::string& tag,
                            std::int32_t timeout_ms);
    void begin_timed_wait(const std::string& argument, const std::string& tag,
                          std::int32_t timeout_ms);
    void PutInQueue(const std::string& command, const std::string& tag, std::int32_t timeout_ms);
    [[nodiscard]] bool GetFromQueue();
    void forget_given_up_queue();
    void append(Entry entry);
    std::string take_first();  // gives its tag
    void show_waiting_commands();
    void shrink_to_placeholder();
    void update_queue_tags();

    void SendTheCommand();
    void send_current_command();
    void go_on_after_local_command();
    void fetch_page();

    // Cuts the power and starts the off phase; a forced cycle empties the queue before.
    enum class Waiting : std::uint8_t { Keep, Forget };
    void ForcePowerCycle(Waiting waiting_commands);
    void off_phase_ended();
    void boot_minute_passed();
    void command_timed_out();
    void count_silence();
    [[nodiscard]] bool unit_reports_browser();

    void arm(std::chrono::milliseconds interval);
    void replace_page_fetch();

    core::Instance& instance_;
    QueueOwner& owner_;
    UnitLog& log_;
    UdpLink& udp_;
    LentTimer command_timer_;
    LentTimer browser_timer_;
    std::unique_ptr<host::PageFetch> IEObj_;
    std::unique_ptr<CWaitNDispatch> wait_;
    QueueState state_;

    // Element 0 is a placeholder that is never sent; commands stand behind it, oldest first.
    std::vector<Entry> entries_{Entry{}};
};

}  // namespace appliance
