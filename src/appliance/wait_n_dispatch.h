#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace host {
class Pump;
}

namespace appliance {

// A timed wait that keeps the pump running. Each unit owns one; waiting twice at a time on the
// same object is an error. The object may be destroyed while it waits: the wait then ends.
class CWaitNDispatch {
  public:
    // `OnTimer` is raised at the end of every wait.
    explicit CWaitNDispatch(host::Pump& pump, std::function<void()> OnTimer = {});
    CWaitNDispatch(const CWaitNDispatch&) = delete;
    CWaitNDispatch& operator=(const CWaitNDispatch&) = delete;

    ~CWaitNDispatch() { Cancel(); }

    [[nodiscard]] bool IsWaiting() const noexcept;

    // Pumps for this many milliseconds, or until `Cancel`. 0 and less return at once.
    // Throws: RunTimeError 0x800403E9 while another wait runs on this object.
    void Wait(std::int32_t milliseconds);

    // Ends the wait that runs, if there is one.
    void Cancel() noexcept;

  private:
    struct State {
        bool is_waiting = false;
        bool cancelled = false;
        std::function<void()> OnTimer;
    };

    host::Pump& pump_;
    std::shared_ptr<State> state_;  // shared with the wait that runs, which may outlive *this
};

}  // namespace appliance
