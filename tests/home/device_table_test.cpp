#include "home/device_table.h"

#include <gtest/gtest.h>

namespace home {
namespace {

void set_code(host::Device& device, const std::string& house, const std::string& number) {
    host::DeviceFields fields = device.fields();
    fields.hc = house;
    fields.dc = number;
    device.set_fields(fields);
}

TEST(DeviceTable, OlderGenerationCountsPlaces) {
    DeviceTable table;
    EXPECT_EQ(table.NewDevice("lamp", "A1"), 1);
    EXPECT_EQ(table.NewDevice("Velora Display"), 2);
    EXPECT_EQ(table.NewDevice("hall", "B12"), 3);
    set_code(*table.GetDevice(2), "[", "11");
    EXPECT_EQ(table.DeviceExists("[11"), 2);
    EXPECT_EQ(table.DeviceExists("[1"), -1);
    EXPECT_EQ(table.GetDevice(0), nullptr);
    EXPECT_EQ(table.GetDevice(4), nullptr);

    const host::DeviceRef ref = table.GetDevice(1)->ref();
    table.DeleteDevice(ref);
    table.DeleteDevice(ref);
    EXPECT_EQ(table.DeviceCount(), 2);
    EXPECT_EQ(table.DeviceExists("[11"), 1) << "places move up";
    EXPECT_EQ(table.GetDevice(2)->fields().name, "hall");
}

TEST(DeviceTable, NewerGenerationKeepsReferences) {
    DeviceTable table;
    const host::DeviceRef first = table.NewDeviceRef("first");
    const host::DeviceRef second = table.NewDeviceRef("second");
    EXPECT_EQ(table.DeviceExistsRef(""), -1) << "a device without a code";
    set_code(*table.GetDeviceByRef(second), "[", "12");
    table.DeleteDevice(first);
    EXPECT_EQ(table.DeviceExistsRef("[12"), second);
    EXPECT_EQ(table.GetDeviceByRef(second)->ref(), second);
    EXPECT_EQ(table.GetDeviceByRef(first), nullptr);
    EXPECT_EQ(table.GetDeviceByRef(1), nullptr) << "a place is no reference";
    EXPECT_NE(table.NewDeviceRef("third"), first) << "never given twice";
}

TEST(DeviceTable, ADeviceOutlivesItsDeletion) {
    DeviceTable table;
    const auto device = table.GetDeviceByRef(table.NewDeviceRef("gone"));
    table.DeleteDevice(device->ref());
    set_code(*device, "A", "1");
    EXPECT_EQ(device->fields().name, "gone");
    EXPECT_EQ(table.DeviceExistsRef("A1"), -1);
}

TEST(DeviceTable, AWalkTellsWhenDevicesComeAndGo) {
    DeviceTable table;
    table.NewDeviceRef("a");
    const host::DeviceRef second = table.NewDeviceRef("b");
    const auto walk = table.GetDeviceEnumerator();
    EXPECT_EQ(walk->GetNext()->fields().name, "a");
    EXPECT_FALSE(walk->CountChanged());
    table.DeleteDevice(second);
    table.NewDeviceRef("c");
    EXPECT_TRUE(walk->CountChanged()) << "also when the count is the same again";
    EXPECT_EQ(walk->GetNext()->fields().name, "c");
    EXPECT_TRUE(walk->Finished());
    EXPECT_EQ(walk->GetNext(), nullptr);
}

TEST(DeviceTable, StateGoesByCode) {
    using namespace std::chrono_literals;
    DeviceTable table;
    table.NewDevice("lamp", "A1");
    EXPECT_EQ(table.DeviceStatus("A1"), host::kStatusUnknown);
    const automation::DateTime when{5min};
    for (const char* code : {"A1", "A2"}) {
        table.SetDeviceStatus(code, host::kStatusOn);
        table.SetDeviceValue(code, 4);
        table.SetDeviceString(code, "Awake");
        table.SetDeviceLastChange(code, when);
    }
    EXPECT_EQ(table.DeviceStatus("A1"), 2);
    EXPECT_EQ(table.DeviceValue("A1"), 4);
    EXPECT_EQ(table.DeviceString("A1"), "Awake");
    EXPECT_EQ(table.snapshot().front().last_change, when);
    EXPECT_EQ(table.DeviceStatus("A2"), 0);
    EXPECT_EQ(table.DeviceValue("A2"), 0);
    EXPECT_EQ(table.DeviceString("A2"), "");
    table.SetDeviceStatusNoReport("A1", host::kStatusOff, 0);
    EXPECT_EQ(table.DeviceStatus("A1"), 3);
    EXPECT_EQ(table.DeviceValue("A1"), 0);
}

TEST(DeviceTable, TheLastSilentCollectionCounts) {
    DeviceTable table;
    table.SetSilentDeviceCollection({{"[", 10}});
    table.SetSilentDeviceCollection({{"[", 20}, {"[", 30}});
    EXPECT_FALSE(table.is_silent("[10"));
    EXPECT_TRUE(table.is_silent("[30"));
}

}  // namespace
}  // namespace home
