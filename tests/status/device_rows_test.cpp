#include "status/device_rows.h"

#include <chrono>

#include "status/control_name.h"
#include "status/status_house.h"

namespace status {
namespace {

using namespace std::chrono_literals;
using automation::DateTime;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr DateTime kToday{
    std::chrono::local_days{std::chrono::year{2026} / std::chrono::November / 24}};

// The codes of a page's controls, in the order of its rows.
std::vector<std::string> shown_codes(const std::string& html) {
    constexpr std::string_view kMark = "onChange='ClearSubmit(this);' name='";
    std::vector<std::string> codes;
    for (std::size_t at = html.find(kMark); at != std::string::npos; at = html.find(kMark, at)) {
        at += kMark.size();
        codes.push_back(device_of_control(html.substr(at, html.find('\'', at) - at)));
    }
    return codes;
}

TEST(FormatChanged, CountsDaysFromMidnight) {
    const std::vector<std::pair<DateTime, std::string>> rows{
        {kToday + 24h, "Today 12:00:00 AM"},           {kToday, "Today 12:00:00 AM"},
        {kToday - 1ms, "Yesterday 11:59:59 PM"},       {kToday - 24h, "Yesterday 12:00:00 AM"},
        {kToday - 24h - 1s, "11/22/2026 11:59:59 PM"}, {host::kNeverChanged, "12:00:00 AM"},
    };
    for (const auto& [date, text] : rows) {
        EXPECT_EQ(FormatChanged(date, kToday), text);
    }
}

TEST(ControlName, HoldsAnyLetterAndComesBack) {
    const std::vector<std::pair<std::string, std::string>> rows{{"[12", "V5B12"},
                                                                {"A1", "V411"},
                                                                {"\xFF"
                                                                 "7",
                                                                 "VFF7"},
                                                                {"\x05"
                                                                 "7",
                                                                 "V057"}};
    for (const auto& [code, name] : rows) {
        EXPECT_EQ(control_name(code), name);
        EXPECT_EQ(device_of_control(name), code);
    }
    const std::vector<std::pair<std::string, std::string>> others{{"yes", "\x0E"},
                                                                  {"", std::string(1, '\0')},
                                                                  {"V", std::string(1, '\0')},
                                                                  {"VXX1", std::string("\0"
                                                                                       "1",
                                                                                       2)},
                                                                  {"V5b9", "[9"}};
    for (const auto& [name, code] : others) {
        EXPECT_EQ(device_of_control(name), code) << name;
    }
}

class DeviceRowsTest : public StatusHouse {
  protected:
    std::vector<std::string> codes_by(std::string_view order) {
        DeviceRecordset recordset;
        for (const char* code : {"A2", "[3", "A10", "A123", "A1"}) {
            page.devices().AddDeviceRow(code, "", names.at(code), recordset, true);
        }
        recordset.Sort(order);
        std::vector<std::string> codes;
        for (const DeviceRow& row : recordset) {
            codes.push_back(row.DC);
        }
        return codes;
    }

    std::map<std::string, std::string> names{
        {"A2", "beta"}, {"[3", "Alpha"}, {"A10", "gamma"}, {"A123", "BETA"}, {"A1", "Delta"}};
};

TEST_F(DeviceRowsTest, SortByEachFieldBothWaysWithoutRegardToCase) {
    for (const char* code : {"A2", "A10", "A123"}) {
        house.host().put_device(code);
    }
    house.host().SetDeviceString("A10", "awake");
    house.host().SetDeviceString("A2", "Blink");
    house.host().SetDeviceLastChange("A123", kToday);
    house.host().SetDeviceLastChange("A2", kToday - 1s);
    const std::vector<std::pair<std::string, std::vector<std::string>>> rows{
        {"DCSORT", {"[3", "A1", "A2", "A10", "A123"}},  // "A23" sorts in the place of A23
        {"DCSORT DESC", {"A123", "A10", "A2", "A1", "[3"}},
        {"NAME", {"[3", "A2", "A123", "A1", "A10"}},
        {"NAME DESC", {"A10", "A1", "A2", "A123", "[3"}},
        {"Changed", {"[3", "A10", "A1", "A2", "A123"}},
        {"Status DESC", {"A2", "A10", "[3", "A123", "A1"}},
    };
    for (const auto& [order, codes] : rows) {
        EXPECT_EQ(codes_by(order), codes) << order;
    }
}

TEST_F(DeviceRowsTest, TextsAreCutToTheirFields) {
    DeviceRecordset recordset;
    house.host().SetDeviceString("A1", std::string(300, 's'));
    page.devices().AddDeviceRow("A1", "", std::string(300, 'n'), recordset, true);
    EXPECT_EQ(recordset.begin()->Name.size(), 255U);
    EXPECT_EQ(recordset.begin()->Status.size(), 255U);
}

TEST_F(DeviceRowsTest, ShowWhatTheSettingsNameAndTheHostKnows) {
    state.ShowControl = true;
    house.host().remove_section("Velora Names");
    setting("1", "Hall,~11,a1,B1,1", "Velora Names");
    setting("2", "no devices", "Velora Names");
    setting("3", "no base,,A1", "Velora Names");
    setting("4", "with=sign,~111", "Velora Names");
    setting("5", ",~111", "Velora Names");
    setting("6", "", "Velora Names");
    house.host().put_device("a1");
    const std::string html = visit();
    EXPECT_THAT(shown_codes(html),
                ElementsAre("[1", "[2", "[3", "[4", "[5", "[6", "[7", "[8", "[9", "[10", "A1"));
    EXPECT_THAT(html, HasSubstr(">Hall Sounds Volume</td>"));
    EXPECT_THAT(html, HasSubstr(">CID</td>"));
    EXPECT_THAT(html, HasSubstr(">[10</td><td class=TABLEROW"));
    EXPECT_THAT(html, Not(HasSubstr("Motion</td>")));
    state.ShowControl = false;
    EXPECT_THAT(shown_codes(visit()), IsEmpty());
}

TEST_F(DeviceRowsTest, PulldownOffersTheDevicesButtons) {
    const auto device = [this](const char* code, const char* buttons) {
        house.host().put_device(code);
        const auto made = house.host_devices().device_with(code);
        host::DeviceFields fields = made->fields();
        fields.buttons = buttons;
        made->set_fields(fields);
    };
    device("C1",
           "p\x02"
           "Up @ hall Velora\x01"
           "p\x02"
           " Down \x01"
           "Plain@x\x01"
           "p\x02");
    device("C2", "no mark");
    device("[60", "");
    const std::vector<std::pair<std::string, std::string>> rows{
        {"C1",
         "<option value='Up'>Up</option><option value='Down'>Down</option>"
         "<option value='Plain'>Plain</option><option selected=''></option>"},
        {"C2", "<option value='OFF'>OFF</option><option value='ON'>ON</option>"},
        {"[60", "<option value='Clear'>Clear</option>"},
    };
    const PageText text = new_page();
    for (const auto& [code, options] : rows) {
        EXPECT_EQ(page.devices().ControlPulldown(text, code),
                  "<select class='formdropdown' onChange='ClearSubmit(this);' name='" +
                      control_name(code) + "' size='1'><option selected=' '></option>" + options +
                      "</select>");
    }
    EXPECT_EQ(page.devices().ControlPulldown(text, "D9"), "");
}

}  // namespace
}  // namespace status
