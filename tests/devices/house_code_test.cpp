#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "devices/devices_house.h"

namespace devices {
namespace {

using Generation = DevicesHouse::Generation;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class HeardEndpoints : public EndpointListener {
  public:
    void SendXapBSC(std::string_view code) override { codes.emplace_back(code); }

    std::vector<std::string> codes;
};

struct OwnedDevice {
    const char* hc;
    const char* interface_name;
    const char* iomisc;
};

TEST(HouseCode, IsThatOfTheFirstOwnDeviceOnOlderHostsAndOfTheLastOnNewerOnes) {
    const struct {
        std::vector<OwnedDevice> devices;
        const char* older;
        const char* newer;
    } rows[] = {
        {{{"]", "zynVelora", ""}}, "]", "]"},
        {{{"]", "", "zynVelora"}}, "]", "]"},
        {{{"]", "zynVelora", ""}, {"_", "zynVelora", ""}}, "]", "_"},
        {{{"A", "zynVelora", ""}, {"]", "zynVelora", ""}}, "]", "]"},
        {{{"a", "zynVelora", ""}, {"]", "zynVelora", ""}}, "]", "]"},
        {{{"^", "other", ""}, {"]", "zynVelora", ""}, {"_", "other", "other"}}, "]", "]"},
    };

    for (const auto& row : rows) {
        for (const Generation generation : {Generation::Newer, Generation::Older}) {
            DevicesHouse house(generation);
            for (const OwnedDevice& device : row.devices) {
                house.host.put_device(device.hc + std::string("1"), device.interface_name,
                                      device.iomisc);
            }
            house.devices.InitDevices();
            EXPECT_EQ(house.instance.HouseCode,
                      generation == Generation::Newer ? row.newer : row.older);
            EXPECT_THAT(house.host.saved_settings(), IsEmpty());
        }
    }
}

TEST(HouseCode, IsTakenFromTheHostOnceAndKeptByADevice) {
    for (const Generation generation : {Generation::Newer, Generation::Older}) {
        DevicesHouse house(generation);
        house.host.put_device("A1");
        house.devices.InitDevices();
        EXPECT_EQ(house.instance.HouseCode, "[");
        EXPECT_THAT(house.host.saved_settings(), ElementsAre("HouseCode=91"));
        const auto device = house.host.device("[99");
        EXPECT_EQ(device.fields.name, "Original Plugin Version");
        EXPECT_EQ(device.fields.location, "Velora");
        EXPECT_EQ(device.fields.dev_type_string, "Velora");
        EXPECT_EQ(device.fields.interface_name, "zynVelora");
        EXPECT_EQ(device.fields.misc, 32816);
        EXPECT_EQ(device.text, "Original Install Version 1.0.0");
        EXPECT_EQ(device.last_change, house.machine.pump.now());

        house.instance.HouseCode.clear();
        house.devices.InitDevices();
        EXPECT_EQ(house.instance.HouseCode, "[");
        EXPECT_EQ(house.host.DeviceCount(), 2);
        EXPECT_THAT(house.host.saved_settings(), ElementsAre("HouseCode=91"));
    }
}

TEST(HouseCode, IsFixedInTheXapApplication) {
    DevicesHouse house(Generation::Hosted);
    house.host.put_device("]1", "zynVelora");
    house.devices.InitDevices();
    EXPECT_EQ(house.instance.HouseCode, "^");
    EXPECT_FALSE(house.host.has_device("^99"));
}

TEST(CallerDevice, IsMadeOnce) {
    for (const Generation generation : {Generation::Newer, Generation::Older, Generation::Hosted}) {
        DevicesHouse house(generation);
        HeardEndpoints endpoints;
        house.board.set_listener(&endpoints);
        house.devices.CIDDevice("[91");
        const auto device = house.host.device("[91");
        EXPECT_EQ(device.fields.name, "CID Detected");
        EXPECT_EQ(device.fields.location, "Velora");
        EXPECT_EQ(device.fields.interface_name, "zynVelora");
        EXPECT_EQ(device.fields.misc, generation == Generation::Newer ? 32816 : 48);
        EXPECT_EQ(device.text, "");
        EXPECT_EQ(device.status, 3);
        EXPECT_EQ(device.last_change, house.machine.pump.now());

        house.host.SetDeviceString("[91", "Smith");
        house.devices.CIDDevice("[91");
        EXPECT_EQ(house.host.DeviceString("[91"), "Smith");
        EXPECT_EQ(house.host.DeviceCount(), 1);
        EXPECT_THAT(endpoints.codes, ElementsAre("[91"));
    }
}

TEST(HostAccess, FailureOfTheHostIsLoggedUnderTheRoutine) {
    DevicesHouse house(Generation::Older);
    EXPECT_EQ(house.devices.hsGetDevice(70000), nullptr);  // no Int16
    EXPECT_EQ(house.devices.hsGetDevice(1), nullptr);
    EXPECT_EQ(house.devices.hsDeviceExists("[1"), host::kNoDevice);
    EXPECT_THAT(house.host.log(),
                ElementsAre(testing::StartsWith("zynVelora: hsGetDevice  Line ")));
    house.host.fail(support::MemoryHost::Operation::SetDeviceString, 1);
    house.devices.NewDevice("[99");
    EXPECT_THAT(house.host.log(), Contains(testing::StartsWith("zynVelora: NewDevice:  Line ")));
}

TEST(ValueCallbacks, AreAskedForOfEveryOwnDevice) {
    DevicesHouse house;
    house.host.put_device("[1", "zynVelora");
    house.host.put_device("[2", "ZYNVELORA");
    house.host.put_device("[3", "other");
    house.devices.SetValueCallback();
    EXPECT_EQ(house.host.device("[1").fields.misc, 32768);
    EXPECT_EQ(house.host.device("[2").fields.misc, 32768);
    EXPECT_EQ(house.host.device("[3").fields.misc, 0);

    DevicesHouse older(Generation::Older);
    older.host.put_device("[1", "zynVelora");
    older.devices.SetValueCallback();
    EXPECT_EQ(older.host.device("[1").fields.misc, 0);
}

}  // namespace
}  // namespace devices
