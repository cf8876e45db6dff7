#include "xap/endpoint_pattern.h"

#include <gtest/gtest.h>

namespace xap {
namespace {

const SubAddress kTopLed{"kitchen_topled", "velora________14", "topled"};
const SubAddress kVolume{"kitchen_volume", "velora________19", "volume"};

TEST(EndpointPattern, CoversWhatATargetMeans) {
    struct Row {
        const char* target;
        bool top_led;
        bool volume;
    };

    for (const Row& row : {
             Row{">:>", true, true},
             Row{"a.b.c:", true, true},
             Row{"a.b.c:>", true, true},
             Row{"a.b.c:*", true, true},
             Row{"a.b.c:KITCHEN_TOPLED", true, false},
             Row{"a.b.c:kitchen_topled.>", true, false},
             Row{"a.b.c:kitchen_topled.>.volume", true, false},
             Row{"a.b.c:*.*.Volume", false, true},
             Row{"a.b.c:*.velora________14", true, false},
             Row{"a.b.c:kitchen_topled.velora________14.topled.more", true, false},
             Row{"a.b.c:kitchen", false, false},
             Row{"a.b.c:.", false, false},
             Row{"a:kitchen_topled:x", false, false},
         }) {
        const auto pattern = EndpointPattern::of(row.target);
        ASSERT_TRUE(pattern) << row.target;
        EXPECT_EQ(pattern->matches(kTopLed), row.top_led) << row.target;
        EXPECT_EQ(pattern->matches(kVolume), row.volume) << row.target;
    }
    EXPECT_FALSE(EndpointPattern::of("zyn.zynVelora.kitchen"));
    EXPECT_FALSE(EndpointPattern::of(""));
}

}  // namespace
}  // namespace xap
