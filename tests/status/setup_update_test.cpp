#include "status/setup_update.h"

#include <algorithm>
#include <regex>

#include "status/status_house.h"

namespace status {
namespace {

using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

// One input of a page's form.
struct Input {
    std::string type;
    std::string name;
    std::string value;
    bool is_checked = false;

    friend bool operator==(const Input&, const Input&) = default;
};

std::vector<Input> inputs_of(const std::string& html) {
    static const std::regex pattern(
        "<input type='(text|checkbox|radio)'(?: size='\\d+')? name='(\\w+)' value='([^']*)'"
        "( checked)?");
    std::vector<Input> inputs;
    for (std::sregex_iterator match(html.begin(), html.end(), pattern), end; match != end;
         ++match) {
        inputs.push_back({(*match)[1], (*match)[2], (*match)[3], (*match)[4].matched});
    }
    return inputs;
}

// What a browser sends of them; of two with one name the first counts.
Fields sent(const std::vector<Input>& inputs) {
    Fields fields;
    for (const Input& input : inputs) {
        if (input.type == "text" || input.is_checked) {
            fields.try_emplace(input.name, input.value);
        }
    }
    return fields;
}

class SetupUpdateTest : public StatusHouse {
  protected:
    SetupUpdateTest() {
        state.ShowSetup = true;
        house.instance().XapHosted = true;  // its pages have a field more
    }

    // Takes the form into the dialog without "OK".
    void take(const Fields& fields) {
        const auto request = std::make_shared<StatusRequest>();
        request->form = fields;
        const Form form(house.instance(), request);
        SetupUpdate update(house.instance(), setup, form);
        update.UpdateVeloras();
        update.UpdateDefinitions();
        update.UpdatePower();
        update.UpdateScreen();
        update.UpdateSlideGroup();
        update.UpdateCID();
    }

    std::vector<Input> setup_inputs() {
        const std::string html = visit();
        return inputs_of(html.substr(html.find("Velora Units Setup")));
    }
};

TEST_F(SetupUpdateTest, EveryFieldOfThePageIsTakenBackAndShownAgain) {
    std::vector<Input> changed = setup_inputs();
    ASSERT_EQ(changed.size(), 201U);
    for (std::size_t i = 0; i < changed.size(); ++i) {
        Input& input = changed[i];
        if (input.type == "text") {
            input.value = "text " + std::to_string(i);
        } else if (input.type == "checkbox") {
            input.is_checked = !input.is_checked;
        } else {
            const bool is_last = i + 1 == changed.size() || changed[i + 1].name != input.name;
            input.is_checked = is_last;
        }
    }
    take(sent(changed));
    const std::vector<Input> shown = setup_inputs();
    // The rows without a unit have a name now, and so one field more.
    const auto shown_input = [&shown](const Input& input) {
        return std::ranges::count(shown, input) > 0;
    };
    std::vector<std::string> lost;
    for (const Input& input : changed) {
        if (!shown_input(input)) {
            lost.push_back(input.name);
        }
    }
    EXPECT_THAT(lost, testing::ElementsAre("SleepInterval", "FriendsLocation"));
    const std::string check_interval =
        std::ranges::find(changed, "SleepInterval", &Input::name)->value;
    EXPECT_EQ(setup.Text({"aDefaultPushPage"}), check_interval);
    EXPECT_EQ(setup.Text({"aSleepInterval"}), check_interval);
}

struct FieldRow {
    const char* field;
    dialogs::ControlId control;
};

TEST_F(SetupUpdateTest, FieldsWithNamesOfTheirOwnReachTheirControls) {
    const FieldRow kTexts[] = {
        {"HSIP", {"aHSIP"}},
        {"VoiceCB", {"aVoiceCB"}},
        {"LineNumber", {"aLineNumber"}},
        {"UpdateInterval", {"aUpdateInterval"}},
        {"Location8", {"aName", 8}},
        {"IP0", {"aIP", 0}},
        {"X10Server3", {"aX10Server", 3}},
        {"SlideASP14", {"aSlideASP", 14}},
        {"Dwell5", {"aDwell", 5}},
        {"FolderPathGroup2", {"aFolderPathGroup", 2}},
    };
    const FieldRow kTicks[] = {
        {"Menu", {"aMenu"}},
        {"CID8", {"aDoCID", 8}},
        {"Check1_18", {"Check1", 18}},
        {"bmp", {"abmp"}},
    };
    Fields fields{{"Option3", "2"}, {"TCPServerOption", "1"}, {"Option4", "7"}};
    for (const FieldRow& row : kTexts) {
        fields[row.field] = row.field;
    }
    for (const FieldRow& row : kTicks) {
        fields[row.field] = "1";
    }
    take(fields);
    for (const FieldRow& row : kTexts) {
        EXPECT_EQ(setup.Text(row.control), row.field);
    }
    for (const FieldRow& row : kTicks) {
        EXPECT_TRUE(setup.Value(row.control)) << row.field;
    }
    EXPECT_TRUE(setup.Value({"Option3", 2}));
    EXPECT_TRUE(setup.Value({"aTCPServerOption", 1}));
    for (std::size_t button = 0; button < 4; ++button) {
        EXPECT_FALSE(setup.Value({"Option4", button})) << "no button for such a choice";
    }
    EXPECT_THAT(deeds(), IsEmpty());
}

class WildTextTest : public SetupUpdateTest,
                     public testing::WithParamInterface<std::pair<const char*, std::string>> {};

INSTANTIATE_TEST_SUITE_P(
    Every, WildTextTest,
    testing::Values(std::pair("Quotes", std::string(R"(it's "so" <b>&amp;</b> ,;=~1[])")),
                    std::pair("Nul", std::string("a\0b", 3)),
                    std::pair("LineEnds", std::string("a\r\nServerPort=1\n[STATUS]")),
                    std::pair("Long", std::string(70'000, 'x')),
                    std::pair("Letters", std::string("\xE9\xDF\x80&#28450;\xFF\x81")),
                    std::pair("Blanks", std::string("   "))),
    [](const auto& row) { return row.param.first; });

// Whatever is sent: the page comes, and the settings hold one line for each key as before.
TEST_P(WildTextTest, InEveryFieldHarmsNothing) {
    state.ShowReceiveMessages = state.ShowControl = state.FiltersOnPage = true;
    setting("Kept", "as it is");
    setting("PhJukeCommandPort", "8024");
    Fields fields = sent(setup_inputs());
    for (const char* name : {"Save", "ShowSetup", "ShowStatus", "Source0", "Class0", "FilterTag0",
                             "FilterEvent0", "clientvalue"}) {
        fields.emplace(name, "");
    }
    for (auto& [name, value] : fields) {
        value = GetParam().second;
    }
    protect();
    EXPECT_THAT(post(fields), EndsWith("</html>"));
    EXPECT_THAT(visit(), EndsWith("</html>"));
    house.instance().platform().protection = {};
    post(fields);
    EXPECT_THAT(post(fields), EndsWith("</html>"));
    EXPECT_EQ(stored("Kept"), "as it is");
    EXPECT_EQ(stored("PhJukeCommandPort"), "\"8024\"");
    static_cast<void>(deeds());
}

}  // namespace
}  // namespace status
