#include "xapnet/address.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>

#include "xapnet/uid.h"

namespace xapnet {
namespace {

TEST(Address, ATargetCoversAddressesOfItsOwnSection) {
    struct Case {
        std::string_view target;
        std::string_view address;
        bool is_covered;
    };

    for (const Case& c : {
             Case{"zyn.zynVelora.Kitchen", "ZYN.zynvelora.kitchen", true},
             Case{"zyn.zynVelora.kitchen2", "zyn.zynVelora.kitchen", false},
             Case{"zyn.zynVelora.*", "zyn.zynVelora.kitchen", true},
             Case{"zyn.zynVelora.kit*", "zyn.zynVelora.kitchen", false},
             Case{"*.*.*", "zyn.zynVelora.kitchen", true},
             Case{"*.*", "zyn.zynVelora.kitchen", false},
             Case{"*", "zyn.zynVelora.kitchen", false},
             Case{"*.*.*.*", "zyn.zynVelora.kitchen", false},
             Case{">", "zyn.zynVelora.kitchen", true},
             Case{"zyn.>", "zyn.zynVelora.kitchen", true},
             Case{"zyn.zynVelora.kitchen.>", "zyn.zynVelora.kitchen", false},
             Case{"zyn.>.hall", "zyn.zynVelora.kitchen", true},
             Case{"", "zyn.zynVelora.kitchen", false},
             Case{"", "", false},
             Case{"*.b.c", ".b.c", false},
             // Endpoints and what is none.
             Case{"zyn.zynVelora.Kitchen:TopLED", "zyn.zynVelora.kitchen", false},
             Case{"zyn.zynVelora.kitchen:>", "zyn.zynVelora.kitchen", false},
             Case{"zyn.zynVelora.kitchen", "zyn.zynVelora.kitchen:led", false},
             Case{"zyn.>", "zyn.zynVelora.kitchen:led", false},
             Case{"a.b.c:>", "a.b.c:x", true},
             Case{"a.b.c:>", "A.B.C:x.y", true},
             Case{"a.b.c:>", "a.b.c:", false},
             Case{"a.b.c:x.>", "a.b.c:x.y.z", true},
             Case{"a.b.c:x.>", "a.b.c:x", false},
             Case{"a.b.c:*", "a.b.c:x.y", false},
             Case{"a.b.c:*.y", "a.b.c:x.Y", true},
             Case{">:>", "a.b.c:x.y", true},
             Case{">:>", "a.b.c", false},
             Case{"a.b.d:>", "a.b.c:x", false},
         }) {
        EXPECT_EQ(covers(c.target, c.address), c.is_covered) << c.target << " and " << c.address;
    }
    EXPECT_TRUE(is_same_device("a.b.c:x", "A.B.C"));
    EXPECT_FALSE(is_same_device("a.b.c.d", "a.b.c"));
}

TEST(Uid, BothVersionsAreReadAndOneIsMade) {
    for (const auto& [text, is_valid] : {
             std::pair{"FF123403", true},
             {"ff00aB00", true},
             {"FF12340", false},
             {"FF12340300", false},
             {"FF12340G", false},
             {"", false},
             {"FF.1234:0000", true},
             {"FF.12345678:01", true},
             {"FF.123:0000", false},
             {"FF..1234", false},
             {"FF.1234:", false},
         }) {
        EXPECT_EQ(is_uid(text), is_valid) << text;
    }
    for (const auto& [unit, endpoint, uid] : {
             std::tuple{0x1234, "00", std::optional<std::string>("FF123400")},
             {0x00AB, "0e", "FF00AB0E"},
             {0xFFFF, "FE", "FFFFFFFE"},
             {1, "FF", std::nullopt},
             {1, "0", std::nullopt},
             {1, "0001", std::nullopt},
             {1, "0x", std::nullopt},
         }) {
        EXPECT_EQ(make_uid(static_cast<std::uint16_t>(unit), endpoint), uid) << endpoint;
    }
}

}  // namespace
}  // namespace xapnet
