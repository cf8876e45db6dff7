#include "status/client_requests.h"

#include "appliance/velora.h"
#include "status/status_house.h"

namespace status {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class ClientRequestTest : public StatusHouse {
  protected:
    ClientRequestTest() { state.ShowControl = true; }

    std::vector<std::string> deeds_of(const Fields& fields) {
        post(fields);
        return deeds();
    }

    [[nodiscard]] std::string sorting() const {
        return state.StatusSortKey + " " + state.StatusSortDirection;
    }

    static std::string part(const std::string& html, std::string_view from, std::string_view to) {
        const std::size_t begin = html.find(from);
        return html.substr(begin, html.find(to, begin) - begin);
    }
};

TEST_F(ClientRequestTest, SecondClickOnTheSameColumnTurnsTheOrder) {
    const std::vector<std::pair<Fields, std::string>> clicks{
        {{{"Name", "Name"}}, "NAME "},
        {{{"Name", "Name"}}, "NAME DESC"},
        {{{"Name", "Name"}}, "NAME "},
        {{{"Name", "Name"}}, "NAME DESC"},
        {{{"Status", "Status"}}, "STATUS "},
        {{{"Name", "Name"}}, "NAME "},
        {{{"ID", "ID"}}, "DCSORT "},
        {{{"ID", "ID"}}, "DCSORT DESC"},
        {{{"UID", "ID"}}, "DCSORT DESC"},
        {{{"Refresh", "Control / Refresh"}, {"ID", "ID"}}, "DCSORT DESC"},
        {{{"Changed", "Changed"}}, "CHANGED "},
    };
    for (const auto& [fields, expected] : clicks) {
        post(fields);
        EXPECT_EQ(sorting(), expected);
    }
    EXPECT_EQ(stored("StatusSortKey", "STATUS"), "\"Changed\"");
    EXPECT_EQ(stored("StatusSortDirection", "STATUS"), "\"\"");
}

TEST_F(ClientRequestTest, SortingSurvivesARestartAndABrokenKeyFallsBack) {
    setting("StatusSortKey", "\"name\"", "STATUS");
    setting("StatusSortDirection", "desc", "STATUS");
    visit();
    EXPECT_EQ(sorting(), "NAME DESC");
    post({{"Status", "Status"}});
    setting("StatusSortKey", "bogus", "STATUS");
    setting("StatusSortDirection", "upwards", "STATUS");
    visit();
    EXPECT_EQ(sorting(), "STATUS ");
    state.LastSortKey = "bogus, too";
    visit();
    EXPECT_EQ(sorting(), "DCSORT ");
    EXPECT_EQ(state.LastSortKey, "DCSort");
}

struct ControlRow {
    const char* name;
    const char* control;
    const char* value;
    std::vector<std::string> deeds;
};

TEST_F(ClientRequestTest, PulldownSetsADevice) {
    const std::vector<ControlRow> rows{
        {"a word of the device", "V5B4", "Turn On Top LED", {"value [4=1", "command [,4,19,1"}},
        {"in any case", "V5B4", "bLINK top led", {"value [4=2", "command [,4,19,2"}},
        {"the first that holds it", "V5B2", "Awaken", {"value [2=1", "command [,2,19,1"}},
        {"a part of a word", "V5B2", "forever", {"value [2=2", "command [,2,19,2"}},
        {"the blank choice", "V5B4", "", {"value [4=0", "command [,4,19,0"}},
        {"a word of another device", "V5B4", "Awaken", {}},
        {"a device without values", "V5B10", "On Off", {}},
        {"no device", "V5B77", "Awaken", {}},
        {"the power line", "V411", "Off", {"x10 A1 OFF"}},
        {"its other word", "V411", "on", {"x10 A1 ON"}},
        {"no control", "yes", "yes", {}},
        {"nothing that could be one", "\xE9", "\x01", {}},
    };
    for (const ControlRow& row : rows) {
        EXPECT_EQ(deeds_of({{"clientinput", row.control}, {"clientvalue", row.value}}), row.deeds)
            << row.name;
    }
    state.ShowControl = false;
    EXPECT_THAT(deeds_of({{"clientinput", "V411"}, {"clientvalue", "ON"}}), IsEmpty());
}

TEST_F(ClientRequestTest, XapSwitchesByTheUnitOfTheDevice) {
    house.instance().XapHosted = true;
    EXPECT_THAT(deeds_of({{"clientinput", "V411"}, {"clientvalue", "off"}}),
                ElementsAre(testing::StartsWith("xap xap-x10.request device\1A1")));
    EXPECT_THAT(deeds_of({{"clientinput", "V441"}, {"clientvalue", "off"}}), IsEmpty());
}

// The base is counted in steps of one where blocks have ten numbers: kept.
TEST_F(ClientRequestTest, ClearForgetsTheQueueOfTheFirstUnitAlone) {
    for (const char* name : {"Hall", "Den"}) {
        house.unit(name).goes_silent();
        for (int i = 0; i < 3; ++i) {
            house.velora(name).SetTopLED("on", "");
        }
    }
    const auto waiting = [this](const char* name) {
        return house.velora(name).queue().waiting_commands().size();
    };
    ASSERT_EQ(house.velora("Den").DeviceCodeBase(), "[11");
    post({{"clientinput", "V5B20"}, {"clientvalue", "Clear"}});
    EXPECT_EQ(waiting("Den"), 2U);
    EXPECT_EQ(waiting("Hall"), 2U);
    post({{"clientinput", "V5B10"}, {"clientvalue", "Clear"}});
    EXPECT_EQ(waiting("Den"), 2U);
    EXPECT_EQ(waiting("Hall"), 0U);
}

TEST_F(ClientRequestTest, ButtonsAtTheFootReadTheScriptAndAskTheUnits) {
    house.machine().files.put(house.host().GetAppPath() + "\\Scripts\\zynVelora.txt",
                              "Sub Main(tag)\r\nEnd Sub\r\n");
    EXPECT_THAT(deeds_of({{"query", "Query Velora"}, {"script", "Read Script"}}), IsEmpty());
    EXPECT_TRUE(user_script.is_loaded());
    house.instance().XapHosted = true;
    EXPECT_THAT(deeds_of({{"query", "Query Velora"}}), Contains(HasSubstr("xap xAPBSC.")));
    state.ShowSetup = true;
    post({{"script", "Read Script"}});
    EXPECT_EQ(reloads, 0) << "neither saves";
}

TEST_F(ClientRequestTest, SaveTakesTheOptionsOfThePage) {
    state = {};
    post({{"Save", "Save Setup Changes"},
          {"ShowControl", "1"},
          {"ShowReceiveDetail", "1"},
          {"ShowStatus", "1 of 3"}});
    std::vector<std::string> saved;
    for (const char* key :
         {"ShowControl", "ShowSetup", "ShowReceiveMessages", "ShowReceiveDetail", "ShowStatus"}) {
        saved.push_back(stored(key, "STATUS"));
    }
    EXPECT_THAT(saved, ElementsAre("True", "False", "False", "True", "1"));
    StatusState reread;
    reread.load(house.instance());
    EXPECT_TRUE(reread.ShowControl && reread.ShowReceiveDetail);
    EXPECT_FALSE(reread.ShowSetup || reread.ShowReceiveMessages);
    EXPECT_EQ(reread.ShowStatus, 1);
}

TEST_F(ClientRequestTest, ShowsAsTheSettingsSayAtTheStart) {
    state.load(house.instance());
    EXPECT_TRUE(!state.ShowControl && state.ShowSetup && state.ShowReceiveMessages &&
                state.ShowReceiveDetail);
    for (const auto& [text, value] :
         {std::pair("\"1\"", 1), {"many", 2}, {"99999", 2}, {"-1", 2}, {"0", 0}}) {
        setting("ShowStatus", text, "STATUS");
        state.load(house.instance());
        EXPECT_EQ(state.ShowStatus, value) << text;
    }
}

TEST_F(ClientRequestTest, AnErrorEndsTheRequestAndThePageComes) {
    state.FiltersOnPage = true;
    const std::string html = post({{"Save", "Save"}, {"ShowStatus", "40000"}});
    EXPECT_THAT(deeds(), ElementsAre(HasSubstr("Status ClientRequest ")));
    EXPECT_EQ(stored("ShowStatus", "STATUS"), "(none)");
    EXPECT_THAT(html, testing::EndsWith("</html>"));
}

TEST_F(ClientRequestTest, SaveWithoutSetupOnThePageLeavesTheSetupAlone) {
    setup.Load();
    setup.set_Text({"aServerPort"}, "1234");
    post({{"Save", "Save"}, {"ShowSetup", "1"}, {"ServerPort", "99"}});
    EXPECT_EQ(reloads, 0);
    EXPECT_EQ(stored("ServerPort"), "(none)");
    EXPECT_EQ(setup.Text({"aServerPort"}), "1234");
    post({{"Save", "Save"}, {"ShowSetup", "1"}, {"ServerPort", "99"}});
    EXPECT_EQ(reloads, 1);
    EXPECT_EQ(stored("ServerPort"), "\"99\"");
}

// A setup that nobody has opened since the start still has all that the page does not show.
TEST_F(ClientRequestTest, SaveKeepsWhatThePageDoesNotShow) {
    state.ShowSetup = true;
    setting("PhJukeCommandPort", "8024");
    setting("FriendsLocation", "C:\\Friends\\");
    post({{"Save", "Save"}, {"ShowSetup", "1"}, {"FriendsLocation", "elsewhere"}});
    EXPECT_EQ(stored("PhJukeCommandPort"), "\"8024\"");
    EXPECT_EQ(stored("FriendsLocation"), "C:\\Friends\\");
}

TEST_F(ClientRequestTest, FiltersAreSavedFromAPageThatHadThem) {
    const Fields form{
        {"Save", "Save"},         {"ShowControl", "1"},     {"ShowReceiveMessages", "1"},
        {"Source0", "acme.lamp"}, {"Class0", "lamp.state"}, {"FilterTag0", "my lamp"},
        {"FilterEvent0", "1"}};
    post(form);
    EXPECT_EQ(filters.FilterDictionary().size(), 0U);
    post(form);
    EXPECT_EQ(stored("acme.lamp~lamp.state", "Received"), "my_lamp;1");
    post({{"Save", "Save"}, {"ShowControl", "1"}});
    EXPECT_EQ(filters.FilterDictionary().size(), 0U) << "a row without source and class goes";
    EXPECT_EQ(stored("acme.lamp~lamp.state", "Received"), "(none)");
}

// The host's own server has its form as an object; the embedded one has it as a method.
class HostForm final : public automation::TableObject {
  public:
    [[nodiscard]] std::string item(const std::string& key) const { return "item " + key; }

