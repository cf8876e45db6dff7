#include "home/device_table.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "home/sqlite/home_database.h"
#include "home/sqlite/sqlite_device_store.h"
#include "home/temporary_folder.h"

namespace home {
namespace {

// The table in memory alone and the one with a store behind it keep the same contract.
enum class Kind : std::uint8_t { Memory, Stored };

class DeviceTableTest : public testing::TestWithParam<Kind> {
  protected:
    DeviceTableTest() {
        if (GetParam() == Kind::Memory) {
            table_.emplace();
            return;
        }
        database_.emplace(open_home_database(folder_.path() / "home.db"));
        store_.emplace(*database_);
        table_.emplace(*store_);
    }

  private:
    TemporaryFolder folder_;
    std::optional<Database> database_;
    std::optional<SqliteDeviceStore> store_;
    std::optional<DeviceTable> table_;

  protected:
    DeviceTable& table = *table_;
};

INSTANTIATE_TEST_SUITE_P(All, DeviceTableTest, testing::Values(Kind::Memory, Kind::Stored),
                         [](const auto& kind) {
                             return kind.param == Kind::Memory ? "Memory" : "Stored";
                         });

void set_code(host::Device& device, const std::string& house, const std::string& number) {
    host::DeviceFields fields = device.fields();
    fields.hc = house;
    fields.dc = number;
    device.set_fields(fields);
}

TEST_P(DeviceTableTest, OlderGenerationCountsPlaces) {
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

TEST_P(DeviceTableTest, NewerGenerationKeepsReferences) {
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

TEST_P(DeviceTableTest, ADeviceOutlivesItsDeletion) {
    const auto device = table.GetDeviceByRef(table.NewDeviceRef("gone"));
    table.DeleteDevice(device->ref());
    set_code(*device, "A", "1");
    EXPECT_EQ(device->fields().name, "gone");
    EXPECT_EQ(table.DeviceExistsRef("A1"), -1);
}

TEST_P(DeviceTableTest, AWalkTellsWhenDevicesComeAndGo) {
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

TEST_P(DeviceTableTest, StateGoesByCode) {
    using namespace std::chrono_literals;
    table.NewDevice("lamp", "A1");
    EXPECT_EQ(table.DeviceStatus("A1"), host::kStatusUnknown);
    EXPECT_EQ(table.DeviceLastChange("A1"), host::kNeverChanged);
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
    EXPECT_EQ(table.DeviceLastChange("A1"), when);
    EXPECT_EQ(table.DeviceLastChange("A2"), host::kNeverChanged);
    EXPECT_EQ(table.DeviceStatus("A2"), 0);
    EXPECT_EQ(table.DeviceValue("A2"), 0);
    EXPECT_EQ(table.DeviceString("A2"), "");
    table.SetDeviceStatusNoReport("A1", host::kStatusOff, 0);
    EXPECT_EQ(table.DeviceStatus("A1"), 3);
    EXPECT_EQ(table.DeviceValue("A1"), 0);
}

TEST_P(DeviceTableTest, TheLastSilentCollectionCounts) {
    table.SetSilentDeviceCollection({{"[", 10}});
    table.SetSilentDeviceCollection({{"[", 20}, {"[", 30}});
    EXPECT_FALSE(table.is_silent("[10"));
    EXPECT_TRUE(table.is_silent("[30"));
}

TEST_P(DeviceTableTest, AWalkThatStartsAnewSeesEveryDevice) {
    std::vector<host::DeviceRef> refs;
    for (const char* name : {"a", "b", "c", "d"}) {
        refs.push_back(table.NewDeviceRef(name));
    }
    std::vector<std::string> seen;
    bool changed = false;
    auto walk = table.GetDeviceEnumerator();
    while (!walk->Finished()) {
        seen.push_back(walk->GetNext()->fields().name);
        if (!changed && seen.back() == "c") {
            changed = true;
            table.DeleteDevice(refs[0]);
            table.DeleteDevice(refs[3]);
            table.NewDeviceRef("e");
        }
        if (walk->CountChanged()) {
            seen.clear();
            walk = table.GetDeviceEnumerator();
        }
    }
    EXPECT_EQ(seen, (std::vector<std::string>{"b", "c", "e"}));
}

TEST_P(DeviceTableTest, FollowersHearOfWhatBecomesOther) {
    table.NewDevice("lamp", "A1");
    table.NewDevice("silent", "A2");
    table.SetSilentDeviceCollection({{"A", 2}});
    std::vector<std::string> heard;
    const Subscription follower = table.follow([&](const DeviceChange& change) {
        heard.push_back(change.device.code() +
                        (change.part == DevicePart::Status ? " status " : " value ") +
                        std::to_string(change.part == DevicePart::Status ? change.device.status
                                                                         : change.device.value));
    });
    for (const char* code : {"A1", "A1", "A2", "A3"}) {
        table.SetDeviceStatus(code, host::kStatusOn);
        table.SetDeviceValue(code, 7);
        table.SetDeviceString(code, "text");
    }
    table.SetDeviceStatusNoReport("A1", host::kStatusOff, 9);
    table.set_value("A1", 10, {});
    EXPECT_EQ(heard, (std::vector<std::string>{"A1 status 2", "A1 value 7", "A1 value 10"}));
}

}  // namespace
}  // namespace home
