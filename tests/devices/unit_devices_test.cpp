#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "devices/devices_house.h"
#include "home/device_store.h"

namespace devices {
namespace {

using Generation = DevicesHouse::Generation;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr Generation kGenerations[] = {Generation::Newer, Generation::Older, Generation::Hosted};

void make_unit(DevicesHouse& house, int first, const std::string& name) {
    for (int offset = 0; offset < 10; ++offset) {
        house.devices.make_unit_device("[" + std::to_string(first + offset),
                                       static_cast<SubDevice>(offset), name);
    }
}

TEST(Values, AreWordAndNumber) {
    EXPECT_EQ(HostDevices::DefineValues(8, 2),
              "Turn Backlight Off\x02"
              "0\x01Turn Backlight On\x02"
              "1");
    EXPECT_EQ(HostDevices::DefineValues(0, 0), "");
}

TEST(Buttons, NameTheUnit) {
    DevicesHouse house;
    EXPECT_EQ(house.devices.DefineButtons(8, 2, "kitchen"),
              "zynVelora\x02Turn Backlight Off @ kitchen Velora\x01"
              "zynVelora\x02Turn Backlight On @ kitchen Velora");
    house.instance.settings.StatusOnly = true;
    EXPECT_EQ(house.devices.DefineButtons(8, 2, "kitchen"), "");
}

TEST(SoundButtons, AreThoseThatAreEnabled) {
    DevicesHouse house;
    EXPECT_EQ(house.devices.UpdateSoundsButton("hall"), "");
    house.instance.settings.SoundButtonEnabled[2] = true;
    house.instance.settings.SoundButtonEnabled[18] = true;
    EXPECT_EQ(house.devices.UpdateSoundsButton("hall"),
              "zynVelora\x02Play Copy Sound @ hall Velora\x01"
              "zynVelora\x02Play Wake Sound @ hall Velora");
    house.instance.settings.StatusOnly = true;
    EXPECT_EQ(house.devices.UpdateSoundsButton("hall"), "");
}

TEST(SoundButtons, OfAllBlocksFollowTheSettings) {
    for (const Generation generation : kGenerations) {
        DevicesHouse house(generation);
        make_unit(house, 1, "hall");
        make_unit(house, 61, "den");  // its sounds device is number 67, behind the last one
        house.host.put_device("[27", "other");
        house.instance.settings.SoundButtonEnabled[2] = true;
        house.devices.UpdateButtons();
        const auto buttons = [&](const char* code) {
            return house.host.device(code).fields.buttons;
        };
        EXPECT_EQ(buttons("[7"), "zynVelora\x02Play Copy Sound @ hall Velora");
        EXPECT_EQ(buttons("[27"), "zynVelora\x02Play Copy Sound @  Velora");
        EXPECT_EQ(buttons("[67"), "");
        house.instance.settings.StatusOnly = true;
        house.devices.UpdateButtons();
        EXPECT_EQ(buttons("[7"), "");
        EXPECT_FALSE(house.host.device("[7").fields.values.empty());
    }
}

TEST(UnitDevices, AreTenWithCodeNameAndOwner) {
    constexpr const char* kNames[] = {"Display", "Awake",  "Backlight",     "Top LED", "Mail LED",
                                      "Browser", "Sounds", "Sounds Volume", "Volume",  "Reserved"};
    for (const Generation generation : kGenerations) {
        DevicesHouse house(generation);
        house.host.put_device("A1");  // an older device, so that numbers and places differ
        make_unit(house, 11, "hall");
        for (int offset = 0; offset < 10; ++offset) {
            const auto device = house.host.device("[" + std::to_string(11 + offset));
            EXPECT_EQ(device.fields.name, "Velora " + std::string(kNames[offset]));
            EXPECT_EQ(device.fields.location, "hall");
            EXPECT_EQ(device.fields.dev_type_string, "Velora");
            EXPECT_EQ(device.fields.interface_name, "zynVelora");
            EXPECT_EQ(device.fields.iotype, offset == 9 ? 2 : 4);
            EXPECT_EQ(device.fields.misc, offset == 9 ? 32 : 0);
            EXPECT_EQ(device.fields.values.empty(), offset == 9);
            EXPECT_EQ(device.fields.buttons.empty(), offset == 6 || offset == 9);
        }
        EXPECT_EQ(house.host.DeviceCount(), 11);
    }
}

// Looks at each state in which a kill could leave the devices on disk.
class DisksOfKilledHosts final : public home::DeviceStore {
  public:
    [[nodiscard]] home::StoredDevices load() override { return {}; }

    void add(const home::DeviceRecord& record) override { look_at(record.fields); }

    void save_fields(host::DeviceRef /*ref*/, const host::DeviceFields& fields) override {
        look_at(fields);
    }

    void save_text(host::DeviceRef /*ref*/, std::string_view /*text*/) override {}

    void save_state(host::DeviceRef /*ref*/, const home::DeviceState& /*state*/) override {}

