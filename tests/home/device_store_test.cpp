#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "automation/run_time_error.h"
#include "home/device_table.h"
#include "home/sqlite/home_database.h"
#include "home/sqlite/sqlite_device_store.h"
#include "home/temporary_folder.h"

namespace home {
namespace {

using automation::RunTimeError;
using testing::HasSubstr;

std::string every_byte() {
    std::string text;
    for (int byte = 0; byte < 256; ++byte) {
        text += static_cast<char>(byte);
    }
    return text;
}

// What a text of the table says of a device, for comparison.
std::string all_of(const DeviceRecord& device) {
    const host::DeviceFields& fields = device.fields;
    std::string text = std::to_string(device.ref);
    for (const std::string& part :
         {fields.name, fields.hc, fields.dc, fields.location, fields.dev_type_string,
          fields.interface_name, fields.iomisc, fields.values, fields.buttons, device.text}) {
        text += "|" + part;
    }
    for (const std::int32_t number : {fields.misc, fields.iotype, device.status, device.value}) {
        text += "|" + std::to_string(number);
    }
    return text + "|" +
           (device.last_change ? std::to_string(device.last_change->time_since_epoch().count())
                               : "never");
}

// A home's database with the table on top of it, which can be opened anew.
class Opened {
  public:
    explicit Opened(const std::filesystem::path& file)
        : database(open_home_database(file)), store(database), table(store) {}

    Database database;
    SqliteDeviceStore store;
    DeviceTable table;
};

class DeviceStoreTest : public testing::Test {
  protected:
    template <typename Step>
    void expect_error(int number, Step step) {
        try {
            step();
            ADD_FAILURE() << "no error";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), number) << error.description();
            EXPECT_THAT(error.description(), HasSubstr(file_.string()));
        }
    }

    TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "home.db";
};

TEST_F(DeviceStoreTest, EveryDeviceComesBackWhole) {
    using namespace std::chrono_literals;
    std::vector<std::string> before;
    {
        Opened home(file_);
        const host::DeviceRef ref = home.table.NewDeviceRef("M\xFCller");
        home.table.GetDeviceByRef(ref)->set_fields({.name = every_byte(),
                                                    .hc = "[",
                                                    .dc = "11",
                                                    .location = "K\xFC"
                                                                "che",
                                                    .dev_type_string = "Velora",
                                                    .interface_name = "zynVelora",
                                                    .iomisc = "misc",
                                                    .misc = 32816,
                                                    .iotype = -2147483647 - 1,
                                                    .values = "Off\2"
                                                              "0\1On\2"
                                                              "1",
                                                    .buttons = "zynVelora\2On @ Kitchen Velora"});
        home.table.NewDevice("plain", "A1");
        home.table.SetDeviceString("[11", every_byte());
        home.table.SetDeviceStatus("[11", 3);
        home.table.SetDeviceValue("[11", -5);
        home.table.SetDeviceLastChange("[11", automation::DateTime(-86'400'001ms));
        for (const DeviceRecord& device : home.table.snapshot()) {
            before.push_back(all_of(device));
        }
    }
    Opened home(file_);
    std::vector<std::string> after;
    for (const DeviceRecord& device : home.table.snapshot()) {
        after.push_back(all_of(device));
    }
    EXPECT_EQ(after, before);
}

TEST_F(DeviceStoreTest, AReferenceIsNeverGivenTwice) {
    host::DeviceRef last = host::kNoDevice;
    for (int start = 0; start < 3; ++start) {
        Opened home(file_);
        const host::DeviceRef ref = home.table.NewDeviceRef("short-lived");
        EXPECT_GT(ref, last);
        home.table.DeleteDevice(ref);
        last = ref;
    }
    EXPECT_EQ(Opened(file_).table.DeviceCount(), 0);
}

TEST_F(DeviceStoreTest, AChangeIsOnDiskWhenTheCallReturns) {
    Opened home(file_);
    home.table.NewDevice("lamp", "A1");
    home.table.SetDeviceString("A1", "Awake");
    Opened reader(file_);  // as another process sees it
    EXPECT_EQ(reader.table.DeviceString("A1"), "Awake");
}

