#include "callerid/cid_event.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/instance.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"

namespace callerid {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// Both generations of the host.
class CidEventTest : public testing::TestWithParam<bool> {
  protected:
    CidEventTest() {
        instance_.attach(host_, &host_);
        instance_.log.attach(&host_);
        instance_.HostIsV2 = GetParam();
    }

    support::FakeMachine machine_;
    support::MemoryHost host_;
    core::Instance instance_{machine_.platform()};
    CidEvent cid_event_{instance_};
};

TEST_P(CidEventTest, MakesTheEventOfTheTelephoneLine) {
    (void)host_.NewEventEx("Morning");
    cid_event_.CreateCIDEvent("Phone", 2);
    ASSERT_THAT(host_.events(), SizeIs(2));
    const host::EventFields wanted{.name = "zynVelora CID",
                                   .scripts = "&hs.Plugin(\"zynVelora\").VeloraSendHspCID(\"\")",
                                   .ev_abs_time = 10,
                                   .phone_line = 2,
                                   .phone_event = 4,
                                   .Group = "Phone",
                                   .misc = GetParam() ? 49152 : 16384};
    EXPECT_EQ(host_.events()[1], wanted);
    EXPECT_THAT(host_.log(), IsEmpty());
}

TEST_P(CidEventTest, LeavesAnEventOfThatNameAsItIs) {
    (void)host_.NewEventEx("ZYNVELORA cid");
    cid_event_.CreateCIDEvent("Phone", 2);
    ASSERT_THAT(host_.events(), SizeIs(1));
    EXPECT_EQ(host_.events()[0].phone_line, 0);
    EXPECT_FALSE(cid_event_.FindEvent("zynVelora"));
}

TEST_P(CidEventTest, AWalkUnderWhichTheNumberOfEventsChangesBeginsAnew) {
    (void)host_.NewEventEx("zynVelora CID");
    (void)host_.NewEventEx("Morning");
    host_.disturb_event_walk(1);
    EXPECT_TRUE(cid_event_.FindEvent("zynVelora CID"));
    EXPECT_EQ(host_.event_walks(), GetParam() ? 2 : 0);
}

TEST_P(CidEventTest, AnErrorIsLoggedWithItsNumber) {
    instance_.attach(host_, nullptr);
    instance_.log.attach(&host_);
    cid_event_.CreateCIDEvent("Phone", 1);
    EXPECT_THAT(host_.log(),
                ElementsAre(testing::StartsWith("zynVelora: FindEvent 91 Line "),
                            testing::StartsWith("zynVelora: CreateCIDEVent 91 Line ")));
}

INSTANTIATE_TEST_SUITE_P(Generations, CidEventTest, testing::Bool(),
                         [](const auto& row) { return row.param ? "Newer" : "Older"; });

}  // namespace
}  // namespace callerid
