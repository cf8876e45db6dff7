#include "appliance/timer_pools.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/house.h"

namespace appliance {
namespace {

using namespace std::chrono_literals;
using support::House;
using testing::ElementsAre;
using testing::IsEmpty;

class Owner : public TimerOwner {
  public:
    void TimerTimeout() override {}

    void ReceiveData() override {}
};

TEST(Pools, LendTheLowestFreeTimer) {
    House house;
    TimerPools& pools = house.timer_pools();
    const auto owner = std::make_shared<Owner>();
    for (std::int16_t index = 0; index < 6; ++index) {
        EXPECT_EQ(pools.GetTimer(owner).index, index);
        EXPECT_EQ(pools.GetIETimer(owner).index, index);
    }
    EXPECT_FALSE(pools.GetTimer(owner).exists());
    EXPECT_THAT(house.log(), IsEmpty());
    EXPECT_FALSE(pools.GetIETimer(owner).exists());
    EXPECT_THAT(house.log(), ElementsAre("zynVelora: Unable to find unused timer for IE"));

    pools.ReleaseTimer(4);
    pools.ReleaseTimer(2);
    pools.ReleaseIETimer(3);
    EXPECT_EQ(pools.GetTimer(owner).timer, &house.queue_timer().Timer1(2));
    EXPECT_EQ(pools.GetTimer(owner).timer, &house.queue_timer().Timer1(4));
    EXPECT_EQ(pools.GetIETimer(owner).timer, &house.queue_timer().IETimer(3));
}

TEST(Pools, PassOverReleasesOutsideTheirBounds) {
    House house;
    house.instance().log.set_debug_log(true);
    TimerPools& pools = house.timer_pools();
    const auto owner = std::make_shared<Owner>();
    static_cast<void>(pools.GetTimer(owner));
    for (const int index : {-1, 6, 32767}) {
        pools.ReleaseTimer(static_cast<std::int16_t>(index));
        pools.ReleaseIETimer(static_cast<std::int16_t>(index));
    }
    EXPECT_EQ(pools.command_timer_owner(0), owner);
    pools.ReleaseTimer(0);
    pools.ReleaseIETimer(5);
    EXPECT_EQ(pools.command_timer_owner(0), nullptr);
    EXPECT_THAT(house.log(),
                ElementsAre("zynVelora Debug: GetTimer(0)", "zynVelora Debug: Release Timer(0)",
                            "zynVelora Debug: Release Timer(5)"));
    EXPECT_THROW(static_cast<void>(pools.command_timer_owner(6)), automation::RunTimeError);
    EXPECT_THROW(static_cast<void>(pools.browser_timer_owner(6)), automation::RunTimeError);
}

TEST(Pools, TakeBackWhatUnitsThatAreGoneHadBorrowed) {
    House house;
    TimerPools& pools = house.timer_pools();
    const auto stays = std::make_shared<Owner>();
    auto goes = std::make_shared<Owner>();
    static_cast<void>(pools.GetTimer(goes));
    static_cast<void>(pools.GetTimer(stays));
    goes.reset();
    EXPECT_EQ(pools.command_timer_owner(0), nullptr);
    pools.release_abandoned();
    EXPECT_EQ(pools.GetTimer(stays).index, 0);
    EXPECT_EQ(pools.command_timer_owner(1), stays);
}

TEST(Pools, LendNothingWithoutAnEventObject) {
    House house;
    house.timer_pools().attach(nullptr);
    const auto owner = std::make_shared<Owner>();
    EXPECT_FALSE(house.timer_pools().GetTimer(owner).exists());
    EXPECT_FALSE(house.timer_pools().GetIETimer(owner).exists());
}

TEST(SeventhUnit, SendsItsFirstCommandAndStalls) {
    House house;
    for (const char* name : {"a", "b", "c", "d", "e", "f", "g"}) {
        house.add_unit(name);
    }
    house.fleet().DefineVeloras();
    EXPECT_THAT(house.log(), ElementsAre("zynVelora: Unable to find unused timer for IE"));
    for (const char* name : {"f", "g"}) {
        house.velora(name).SetTopLED("on", "");
        house.velora(name).SetMailLED("on", "");
    }
    house.run_for(1min);
    EXPECT_THAT(house.unit("f").requests(), ElementsAre("led.shtml?t1", "led.shtml?m1"));
    EXPECT_THAT(house.unit("g").requests(), ElementsAre("led.shtml?t1"));
    EXPECT_THAT(house.velora("g").queue().waiting_commands(), ElementsAre("led.shtml?m1"));
}

TEST(Units, KeepTheirTicksApart) {
    House house({"a", "b"});
    house.unit("a").goes_silent();
    house.unit("b").answers(1s);
    for (const char* name : {"a", "b"}) {
        house.velora(name).SetTopLED("on", "");
        house.velora(name).SetMailLED("on", "");
    }
    house.run_for(1min);
    EXPECT_THAT(
        house.trace(),
        ElementsAre("10:00:00.000 a GET /led.shtml?t1", "10:00:00.000 b GET /led.shtml?t1",
                    "10:00:01.050 b GET /led.shtml?m1", "10:00:05.000 a GET /led.shtml?m1"));
}

}  // namespace
}  // namespace appliance
