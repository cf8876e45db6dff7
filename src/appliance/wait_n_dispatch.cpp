#include "appliance/wait_n_dispatch.h"

#include <chrono>
#include <utility>

#include "automation/run_time_error.h"
#include "host/pump.h"

namespace appliance {

namespace {

constexpr auto kNotReentrant = static_cast<std::int32_t>(0x800403E9);
constexpr const char* kNotReentrantText =
    "This function is not reentrant. If you want to wait for a second period use a new object";

// Marks an object as waiting for as long as it lives, also when an event throws through the wait.
class WaitMark {
  public:
    explicit WaitMark(bool& mark) : mark_(mark) { mark_ = true; }

    WaitMark(const WaitMark&) = delete;
    WaitMark& operator=(const WaitMark&) = delete;

    ~WaitMark() { mark_ = false; }

  private:
    bool& mark_;
};

}  // namespace

CWaitNDispatch::CWaitNDispatch(host::Pump& pump, std::function<void()> OnTimer)
    : pump_(pump), state_(std::make_shared<State>()) {
    state_->OnTimer = std::move(OnTimer);
}

bool CWaitNDispatch::IsWaiting() const noexcept {
    return state_->is_waiting;
}

void CWaitNDispatch::Wait(std::int32_t milliseconds) {
    if (state_->is_waiting) {
        throw automation::RunTimeError(kNotReentrant, kNotReentrantText, "CWaitNDispatch");
    }
    if (milliseconds <= 0) {
        return;
    }
    const std::shared_ptr<State> state = state_;  // *this may go while the pump runs
    const WaitMark mark(state->is_waiting);
    state->cancelled = false;
    pump_.run_until([state] { return state->cancelled; }, std::chrono::milliseconds(milliseconds));
    if (state->OnTimer) {
        state->OnTimer();
    }
}

void CWaitNDispatch::Cancel() noexcept {
    state_->cancelled = true;
}

}  // namespace appliance