    [[nodiscard]] std::string type_name() const override { return "Form"; }

    [[nodiscard]] std::span<const automation::Member> members() const override {
        static constexpr auto kMembers =
            std::to_array<automation::Member>({automation::method<&HostForm::item>("item", "key")});
        return kMembers;
    }
};

class HostRequest final : public automation::TableObject {
  public:
    [[nodiscard]] std::shared_ptr<automation::Object> form() const {
        return std::make_shared<HostForm>();
    }

    [[nodiscard]] std::string type_name() const override { return "Request"; }

    [[nodiscard]] std::span<const automation::Member> members() const override {
        static constexpr auto kMembers =
            std::to_array<automation::Member>({automation::property<&HostRequest::form>("Form")});
        return kMembers;
    }
};

TEST_F(ClientRequestTest, FormsOfBothServersAreRead) {
    const auto own = std::make_shared<StatusRequest>();
    own->form = {{"key", "value"}};
    EXPECT_EQ(Form(house.instance(), own).text("key"), "value");
    house.settings().UseOwnServer = false;
    EXPECT_EQ(Form(house.instance(), own).text("key"), "value");
    EXPECT_EQ(Form(house.instance(), std::make_shared<HostRequest>()).text("key"), "item key");
    EXPECT_THAT(page.StatusPage(nullptr, nullptr), IsEmpty());
    EXPECT_THAT(deeds(), Contains(HasSubstr("Status_ASP: ")));
}

}  // namespace
}  // namespace status
