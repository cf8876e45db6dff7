#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/house.h"

namespace fleet {
namespace {

using support::House;
using testing::ElementsAre;

std::string names_of(const Fleet::Selection& units) {
    std::string names;
    for (const auto& unit : units) {
        names += (names.empty() ? "" : "+") + unit->Name();
    }
    return names;
}

TEST(Selection, IsByNamesOrAddressesInTheOrderOfTheFields) {
    House house({"Hall", "Living Room", "Den"});

    const struct {
        const char* text;
        const char* units;
    } rows[] = {
        {"", "hall+living room+den"},
        {"   ", "hall+living room+den"},
        {"den", "den"},
        {" DEN ", "den"},
        {"den hall", "den+hall"},
        {"den,hall", "den+hall"},
        {" den , hall ", "den+hall"},
        {"192.168.0.21", "living room"},
        {"192.168.0.22,hall", "den+hall"},
        {"living room", ""},
        {"living room,", "living room"},
        {"Living Room,den", "living room+den"},
        {"hall,hall", "hall+hall"},
        {"hall,nobody,den", "hall+den"},
        {"nobody", ""},
        {"all", ""},
        {"hall  den", "hall+den"},
        {",", ""},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(names_of(house.fleet().GetVeloraObjects(row.text)), row.units) << row.text;
    }
}

TEST(Selection, IsToldWhileDebugIsOn) {
    House house({"Hall", "Den"});
    house.instance().log.set_debug_log(true);
    static_cast<void>(house.fleet().GetVeloraObjects("Hall,nobody"));
    EXPECT_THAT(house.log(), ElementsAre("zynVelora Debug: GetVeloraObjects Hall,nobody, count=1"));
}

TEST(SingleSelection, IsTheFirstUnitForNoName) {
    House house({"Hall", "Living Room"});

    const struct {
        const char* text;
        const char* unit;
    } rows[] = {
        {"", "hall"},
        {"  ", "hall"},
        {" LIVING room ", "living room"},
        {"nobody", nullptr},
        {"192.168.0.21", "living room"},
    };

    for (const auto& row : rows) {
        const auto unit = house.fleet().GetOneVeloraObject(row.text);
        EXPECT_EQ(unit == nullptr ? "none" : unit->Name(), row.unit == nullptr ? "none" : row.unit);
    }
    House empty;
    EXPECT_EQ(empty.fleet().GetOneVeloraObject(""), nullptr);
    EXPECT_TRUE(empty.fleet().GetVeloraObjects("").empty());
    EXPECT_TRUE(empty.fleet().is_empty());
}

TEST(Reach, IsLostWithThePowerOutsideAPowerCycle) {
    House house;
    house.add_unit("Bare");
    house.add_unit("Hall", {.power = "A1"});
    house.open();
    EXPECT_TRUE(house.fleet().IsReachable(house.velora("bare")));
    EXPECT_FALSE(house.fleet().IsReachable(house.velora("hall")));  // never heard of
    house.host().ExecX10("A1", "on");
    EXPECT_TRUE(house.fleet().IsReachable(house.velora("hall")));
    house.host().ExecX10("A1", "off");
    EXPECT_FALSE(house.fleet().IsReachable(house.velora("hall")));
    house.velora("hall").CyclePower("");
    EXPECT_TRUE(house.fleet().IsReachable(house.velora("hall")));
}

}  // namespace
}  // namespace fleet
