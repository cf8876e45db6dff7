#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/house.h"

namespace fleet {
namespace {

using support::House;
using support::UnitLine;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> codes(House& house) {
    std::vector<std::string> found;
    for (const Appliance& appliance : house.fleet().table()) {
        found.push_back(appliance.VeloraName + " " + appliance.VeloraDC);
    }
    return found;
}

TEST(FirstRun, GivesBlocksAndWritesTheLinesBack) {
    House house;
    house.host().put_setting(House::kNames, "192.168.0.20/kitchen", "Kitchen,,a1,b2");
    house.host().put_setting(House::kNames, "192.168.0.21", "\" Hall \"");
    house.host().put_setting(House::kNames, " 192.168.0.22 / den ", "Den,,,,2,1,house.x10");
    house.fleet().DefineVeloras();
    EXPECT_THAT(house.host().saved_settings(),
                ElementsAre("HouseCode=91", "192.168.0.20/kitchen=\"Kitchen,~11,A1,B2,0,False,\"",
                            "192.168.0.21=\" Hall ,~111,,,0,False,\"",
                            "192.168.0.22/den=\"Den,~121,,,2,True,house.x10\""));
    EXPECT_THAT(codes(house), ElementsAre("kitchen [1", "hall [11", "den [21"));
    EXPECT_TRUE(house.host().has_device("[30"));
    EXPECT_FALSE(house.host().has_device("[31"));
    EXPECT_EQ(house.host().device("[12").fields.location, "hall");
}

TEST(FirstRun, HandsEachFieldToTheUnit) {
    House house;
    house.host().put_setting(House::kNames, "192.168.0.22/den", "Den,~141,a1,b2,2,1,house.x10");
    house.fleet().DefineVeloras();
    const appliance::Velora& unit = house.velora("den");
    EXPECT_EQ(unit.Name(), "den");
    EXPECT_EQ(unit.IP(), "192.168.0.22");
    EXPECT_EQ(unit.Computer(), "den");
    EXPECT_EQ(unit.DeviceCodeBase(), "[41");
    EXPECT_EQ(unit.device_code(devices::SubDevice::Reserved), "[50");
    EXPECT_EQ(unit.PowerDevice(), "A1");
    EXPECT_EQ(unit.MotionDevice(), "B2");
    EXPECT_EQ(unit.EnableSlideshow(), 2);
    EXPECT_EQ(unit.SlideGroup(), 2);
    EXPECT_TRUE(unit.DoCID());
    EXPECT_EQ(unit.X10Server(), "house.x10");
    EXPECT_THAT(house.host().saved_settings(), ElementsAre("HouseCode=91"));
}

TEST(CallerIdFlag, IsLostWithTheLineThatIsWrittenBack) {
    House house;
    house.add_unit("Den", {.caller_id = "1"});
    house.open();
    EXPECT_TRUE(house.velora("den").DoCID());
    EXPECT_EQ(house.fleet().DoCIDNames(), "den");
    house.fleet().DefineVeloras();
    EXPECT_FALSE(house.velora("den").DoCID());
    EXPECT_EQ(house.fleet().DoCIDNames(), "");
}

TEST(Blocks, WhoseFirstNumberIsTakenAreSkipped) {
    House house;
    house.host().put_device("[99", "zynVelora");
    house.host().put_device("[11");
    house.add_unit("One");
    house.add_unit("Two");
    house.open();
    EXPECT_THAT(codes(house), ElementsAre("one [1", "two [21"));
}

TEST(Blocks, AreSevenAndTheSeventhIsProtectedUpToItsThirdDevice) {
    House house;
    for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h"}) {
        house.add_unit(name);
    }
    house.open();
    ASSERT_EQ(house.fleet().table().size(), 8U);
    EXPECT_EQ(house.fleet().table()[6].VeloraDC, "[61");
    EXPECT_TRUE(house.host().has_device("[70"));
    const Appliance& eighth = house.fleet().table()[7];
    EXPECT_EQ(eighth.VeloraDC, "");
    EXPECT_FALSE(eighth.VeloraActive);
    EXPECT_EQ(eighth.unit, nullptr);
    EXPECT_EQ(house.fleet().all().size(), 7U);

