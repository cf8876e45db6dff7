#include "home/x10_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "home/device_table.h"
#include "home/event_board.h"
#include "home/house_fakes.h"

namespace home {
namespace {

using automation::RunTimeError;
using automation::to_text;
using testing::ElementsAre;
using testing::IsEmpty;

class Listener : public host::EventListener {
  public:
    Listener(Trace& trace, host::X10& line) : trace_(trace), line_(line) {}

    void HSEvent(std::span<const automation::Value> parms) override {
        const std::string code = to_text(parms[2]) + to_text(parms[1]);
        trace_.lines.push_back("event " + to_text(parms[0]) + " " + code + "=" + to_text(parms[3]) +
                               (line_.IsOff(code) ? ", was off" : ""));
        then();
    }

    std::function<void()> then = [] {};

  private:
    Trace& trace_;
    host::X10& line_;
};

class X10LineTest : public testing::Test {
  protected:
    [[nodiscard]] Subscription attach(const std::string& code) {
        return line_.attach(code, [this, code](std::string_view command) {
            trace_.lines.push_back("module " + code + " " + std::string(command));
        });
    }

    std::vector<std::string> happened() {
        pump_.run_ready();
        return std::exchange(trace_.lines, {});
    }

    PostedEvents pump_;
    DeviceTable devices_;
    Trace trace_;
    EventBoard events_;
    X10Line line_{pump_, devices_, trace_, events_};
    Listener listener_{trace_, line_};
};

TEST_F(X10LineTest, SendingSetsTheStateAndTellsTheListenersLater) {
    devices_.NewDevice("power", "A1");
    const Subscription module = attach("A1");
    const Subscription other = attach("A11");
    events_.RegisterEventCB(EventBoard::kX10, listener_);
    events_.RegisterEventCB(EventBoard::kX10, listener_);
    line_.ExecX10(" a1", "OFF");
    EXPECT_TRUE(line_.IsOff("A1"));
    EXPECT_EQ(devices_.DeviceStatus("A1"), 3);
    EXPECT_THAT(trace_.lines, ElementsAre("log X10: A1 off", "module A1 off"));
    EXPECT_THAT(happened(),
                ElementsAre("log X10: A1 off", "module A1 off", "event 1 A1=3, was off"));
}

TEST_F(X10LineTest, AListenerSeesTheOldStateOfWhatIsReceived) {
    events_.RegisterEventCB(EventBoard::kX10, listener_);
    line_.receive("B2", "off");
    line_.receive("B2", "on");
    line_.receive("B2", "on");
    EXPECT_THAT(happened(), ElementsAre("event 1 B2=3", "log X10: B2 off", "event 1 B2=2, was off",
                                        "log X10: B2 on", "event 1 B2=2", "log X10: B2 on"));
}

TEST_F(X10LineTest, KnowsTheLastState) {
    EXPECT_FALSE(line_.isOn("P16"));
    EXPECT_FALSE(line_.IsOff("P16"));
    line_.ExecX10("P16", "on");
    line_.ExecX10("P16", "dim 40");
    EXPECT_TRUE(line_.isOn("p16"));
    devices_.NewDevice("power", "P16");
    EXPECT_TRUE(line_.isOn("P16")) << "a device of unknown state";
    devices_.SetDeviceStatus("P16", host::kStatusOff);
    EXPECT_TRUE(line_.IsOff("P16")) << "a device whose state was set by hand";
}

TEST_F(X10LineTest, OtherCommandsReachTheModulesOnly) {
    const Subscription module = attach("C3");
    events_.RegisterEventCB(EventBoard::kX10, listener_);
    line_.ExecX10("C3", "dim 40");
    EXPECT_THAT(happened(), ElementsAre("log X10: C3 dim 40", "module C3 dim 40"));
}

TEST_F(X10LineTest, WhoLeavesHearsNothing) {
    { const Subscription module = attach("A1"); }
    Listener second(trace_, line_);
    listener_.then = [&] { events_.UnregisterEventCB(second); };
    events_.RegisterEventCB(EventBoard::kX10, listener_);
    events_.RegisterEventCB(EventBoard::kX10, second);
    events_.RegisterEventCB(2, second);
    line_.ExecX10("A1", "on");
    EXPECT_THAT(happened(), ElementsAre("log X10: A1 on", "event 1 A1=2"));
    line_.ExecX10("A1", "on");
    events_.UnregisterEventCB(listener_);
    EXPECT_THAT(happened(), ElementsAre("log X10: A1 on"));
}

TEST_F(X10LineTest, AnEventDoesNotOutliveTheLine) {
    events_.RegisterEventCB(EventBoard::kX10, listener_);
    {
        X10Line short_lived(pump_, devices_, trace_, events_);
        short_lived.ExecX10("A1", "on");
    }
    EXPECT_THAT(happened(), ElementsAre("log X10: A1 on"));
}

TEST_F(X10LineTest, AFailedModuleIsLogged) {
    const Subscription broken = line_.attach("A1", [](std::string_view) {
        throw RunTimeError(automation::ErrorNumber::DeviceIoError, "no answer");
    });
    const Subscription next = attach("A1");
    line_.ExecX10("A1", "on");
    EXPECT_THAT(happened(),
                ElementsAre("log X10: A1 on", "log X10: A1 on failed: no answer", "module A1 on"));
}

TEST_F(X10LineTest, RefusesWhatIsNoCode) {
    for (const char* code : {"", "A", "A0", "A17", "Q1", "[1", "A1x", "1A", "A+1"}) {
        EXPECT_THROW(line_.ExecX10(code, "on"), RunTimeError) << code;
        EXPECT_FALSE(line_.isOn(code)) << code;
    }
    EXPECT_THAT(happened(), IsEmpty());
}

}  // namespace
}  // namespace home
