#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/house.h"

// What a second reading of the settings does to units that are there.
namespace fleet {
namespace {

using support::House;
using testing::ElementsAre;
using testing::IsEmpty;

// The settings as they are, less the line of one unit.
void remove_line(House& house, const std::string& name) {
    const std::string section = house.host().GetINISection(House::kNames, core::kSettingsFile);
    house.host().remove_section(House::kNames);
    std::size_t begin = 0;
    for (auto end = section.find('\0'); end != std::string::npos; end = section.find('\0', begin)) {
        const std::string entry = section.substr(begin, end - begin);
        begin = end + 1;
        const auto equals = entry.find('=');
        if (!entry.substr(0, equals).ends_with("/" + name)) {
            house.host().put_setting(House::kNames, entry.substr(0, equals),
                                     entry.substr(equals + 1));
        }
    }
}

std::vector<std::string> names(const Fleet& fleet) {
    std::vector<std::string> found;
    for (const Appliance& appliance : fleet.table()) {
        found.push_back(appliance.VeloraName);
    }
    return found;
}

TEST(Reload, KeepsUnitsThatAreKnownByNameInAnyCase) {
    House house({"Hall"});
    const auto before = house.fleet().GetOneVeloraObject("hall");
    before->SetTopLED("on", "");
    house.host().put_setting(House::kNames, "192.168.0.20/hall", "HALL,~11,A1,,0,0,");
    house.fleet().DefineVeloras();
    EXPECT_EQ(house.fleet().GetOneVeloraObject("hall"), before);
    EXPECT_EQ(before->TopLED(), "on");
    EXPECT_EQ(before->PowerDevice(), "A1");
    EXPECT_EQ(house.fleet().table().size(), 1U);
}

TEST(Reload, GivesAMovedUnitItsNewAddress) {
    House house({"Hall"});
    const auto unit = house.fleet().GetOneVeloraObject("hall");
    house.host().remove_section(House::kNames);
    house.host().put_setting(House::kNames, "192.168.0.99", "Hall,~11");
    house.fleet().DefineVeloras();
    EXPECT_EQ(house.fleet().GetOneVeloraObject("192.168.0.99"), unit);
    EXPECT_EQ(unit->Computer(), "192.168.0.99");
}

TEST(Reload, DropsUnitsWithoutALineAndMovesTheOthersUp) {
    House house({"One", "Two", "Three", "Four"});
    const auto third = house.fleet().GetOneVeloraObject("three");
    remove_line(house, "two");
    house.fleet().DefineVeloras();
    EXPECT_THAT(names(house.fleet()), ElementsAre("one", "three", "four"));
    EXPECT_EQ(house.fleet().table()[1].unit, third);
    EXPECT_EQ(third->DeviceCodeBase(), "[21");
    EXPECT_FALSE(house.host().has_device("[11"));
    EXPECT_FALSE(house.host().has_device("[20"));
    EXPECT_TRUE(house.host().has_device("[21"));
}

TEST(Reload, GivesTheTimersOfADroppedUnitToANewOne) {
    House house({"a", "b", "c", "d", "e", "f"});
    remove_line(house, "b");
    house.fleet().DefineVeloras();
    house.add_unit("g");
    house.fleet().DefineVeloras();
    EXPECT_TRUE(house.velora("g").queue().has_command_timer());
    EXPECT_EQ(house.velora("g").DeviceCodeBase(), "[11");  // the block that was free
}

TEST(Reload, KeepsTheLastEntryOfTheTable) {
    House house({"One", "Two", "Three"});
    remove_line(house, "three");
    house.fleet().DefineVeloras();
    EXPECT_THAT(names(house.fleet()), ElementsAre("one", "two", "three"));
    EXPECT_FALSE(house.fleet().table().back().VeloraActive);
    EXPECT_NE(house.fleet().table().back().unit, nullptr);
}

TEST(Reload, DropsNoneOfATableThatNeverHadThree) {
    House house({"One", "Two"});
    remove_line(house, "one");
    house.fleet().DefineVeloras();
    EXPECT_THAT(names(house.fleet()), ElementsAre("one", "two"));
    EXPECT_FALSE(house.host().has_device("[1"));
}

TEST(Reload, WithoutAnyLineEmptiesTheFirstCode) {
    House house({"One"});
    house.host().remove_section(House::kNames);
    house.fleet().DefineVeloras();
    EXPECT_EQ(house.fleet().table().front().VeloraDC, "");
    EXPECT_FALSE(house.fleet().table().front().VeloraActive);
    EXPECT_FALSE(house.host().has_device("[1"));

    House malformed({"One"});
    malformed.host().remove_section(House::kNames);
    malformed.host().put_setting(House::kNames, "x", ",");
    malformed.fleet().DefineVeloras();
    EXPECT_EQ(malformed.fleet().table().front().VeloraDC, "[1");
}

TEST(Reload, StartsMotionMinutesAnew) {
    House house({"Hall"});
    house.velora("hall").set_MotionOffMinutes(12);
    house.fleet().DefineVeloras();
    EXPECT_EQ(house.velora("hall").MotionOffMinutes(), 0);
}

TEST(Shutdown, EndsEveryUnitAndItsFetches) {
    House house({"One", "Two"});
    house.unit("one").goes_silent();
    house.velora("one").SetTopLED("on", "");
    house.fleet().shutdown();
    EXPECT_TRUE(house.fleet().is_empty());
    EXPECT_TRUE(house.fleet().all().empty());
    EXPECT_EQ(house.unit("one").in_flight(), 0);
    EXPECT_EQ(house.timer_pools().command_timer_owner(0), nullptr);
    house.run_for(std::chrono::minutes(5));
    EXPECT_THAT(house.trace_without_time(), ElementsAre("one GET /led.shtml?t1"));
    EXPECT_THAT(house.log(), IsEmpty());
    house.fleet().shutdown();
}

}  // namespace
}  // namespace fleet