    void remove(host::DeviceRef /*ref*/) override {}

    [[nodiscard]] int writes() const { return writes_; }

  private:
    void look_at(const host::DeviceFields& fields) {
        ++writes_;
        if (!fields.hc.empty()) {
            EXPECT_EQ(fields.interface_name, "zynVelora") << fields.name;
            EXPECT_NE(fields.location, "") << fields.name;
        }
    }

    int writes_ = 0;
};

// A device that has its code is taken for finished at the next start.
TEST(UnitDevices, NeverHaveACodeWithoutOwnerAndPlace) {
    support::FakeMachine machine;
    DisksOfKilledHosts disk;
    support::MemoryHost host(disk);
    core::Instance instance(machine.platform());
    instance.attach(host, &host);
    instance.HostIsV2 = true;
    StatusBoard board(instance);
    HostDevices devices(instance, board);

    devices.make_unit_device("[11", SubDevice::Display, "hall");
    devices.CIDDevice("[91");
    devices.NewDevice("[99");

    EXPECT_GE(disk.writes(), 6);
    EXPECT_EQ(host.device("[11").fields.location, "hall");
}

TEST(UnitDevices, TakeValuesFromTheirOwnRow) {
    DevicesHouse house;
    make_unit(house, 1, "hall");

    const struct {
        const char* code;
        const char* first;
        const char* last;
    } rows[] = {
        {"[1",
         "Send to ACID\x02"
         "0",
         "TBD2\x02"
         "3"},
        {"[2",
         "Put to Sleep\x02"
         "0",
         "Power Cycle\x02"
         "3"},
        {"[7",
         "Play Cancel Sound\x02"
         "0",
         "Play Wake Sound\x02"
         "18"},
        {"[8",
         "Set Sounds Volume to 0%\x02"
         "0",
         "Set Sounds Volume to 100%\x02"
         "4"},
        {"[9",
         "Set Master Volume to 0%\x02"
         "0",
         "Set Master Volume to 100%%\x02"
         "4"},
    };

    for (const auto& row : rows) {
        const std::string values = house.host.device(row.code).fields.values;
        EXPECT_THAT(values, testing::StartsWith(row.first)) << row.code;
        EXPECT_THAT(values, testing::EndsWith(row.last)) << row.code;
    }
}

TEST(UnitDevices, KeepForeignFlagsWhenBroughtUpToDate) {
    const struct {
        Generation generation;
        bool status_only;
        std::int32_t before;
        std::int32_t after;
    } rows[] = {
        {Generation::Newer, false, 16 | 64, 32768 | 64},
        {Generation::Newer, true, 64, 32768 | 64 | 16},
        {Generation::Older, false, 16 | 64, 64},
        {Generation::Older, true, 16, 16},
        {Generation::Hosted, false, 16 | 1, 1},
    };

    for (const auto& row : rows) {
        DevicesHouse house(row.generation);
        make_unit(house, 1, "hall");
        for (const char* code : {"[3", "[10"}) {
            const auto device = house.host.GetDeviceByRef(house.host.device(code).ref);
            host::DeviceFields fields = device->fields();
            fields.misc = row.before;
            device->set_fields(fields);
        }
        house.instance.settings.StatusOnly = row.status_only;
        make_unit(house, 1, "hall");
        EXPECT_EQ(house.host.device("[3").fields.misc, row.after);
        EXPECT_EQ(house.host.device("[10").fields.misc, row.after | 32);
        EXPECT_EQ(house.host.device("[3").fields.buttons.empty(), row.status_only);
        EXPECT_FALSE(house.host.device("[3").fields.values.empty());
        EXPECT_EQ(house.host.DeviceCount(), 10);
    }
}

TEST(UnitDevices, KeepNameAndPlaceOfARenamedUnitButNotTheirButtons) {
    DevicesHouse house;
    house.instance.settings.SoundButtonEnabled[0] = true;
    make_unit(house, 1, "hall");
    make_unit(house, 1, "foyer");
    EXPECT_EQ(house.host.device("[4").fields.location, "hall");
    EXPECT_THAT(house.host.device("[4").fields.buttons, HasSubstr(" @ foyer Velora"));
    EXPECT_THAT(house.host.device("[7").fields.buttons, HasSubstr(" @ hall Velora"));
}

TEST(UnitDevices, TellWhatTheyDoWhileDebugIsOn) {
    DevicesHouse house;
    house.instance.log.set_debug_log(true);
    house.devices.make_unit_device("[1", SubDevice::Display, "hall");
    const std::string ref = std::to_string(house.host.device("[1").ref);
    house.devices.make_unit_device("[1", SubDevice::Display, "hall");
    EXPECT_THAT(house.host.log(), ElementsAre("zynVelora Debug: MakeDevice [1, Ref=-1",
                                              "zynVelora Debug: MakeDevice Created for hall",
                                              "zynVelora Debug: MakeDevice [1, Ref=" + ref));
}

}  // namespace
}  // namespace devices
