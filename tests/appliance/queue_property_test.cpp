#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <charconv>
#include <map>
#include <random>

#include "appliance/queue_bench.h"

// Long random lives of one unit, and what holds in each.
namespace appliance {
namespace {

using namespace std::chrono_literals;

constexpr unsigned kLives = 300;
constexpr int kSteps = 150;

class RandomLife {
  public:
    explicit RandomLife(unsigned seed) : random_(seed) {
        bench_.settings().CommandRetries = static_cast<std::int16_t>(below(4));
        bench_.settings().UDPDelay = below(2) == 0 ? 0 : 200;
        bench_.settings().noResponseAction = below(2) == 0;
        bench_.settings().PowerUpTime = below(3) * 40000;
        bench_.on_boot_finished = [this] {
            has_cycled_in_wait_ = has_cycled_in_wait_ || bench_.queue().state().WaitActive;
        };
        bench_.machine.units.on_request = [this](std::string_view, std::string_view page) {
            note_request(page);
        };
    }

    void live() {
        for (int step = 0; step < kSteps && !testing::Test::HasFailure(); ++step) {
            take_step();
            EXPECT_LE(bench_.queue().waiting_commands().size(), 21U);
            EXPECT_LE(bench_.unit().most_in_flight(), 1);
        }
    }

    // Whatever has happened, a unit that answers again works in the end. The one exception is a
    // power cycle that began within a wait: the mark of the wait stays, and the queue rests. False
    // then.
    [[nodiscard]] bool recovers() {
        bench_.queue().set_disabled(false);
        bench_.unit().refuses(false);
        bench_.unit().answers();
        bench_.run_for(2h);
        if (bench_.queue().state().WaitActive) {
            EXPECT_TRUE(has_cycled_in_wait_);
            return false;
        }
        EXPECT_EQ(bench_.queue().waiting_commands().size(), 0U);
        bench_.send("cmd.shtml?" + std::to_string(next_number_));
        bench_.run_for(1min);
        EXPECT_TRUE(requests_.contains(next_number_)) << "the unit is lost";
        EXPECT_EQ(bench_.state(), "idle");
        EXPECT_EQ(bench_.queue().state().PowerCycleCount, 0);
        return true;
    }

    [[nodiscard]] std::string story() const {
        std::string text;
        for (const std::string& line : story_) {
            text += line + "\n";
        }
        return text;
    }

  private:
    [[nodiscard]] int below(int limit) {
        return static_cast<int>(random_() % static_cast<unsigned>(limit));
    }

    void tell(const std::string& what) {
        story_.push_back(bench_.machine.pump.time_of_day() + " " + what);
    }

    void take_step() {
        const int choice = below(100);
        if (choice < 40) {
            give_commands(1 + below(4));
        } else if (choice < 42) {
            give_commands(25);
        } else if (choice < 47) {
            tell("datagram");
            bench_.send("beepcmd1");
        } else if (choice < 52) {
            tell("wait");
            bench_.send("waitsecs " + std::to_string(1 + below(3)));
        } else if (choice < 54) {
            tell("power");
            bench_.send("power");
        } else if (choice < 66) {
            change_unit();
        } else if (choice < 69) {
            tell("reset");
            bench_.queue().ResetQueue();
        } else if (choice < 72) {
            const bool disables = below(2) == 0;
            tell(disables ? "disable" : "enable");
            bench_.queue().set_disabled(disables);
        } else {
            const std::chrono::milliseconds time(below(10) == 0 ? 90000 : below(4000));
            tell("run for " + std::to_string(time.count()));
            bench_.run_for(time);
        }
    }

    void give_commands(int count) {
        for (int i = 0; i < count; ++i) {
            const int number = next_number_++;
            tell("command " + std::to_string(number));
            const std::string tag =
                bench_.send("cmd.shtml?" + std::to_string(number), 500 + below(5) * 1000);
            EXPECT_EQ(tag.empty(), bench_.queue().state().DisablePlugin);
            if (tag.empty()) {
                refused_.push_back(number);
            }
        }
    }

    void change_unit() {
        bench_.unit().refuses(below(6) == 0);
        bench_.unit().completes_pages(1 + below(2));
        if (below(3) == 0) {
            tell("silence");
            bench_.unit().goes_silent();
        } else {
            const std::chrono::milliseconds delay(below(2) == 0 ? below(100) : below(6000));
            tell("answers after " + std::to_string(delay.count()));
            bench_.unit().answers(delay);
        }
    }

    void note_request(std::string_view page) {
        const std::string_view digits = page.substr(page.find('?') + 1);
        int number = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
        tell("GET " + std::to_string(number));
        EXPECT_FALSE(bench_.queue().state().PowerCycleInProgress) << "sent without power";
        EXPECT_THAT(refused_, testing::Not(testing::Contains(number))) << "sent though refused";
        EXPECT_GE(number, latest_) << "out of order";
        latest_ = std::max(latest_, number);
        const int tries = std::max<int>(1, bench_.settings().CommandRetries);
        EXPECT_LE(++requests_[number], tries) << "one try too many";
    }

    std::mt19937 random_;
    QueueBench bench_;
    int next_number_ = 1;
    int latest_ = 0;
    bool has_cycled_in_wait_ = false;
    std::vector<int> refused_;
    std::map<int, int> requests_;  // tries by number
    std::vector<std::string> story_;
};

TEST(QueueProperty, HoldsInRandomLives) {
    unsigned recovered = 0;
    for (unsigned seed = 1; seed <= kLives; ++seed) {
        RandomLife life(seed);
        life.live();
        if (!HasFailure() && life.recovers()) {
            ++recovered;
        }
        if (HasFailure()) {
            FAIL() << "seed " << seed << "\n" << life.story();
        }
    }
    EXPECT_GT(recovered, kLives / 2);
}

}  // namespace
}  // namespace appliance