    house.fleet().DefineVeloras();
    EXPECT_TRUE(house.host().has_device("[61"));
    EXPECT_TRUE(house.host().has_device("[70"));
}

TEST(Lines, ThatAreMalformedAreSkipped) {
    House house;

    const struct {
        const char* key;
        const char* value;
    } rows[] = {
        {"192.168.0.1", ""},          {"", "nameless key"},  {"192.168.0.2", "a=b"},
        {"192.168.0.3", ",~11,A1"},   {"192.168.0.4", "  "}, {"192.168.0.5", "\"\""},
        {"192.168.0.6", "  ,~121,,"},
    };

    for (const auto& row : rows) {
        house.host().put_setting(House::kNames, row.key, row.value);
    }
    house.add_unit("Good");
    house.open();
    EXPECT_THAT(codes(house), ElementsAre("good [1"));
    EXPECT_THAT(house.log(), IsEmpty());
}

TEST(ForeignHouseCode, ProtectsNoNumbersOfOurs) {
    House house({"One"});
    ASSERT_TRUE(house.host().has_device("[5"));
    house.host().put_setting(House::kNames, "192.168.0.20/one", "One,]1,,,0,0,");
    house.fleet().DefineVeloras();
    EXPECT_FALSE(house.host().has_device("[5"));
    EXPECT_EQ(house.velora("one").device_code(devices::SubDevice::Display), "]1");
    EXPECT_TRUE(house.host().has_device("]1"));
}

TEST(UnusedDevices, Of1To63AreRemovedAndOthersStay) {
    House house({"One"});
    for (const char* number : {"11", "61", "63", "64", "91"}) {
        house.host().put_device("[" + std::string(number), "zynVelora");
    }
    house.fleet().DefineVeloras();
    EXPECT_THAT(house.log(), ElementsAre("zynVelora: Removing virtual device [11",
                                         "zynVelora: Removing virtual device [61",
                                         "zynVelora: Removing virtual device [63"));
    for (const char* kept : {"[1", "[10", "[64", "[91", "[99"}) {
        EXPECT_TRUE(house.host().has_device(kept)) << kept;
    }
}

TEST(UnusedDevices, OfAnOlderHostAreFoundByNumberAndRemovedByReference) {
    House house;
    house.instance().HostIsV2 = false;
    for (const char* code : {"[7", "[8", "[9"}) {
        house.host().put_device(code, "zynVelora");
    }
    house.fleet().DefineVeloras();
    EXPECT_EQ(house.host().DeviceCount(), 0);
}

TEST(PowerDevices, AreListedLastLineFirst) {
    House house;
    house.add_unit("One", {.power = "a1"});
    house.add_unit("Two");
    house.add_unit("Three", {.power = "B2"});
    house.open();
    EXPECT_EQ(house.fleet().PowerDeviceList(), ",B2,,A1,");
    house.fleet().DefineVeloras();
    EXPECT_EQ(house.fleet().PowerDeviceList(), ",B2,,A1,");
}

TEST(XapApplication, SetsPowerOnAndSilencesQueueDevicesAndRemovesWithoutAWord) {
    House house;
    house.instance().XapHosted = true;
    house.instance().HostIsV2 = false;
    house.add_unit("One", {.power = "A1", .caller_id = "1"});
    house.add_unit("Two", {.dc = "^41", .caller_id = "1"});
    static_cast<void>(house.host().NewDevice("d", "^60"));
    house.fleet().DefineVeloras();
    EXPECT_THAT(house.host().silent_codes(), ElementsAre("^ 10", "^ 50"));
    EXPECT_THAT(house.host().device_calls(), testing::Contains("SetDeviceStatusNoReport A1 2 0"));
    EXPECT_FALSE(house.host().has_device("^60"));
    EXPECT_THAT(house.log(), IsEmpty());
    EXPECT_EQ(house.fleet().DoCIDNames(), "one,two");
}

TEST(DefineVeloras, TellsItsStepsWhileDebugIsOn) {
    House house;
    house.add_unit("One");
    house.instance().log.set_debug_log(true);
    house.fleet().DefineVeloras();
    for (const char* line : {"zynVelora Debug: DefineVeloras Not Found Ubound =0",
                             "zynVelora Debug: DefineVeloras Saving Name One at [1",
                             "zynVelora Debug: Initializing New Velora one"}) {
        EXPECT_THAT(house.log(), testing::Contains(line));
    }
    house.host().forget();
    house.fleet().DefineVeloras();
    EXPECT_THAT(house.log(),
                testing::Contains("zynVelora Debug: Initializing Existing Velora one"));
}

TEST(DefineVeloras, ReportsAFailureAndKeepsWhatItHas) {
    House house;
    house.add_unit("One");
    house.add_unit("Two");
    house.host().fail(support::MemoryHost::Operation::SaveIniSetting, 3,
                      automation::ErrorNumber::PermissionDenied);
    house.fleet().DefineVeloras();
    EXPECT_THAT(house.log(), ElementsAre(testing::StartsWith("zynVelora: DefineVeloras:  Line ")));
    EXPECT_EQ(house.velora("one").DeviceCodeBase(), "[1");
}

}  // namespace
}  // namespace fleet
