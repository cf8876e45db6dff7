#include "platform/asio/asio_timer.h"

#include <boost/asio/steady_timer.hpp>
#include <cstdint>
#include <utility>

namespace platform {

using std::chrono::milliseconds;

class AsioTimer::Alarm : public std::enable_shared_from_this<Alarm> {
  public:
    Alarm(boost::asio::io_context& context, std::function<void()> on_tick)
        : timer_(context), on_tick_(std::move(on_tick)) {}

    void start(milliseconds interval) {
        interval_ = interval;
        timer_.expires_after(interval);
        wait();
    }

    void silence() noexcept {
        ++arming_;
        boost::system::error_code ignored;
        timer_.cancel(ignored);
    }

  private:
    void wait() {
        timer_.async_wait([self = shared_from_this(),
                           arming = ++arming_](const boost::system::error_code& error) {
            // A wait that has already ended cannot be cancelled: the number tells it is stale.
            if (!error && arming == self->arming_) {
                self->tick();
            }
        });
    }

    void tick() {
        const auto next = timer_.expiry() + interval_;
        const auto now = std::chrono::steady_clock::now();
        timer_.expires_at(next > now ? next : now + interval_);
        wait();
        on_tick_();
    }

    boost::asio::steady_timer timer_;
    const std::function<void()> on_tick_;
    milliseconds interval_{0};
    std::uint64_t arming_ = 0;
};

AsioTimer::AsioTimer(boost::asio::io_context& context, std::function<void()> on_tick)
    : alarm_(std::make_shared<Alarm>(context, std::move(on_tick))) {}

AsioTimer::~AsioTimer() {
    alarm_->silence();
}

void AsioTimer::set_interval(milliseconds interval) {
    interval_ = interval;
    restart();
}

void AsioTimer::set_enabled(bool enabled) {
    enabled_ = enabled;
    restart();
}

void AsioTimer::restart() {
    alarm_->silence();
    if (enabled_ && interval_ > milliseconds::zero()) {
        alarm_->start(interval_);
    }
}

}  // namespace platform
