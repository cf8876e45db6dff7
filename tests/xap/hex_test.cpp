#include "xap/hex.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/velora_log.h"
#include "support/memory_host.h"

namespace xap {
namespace {

TEST(Hex, TwoDigitsOfANumberAndWhatIsTooLarge) {
    support::MemoryHost host;
    core::VeloraLog log;
    log.attach(&host);
    EXPECT_EQ(ToHex(log, 0), "00");
    EXPECT_EQ(ToHex(log, 14), "0E");
    EXPECT_EQ(ToHex(log, 61), "3D");
    EXPECT_EQ(ToHex(log, 255), "FF");
    EXPECT_THAT(host.log(), testing::IsEmpty());
    EXPECT_EQ(ToHex(log, 300), "00");
    EXPECT_THAT(host.log(), testing::ElementsAre(
                                "zynVelora: Attempting to send 0 to Rain8, which is too large"));
}

TEST(Hex, ReadsTheFirstAndTheLastCharacter) {
    EXPECT_EQ(FromHex("0E"), 14);
    EXPECT_EQ(FromHex("fF"), 255);
    EXPECT_EQ(FromHex("A"), 170);
    EXPECT_EQ(FromHex("1xx2"), 18);
    EXPECT_EQ(FromHex("zz"), 0);
    EXPECT_EQ(FromHex(""), 0);
}

}  // namespace
}  // namespace xap