TEST_F(DeviceStoreTest, ARefusedChangeLeavesMemoryAndFileAsTheyWere) {
    struct Case {
        const char* name;
        const char* refuse;  // on the table's own connection
        int number;
    };

    for (const Case& c : {Case{"full", "PRAGMA max_page_count=1", 61},
                          Case{"read-only", "PRAGMA query_only=ON", 70}}) {
        SCOPED_TRACE(c.name);
        std::filesystem::remove(file_);
        Opened home(file_);
        home.table.NewDevice("lamp", "A1");
        home.table.SetDeviceString("A1", "kept");
        home.database.execute(c.refuse);
        const std::string large(100'000, 'x');
        expect_error(c.number, [&] { home.table.SetDeviceString("A1", large); });
        expect_error(c.number, [&] { home.table.NewDeviceRef(large); });
        EXPECT_EQ(home.table.DeviceString("A1"), "kept");
        EXPECT_EQ(home.table.DeviceCount(), 1);
        home.database.execute("PRAGMA query_only=OFF; PRAGMA max_page_count=100000");
        home.table.SetDeviceString("A1", "again");
        EXPECT_EQ(Opened(file_).table.DeviceString("A1"), "again");
    }
}

TEST_F(DeviceStoreTest, AFileThatAnotherProgramHoldsIsAnErrorAndPasses) {
    Opened home(file_);
    home.table.NewDevice("lamp", "A1");
    {
        Database other(file_);
        other.execute("BEGIN IMMEDIATE");
        expect_error(70, [&] { home.table.SetDeviceStatus("A1", 2); });
        expect_error(70, [&] { home.table.DeleteDevice(home.table.snapshot()[0].ref); });
    }
    EXPECT_EQ(home.table.DeviceStatus("A1"), host::kStatusUnknown);
    home.table.SetDeviceStatus("A1", 2);
    EXPECT_EQ(Opened(file_).table.DeviceStatus("A1"), 2);
}

class UnusableFileTest : public DeviceStoreTest {
  protected:
    void fill() {
        Opened home(file_);
        for (int i = 1; i < 200; ++i) {
            home.table.NewDevice("lamp", "A" + std::to_string(i));
            home.table.SetDeviceString("A" + std::to_string(i), std::string(300, 'x'));
        }
    }
};

TEST_F(UnusableFileTest, SaysWhatIsWrongAndChangesNothing) {
    struct Case {
        const char* name;
        std::function<void()> spoil;
        const char* text;
    };

    const std::vector<Case> cases{
        {"garbage", [&] { folder_.write("home.db", std::string(9000, 'x')); }, "not a database"},
        {"torn off",
         [&] {
             fill();
             std::filesystem::resize_file(file_, std::filesystem::file_size(file_) / 2);
         },
         "malformed"},
        {"overwritten in the middle",
         [&] {
             fill();
             std::string bytes = folder_.read("home.db");
             bytes.replace(4096, 8192, std::string(8192, '\xA5'));
             folder_.write("home.db", bytes);
         },
         "damaged"},
        {"newer",
         [&] {
             fill();
             Database(file_).execute("PRAGMA user_version=7");
         },
         "newer version of this program (schema 7; this one knows 1)"},
        {"foreign", [&] { Database(file_).execute("CREATE TABLE notes(x)"); },
         "made by another program"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::filesystem::remove(file_);
        c.spoil();
        const std::string before = folder_.read("home.db");
        try {
            const Database database = open_home_database(file_);
            ADD_FAILURE() << "opened";
        } catch (const RunTimeError& error) {
            EXPECT_THAT(error.description(),
                        testing::AllOf(HasSubstr(file_.string()), HasSubstr(c.text)));
        }
        EXPECT_TRUE(folder_.read("home.db") == before);
    }
}

TEST_F(UnusableFileTest, AnEmptyFileBecomesAHome) {
    folder_.write("home.db", "");
    EXPECT_EQ(Opened(file_).table.DeviceCount(), 0);
}

}  // namespace
}  // namespace home
