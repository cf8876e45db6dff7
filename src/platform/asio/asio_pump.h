#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "host/pump.h"

namespace platform {

// The pump of the running program, carried by Boost.Asio. Made by the program before, and
// destroyed after, everything that uses it. All members belong to the one thread that runs it.
class AsioPump : public host::Pump {
  public:
    AsioPump();
    ~AsioPump() override;

    // The outermost loop: runs events until `stop`, then returns. An exception of an event passes
    // through; the loop may then be run again.
    void run();

    // From now on SIGINT and SIGTERM run `on_signal` as an event instead of ending the process.
    void on_stop_signal(std::function<void()> on_signal);

    void post(std::function<void()> event) override;
    [[nodiscard]] std::unique_ptr<host::Timer> make_timer(std::function<void()> on_tick) override;
    void run_ready() override;
    bool run_until(const std::function<bool()>& done, std::chrono::milliseconds limit) override;
    void stop() noexcept override;
    [[nodiscard]] std::chrono::nanoseconds steady_now() const override;

  private:
    friend class AsioPumpAccess;
    struct Core;

    void throw_if_stopped() const;

    std::unique_ptr<Core> core_;
    bool stopped_ = false;
};

}  // namespace platform
