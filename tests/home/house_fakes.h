#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/clock.h"
#include "host/log.h"
#include "host/pump.h"

// A clock that stands at 24 November 2026, 16:03:03.042.
class StillClock : public host::Clock {
  public:
    [[nodiscard]] automation::DateTime now() const override {
        using namespace std::chrono;
        return local_days(2026y / November / 24) + 16h + 3min + 3s + 42ms;
    }
};

// A pump without time: posted events run on `run_ready`.
class PostedEvents : public host::Pump {
  public:
    void post(std::function<void()> event) override { events_.push_back(std::move(event)); }

    std::unique_ptr<host::Timer> make_timer(std::function<void()>) override { return nullptr; }

    void run_ready() override {
        while (!events_.empty()) {
            const auto event = std::move(events_.front());
            events_.pop_front();
            event();
        }
    }

    bool run_until(const std::function<bool()>& done, std::chrono::milliseconds) override {
        run_ready();
        return done();
    }

    void stop() noexcept override { events_.clear(); }

    [[nodiscard]] std::chrono::nanoseconds steady_now() const override { return {}; }

  private:
    std::deque<std::function<void()>> events_;
};

// What happened, in order.
class Trace : public host::Log {
  public:
    void Writelog(std::string_view type, std::string_view message) override {
        lines.push_back("log " + std::string(type) + ": " + std::string(message));
    }

    std::vector<std::string> lines;
};
