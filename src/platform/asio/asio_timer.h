#pragma once

#include <boost/asio/io_context.hpp>
#include <chrono>
#include <functional>
#include <memory>

#include "host/pump.h"

namespace platform {

// The pump's timer. A tick that already waits in the pump's queue when the timer is set anew or
// destroyed does not run.
class AsioTimer : public host::Timer {
  public:
    AsioTimer(boost::asio::io_context& context, std::function<void()> on_tick);
    ~AsioTimer() override;

    [[nodiscard]] std::chrono::milliseconds interval() const override { return interval_; }

    void set_interval(std::chrono::milliseconds interval) override;

    [[nodiscard]] bool enabled() const override { return enabled_; }

    void set_enabled(bool enabled) override;

  private:
    class Alarm;

    void restart();

    std::shared_ptr<Alarm> alarm_;  // shared with its waits; silenced when *this goes
    std::chrono::milliseconds interval_{0};
    bool enabled_ = false;
};

}  // namespace platform
