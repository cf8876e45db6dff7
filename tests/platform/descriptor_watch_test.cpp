#include "platform/asio/descriptor_watch.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <memory>
#include <string>

#include "automation/run_time_error.h"
#include "platform/asio/asio_pump.h"

namespace platform {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 5000ms;

TEST(DescriptorWatch, TellsAgainAndAgainUntilItIsDestroyedInItsEvent) {
    AsioPump pump;
    std::array<int, 2> ends{};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
    std::string trace;
    std::unique_ptr<DescriptorWatch> watch;
    const auto on_ready = [&](DescriptorWatch::Ready ready) {
        trace += ready.read ? 'r' : 'w';
        if (trace == "w") {
            watch->set_interest({.read = true});
            EXPECT_EQ(write(ends[1], "x", 1), 1);
        } else if (trace == "wrr") {  // nobody has read yet
            watch.reset();
        }
    };
    watch = std::make_unique<DescriptorWatch>(pump, ends[0], on_ready);
    pump.run_until([] { return false; }, 2ms);
    EXPECT_EQ(trace, "");
    watch->set_interest({.read = true, .write = true});
    EXPECT_TRUE(pump.run_until([&] { return !watch; }, kPatience));
    pump.run_ready();
    EXPECT_EQ(trace, "wrr");
    EXPECT_EQ(close(ends[0]), 0);
    EXPECT_EQ(close(ends[1]), 0);
}

TEST(DescriptorWatch, IsSilentOnceTheInterestIsTakenBack) {
    AsioPump pump;
    std::array<int, 2> ends{};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
    int told = 0;
    {
        DescriptorWatch watch(pump, ends[0], [&](DescriptorWatch::Ready) { ++told; });
        watch.set_interest({.read = true});
        watch.set_interest({});
        EXPECT_EQ(write(ends[1], "x", 1), 1);
        pump.run_until([] { return false; }, 2ms);
        EXPECT_EQ(told, 0);
        watch.set_interest({.read = true});
        EXPECT_TRUE(pump.run_until([&] { return told > 0; }, kPatience)) << "wanted again";
    }
    EXPECT_EQ(close(ends[0]), 0) << "the watch has left it open";
    EXPECT_EQ(close(ends[1]), 0);
}

TEST(DescriptorWatch, RefusesWhatIsNoDescriptor) {
    AsioPump pump;
    EXPECT_THROW(DescriptorWatch(pump, -1, [](DescriptorWatch::Ready) {}),
                 automation::RunTimeError);
}

}  // namespace
}  // namespace platform
