#include "platform/asio/asio_pump.h"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/signal_set.hpp>
#include <csignal>
#include <utility>

#include "platform/asio/asio_pump_internal.h"
#include "platform/asio/asio_timer.h"

namespace platform {

namespace asio = boost::asio;

namespace {

// Runs the handlers that stand before a mark posted now. A nested run may be the one that reaches
// the mark.
void run_up_to_mark(asio::io_context& context, const std::function<bool()>& keep_on) {
    const auto reached = std::make_shared<bool>(false);
    asio::post(context, [reached] { *reached = true; });
    while (!*reached && keep_on()) {
        context.poll_one();
    }
}

}  // namespace

struct AsioPump::Core {
    // Without the hint of one thread: a nested run would not see what the outer one has put aside.
    asio::io_context context;
    asio::executor_work_guard<asio::io_context::executor_type> work{context.get_executor()};
    asio::signal_set signals{context};
    std::function<void()> on_signal;

    void wait_for_signal() {
        signals.async_wait([this](const boost::system::error_code& error, int) {
            if (!error) {
                wait_for_signal();
                on_signal();
            }
        });
    }
};

asio::io_context& AsioPumpAccess::io_context_of(AsioPump& pump) {
    return pump.core_->context;
}

AsioPump::AsioPump() : core_(std::make_unique<Core>()) {}

AsioPump::~AsioPump() = default;

void AsioPump::run() {
    try {
        while (!stopped_) {
            core_->context.run_one();
        }
    } catch (const host::PumpStopped&) {
        if (!stopped_) {
            throw;
        }
    }
}

void AsioPump::on_stop_signal(std::function<void()> on_signal) {
    core_->signals.cancel();
    core_->signals.clear();
    core_->on_signal = std::move(on_signal);
    core_->signals.add(SIGINT);
    core_->signals.add(SIGTERM);
    core_->wait_for_signal();
}

void AsioPump::post(std::function<void()> event) {
    asio::post(core_->context, std::move(event));
}

std::unique_ptr<host::Timer> AsioPump::make_timer(std::function<void()> on_tick) {
    return std::make_unique<AsioTimer>(core_->context, std::move(on_tick));
}

// In the first pass the reactor hands over the timers and sockets that are ready, behind the first
// mark; the second pass runs them. So a peer that never falls silent does not keep the run going.
void AsioPump::run_ready() {
    throw_if_stopped();
    const auto keep_on = [this] { return !stopped_; };
    run_up_to_mark(core_->context, keep_on);
    run_up_to_mark(core_->context, keep_on);
    throw_if_stopped();
}

bool AsioPump::run_until(const std::function<bool()>& done, std::chrono::milliseconds limit) {
    throw_if_stopped();
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!done()) {
        const bool in_time = core_->context.run_one_until(deadline) > 0;
        throw_if_stopped();
        if (!in_time) {
            return done();
        }
    }
    return true;
}

void AsioPump::stop() noexcept {
    stopped_ = true;
}

std::chrono::nanoseconds AsioPump::steady_now() const {
    return std::chrono::steady_clock::now().time_since_epoch();
}

void AsioPump::throw_if_stopped() const {
    if (stopped_) {
        throw host::PumpStopped();
    }
}

}  // namespace platform
