#include "appliance/checkout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/house.h"

// The walk through a unit's functions: what it is sent, and what the log says of it.
namespace appliance {
namespace {

using namespace std::chrono_literals;
using support::House;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kMalfunction = "Test Malfunction";

class CheckoutTest : public testing::Test {
  protected:
    CheckoutTest() {
        house_.add_unit("Hall", {.power = "A1"});
        house_.open();
        house_.machine().files.put_folder("C:\\HomeSeer\\HTML\\VeloraTemp");
    }

    [[nodiscard]] Velora& hall() { return house_.velora("hall"); }

    // The pages that one step sends an idle unit.
    std::vector<std::string> pages_of(std::string_view step) {
        house_.clear_trace();
        perform_test(house_.instance(), hall(), step);
        house_.run_for(20s);
        return house_.trace_without_time();
    }

    House house_;
};

TEST_F(CheckoutTest, EachStepSendsItsPages) {
    const std::string own = "http://10.0.0.2:8080/";
    const std::string push = "hall GET /gotoURL.shtml?M=GOTO_URL&S=" + own;
    const std::string sound = "hall GET /loadWav.shtml?" + own;
    EXPECT_THAT(pages_of("PUSH"),
                ElementsAre("hall GET /screen.shtml?1", push + "VeloraTestMessage.HTML",
                            "hall GET /cgi-bin/firef4", "hall GET /cgi-bin/firef4"));
    EXPECT_THAT(
        pages_of("AUDIO"),
        ElementsAre("hall GET /volume.shtml?100", sound + "VeloraTemp/VeloraTempFilehall1.wav",
                    "hall GET /volume.shtml?50", sound + "VeloraTest.wav"));
    EXPECT_THAT(pages_of("TEXT"), ElementsAre("hall GET /screen.shtml?1",
                                              push + "VeloraTemp/VeloraTempFilehall2.html"));
    EXPECT_THAT(
        pages_of("LED"),
        ElementsAre("hall GET /led.shtml?t0", "hall GET /led.shtml?m0", "hall GET /led.shtml?t1",
                    "hall GET /led.shtml?m1", "hall GET /led.shtml?t2", "hall GET /led.shtml?m2",
                    "hall GET /led.shtml?t1", "hall GET /led.shtml?m0", "hall GET /led.shtml?t0",
                    "hall GET /led.shtml?m1", "hall GET /led.shtml?t1", "hall GET /led.shtml?m0",
                    "hall GET /led.shtml?t0", "hall GET /led.shtml?m1", "hall GET /led.shtml?m0"));
    EXPECT_THAT(
        pages_of("BACKLIGHT"),
        ElementsAre("hall GET /beep.shtml?0 1", "hall GET /scrOff.shtml", "hall GET /scrOn.shtml"));
    EXPECT_THAT(pages_of("DANCE"), IsEmpty());
    EXPECT_THAT(house_.machine().speech.spoken(),
                ElementsAre(HasSubstr("How are you doing today at 100% Volume, Next at 50%?")));
    EXPECT_THAT(house_.log(), Not(Contains(HasSubstr(kMalfunction))));
}

TEST_F(CheckoutTest, NamesItsStepsAndWithDebuggingItsBounds) {
    house_.instance().log.set_debug_log(true);
    hall().set_DisablePlugin(true);
    house_.host().forget();
    Checkout(house_.instance(), hall());
    std::vector<std::string> told;
    for (const std::string& line : house_.log()) {
        if (line.find("TEST") != std::string::npos) {
            told.push_back(line.substr(line.find(": ") + 2));
        }
    }
    EXPECT_THAT(
        told,
        ElementsAre(" TEST STARTED ON VELORA in hall", "PERFORMING TEST PUSH on hall Velora",
                    "PERFORMING TEST AUDIO on hall Velora", "PERFORMING TEST TEXT on hall Velora",
                    "PERFORMING TEST LED on hall Velora", " TEST COMPLETED ON VELORA hall"));
}

TEST_F(CheckoutTest, PassesOnAUnitWithoutPower) {
    house_.unit("hall").goes_silent();
    Checkout(house_.instance(), hall());
    EXPECT_THAT(house_.log(), Not(Contains(HasSubstr(kMalfunction))));
}

// A pause between command and question holds the unit's answer back, and a unit without an answer
// counts as awake.
TEST_F(CheckoutTest, SleepGoesThereAndBackFromEitherState) {
    const struct {
        const char* answer;  // the unit's, whatever it is told
        const char* finding;
    } rows[] = {{"1", "Did not go to sleep"}, {"0", "Did not go to sleep after awake"}};

    for (const auto& row : rows) {
        House house({"Hall"});
        house.unit("hall").shows("screen.shtml?p", row.answer);
        perform_test(house.instance(), house.velora("hall"), "SLEEP");
        EXPECT_THAT(house.log(), Contains(EndsWith(std::string("Malfunction : ") + row.finding)))
            << row.answer;
    }
}

TEST_F(CheckoutTest, ChecksTheBacklightThatASleepingUnitKeeps) {
    hall().set_Sleep("sleep");
    house_.run_for(1s);
    pages_of("BACKLIGHT");
    EXPECT_THAT(house_.log(), Contains(HasSubstr("zynVelora Velora Test Malfunction : "
                                                 "Backlight off reported as on")));
}

// More commands than a queue holds, sent in one breath.
TEST_F(CheckoutTest, OverflowsTheQueueUnlessItLeavesRoom) {
    const bool protection[] = {false, true};
    for (const bool on : protection) {
        house_.instance().platform().protection.self_test_leaves_the_queue_room = on;
        house_.clear_trace();
        Checkout(house_.instance(), hall());
        house_.run_for(30s);
        EXPECT_EQ(hall().PowerCycleInProgress(), !on);
        EXPECT_EQ(house_.trace_without_time().back(), on ? "hall GET /led.shtml?m0" : "X10 A1 on");
        house_.run_for(5min);
    }
}

}  // namespace
}  // namespace appliance
