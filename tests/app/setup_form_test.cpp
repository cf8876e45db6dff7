#include "app/setup_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

namespace app {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Outcome = SetupForm::Outcome;

Json control(const std::string& page, const std::string& name, const std::string& kind) {
    return {{"page", page},
            {"name", name},
            {"index", 0},
            {"count", 1},
            {"kind", kind},
            {"setting", ""},
            {"group", ""},
            {"caption", name},
            {"text", ""},
            {"value", false},
            {"enabled", true},
            {"enabled_by", ""},
            {"choices", Json::array()}};
}

Json array_of(const std::string& page, const std::string& name, const std::string& kind,
              std::size_t count) {
    Json places = Json::array();
    for (std::size_t i = 0; i < count; ++i) {
        places.push_back(control(page, name, kind));
        places.back()["index"] = i;
        places.back()["count"] = count;
        places.back()["caption"] = name + std::to_string(i);
    }
    return places;
}

// Two pages of lines, one of units and one of slides.
Json small_setup() {
    Json controls = Json::array();
    const auto add = [&controls](const Json& places) {
        controls.insert(controls.end(), places.begin(), places.end());
    };
    controls.push_back(control("First", "aText", "text"));
    controls.back()["text"] = "caf\u00e9";
    controls.push_back(control("First", "aCheck", "check"));
    add(array_of("First", "aServer", "option", 2));
    controls.at(2)["value"] = true;
    controls.push_back(control("First", "aPort", "text"));
    controls.back()["enabled_by"] = "aServer";
    controls.push_back(control("Second page", "aVoice", "text"));
    controls.back()["text"] = "Mary";
    controls.back()["choices"] = {"Sam", "Tom"};
    add(array_of("Second page", "aSound", "check", 30));
    controls.push_back(control("Second page", "aPlay", "button"));
    add(array_of("Units", "aName", "text", 9));
    add(array_of("Units", "aIP", "text", 9));
    add(array_of("Units", "aDC", "label", 9));
    add(array_of("Units", "Option1", "option", 4));
    add(array_of("Slides", "aGroupSelect", "option", 3));
    add(array_of("Slides", "aSlideASP", "text", 15));
    add(array_of("Slides", "aDwell", "text", 15));
    return {{"labels", {"Version 1"}},
            {"pages", {"First", "Second page", "Units", "Slides"}},
            {"page", "First"},
            {"controls", controls}};
}

// A person at the form, who types "x", "Tab", "F2" and so on.
class SetupFormTest : public testing::Test {
  protected:
    Outcome type(const std::vector<std::string>& words) {
        Outcome outcome = Outcome::GoesOn;
        for (const std::string& word : words) {
            outcome = form_.press(press_of(word));
        }
        return outcome;
    }

    // The screen as lines; the focus stands between ">" and "<".
    std::string screen() {
        std::vector<std::string> rows(24, std::string(80, ' '));
        for (const Piece& piece : form_.picture().pieces) {
            std::string& row = rows.at(static_cast<std::size_t>(piece.row));
            row.replace(static_cast<std::size_t>(piece.column), piece.text.size(), piece.text);
            if (piece.look == Look::Focus && piece.column > 0 && piece.row > 1) {
                row.at(static_cast<std::size_t>(piece.column) - 1) = '>';
            }
        }
        std::string text;
        for (const std::string& row : rows) {
            text += row.substr(0, row.find_last_not_of(' ') + 1) + "\n";
        }
        return text;
    }

    std::string changes() { return form_.changes().dump(); }

    SetupForm form_{small_setup()};

  private:
    static KeyPress press_of(const std::string& word) {
        static const std::vector<std::pair<std::string, Key>> keys = {
            {"Tab", Key::Next},       {"BackTab", Key::Previous}, {"Up", Key::Up},
            {"Down", Key::Down},      {"Left", Key::Left},        {"Right", Key::Right},
            {"Home", Key::Home},      {"End", Key::End},          {"PgUp", Key::PageUp},
            {"PgDn", Key::PageDown},  {"Enter", Key::Enter},      {"Esc", Key::Escape},
            {"Back", Key::Backspace}, {"Del", Key::Delete},       {"Idle", Key::None},
        };
        const auto row = std::ranges::find(keys, word, &std::pair<std::string, Key>::first);
        if (row != keys.end()) {
            return {.key = row->second};
        }
        if (word.size() > 1 && word.front() == 'F') {
            return {.key = Key::Function, .number = std::stoi(word.substr(1))};
        }
        return {.key = Key::Character, .character = word};
    }
};

struct Row {
    std::vector<std::string> keys;
    std::string changes;
};

std::string one_change(const std::string& name, int index, const std::string& text) {
    return R"([{"name":")" + name + R"(","index":)" + std::to_string(index) + R"(,"text":")" +
           text + R"("}])";
}

TEST(SetupFormKeys, ChangeWhatTheyShould) {
    const std::vector<Row> rows = {
        {{"Tab", "Up", "Enter"}, "[]"},
        {{"s"}, one_change("aText", 0, "caf\u00e9s")},
        {{"Back", "e"}, one_change("aText", 0, "cafe")},
        {{"Home", "Del", "\u00e9"}, one_change("aText", 0, "\u00e9af\u00e9")},
        {{"Left", "Left", " ", "End", "!"}, one_change("aText", 0, "ca f\u00e9!")},
        {{"\u4e2d"}, one_change("aText", 0, "caf\u00e9?")},  // not in the code page
        {{"x", "Back"}, "[]"},
        {{"Home", "Back", "Left", "End", "Del", "Right"}, "[]"},
        {{"Down", " "}, one_change("aCheck", 0, "1")},
        {{"Down", "x", "Enter"}, "[]"},
        {{"Enter", "Enter", "Right"}, one_change("aServer", 1, "1")},
        {{"Enter", "Enter", " ", " "}, "[]"},
        {{"PgDn", "Right"}, one_change("aVoice", 0, "Sam")},
        {{"F2", "Left"}, one_change("aVoice", 0, "Tom")},
        {{"F2", "Tab", "Tab", " "}, one_change("aSound", 1, "1")},
        {{"F3", "Down", "h"}, one_change("aName", 1, "h")},
        {{"F3", "Tab", "h"}, one_change("aIP", 0, "h")},
        {{"F3", "Tab", "Tab", "Right"}, one_change("Option1", 0, "1")},
        {{"F3", "Tab", "Tab", "Left"}, one_change("Option1", 3, "1")},
        {{"F3", "Tab", "Down", "h"}, one_change("aIP", 1, "h")},
        {{"F9"}, "[]"},
    };
    for (const Row& row : rows) {
        struct Person : SetupFormTest {
            void TestBody() override {}

            std::string changes_after(const std::vector<std::string>& keys) {
                type(keys);
                return changes();
            }
        };

        Person person;
        EXPECT_EQ(person.changes_after(row.keys), row.changes) << testing::PrintToString(row.keys);
    }
}

TEST_F(SetupFormTest, ShowsOnePageWithItsHelp) {
    EXPECT_THAT(screen(), AllOf(HasSubstr(" Velora Setup   Version 1\n"), HasSubstr("Second page"),
                                HasSubstr("[ ] aCheck"), HasSubstr("(*) aServer0  ( ) aServer1"),
                                HasSubstr("[ OK ]  [ Cancel ]"), HasSubstr("Esc Cancel"),
                                Not(HasSubstr("aVoice"))));
    ASSERT_TRUE(form_.picture().cursor.has_value());
}

TEST_F(SetupFormTest, ThePortTakesTheFocusOnlyWithTheOwnServer) {
    type({"Tab", "Tab", "Tab", "8"});
    EXPECT_EQ(changes(), one_change("aPort", 0, "8"));
    type({"Up", "Right", "Tab"});
    EXPECT_THAT(screen(), HasSubstr(">[ OK ]"));
}

TEST_F(SetupFormTest, ButtonsAndKeysEndIt) {
    EXPECT_EQ(type({"F10"}), Outcome::Ok);
    EXPECT_EQ(type({"BackTab"}), Outcome::GoesOn);
    EXPECT_EQ(type({"Enter"}), Outcome::Cancel);
    EXPECT_EQ(type({"Left", " "}), Outcome::Ok);
    EXPECT_EQ(type({"Esc"}), Outcome::Cancel);
    EXPECT_EQ(type({"F2", "Up"}), Outcome::GoesOn);
    EXPECT_EQ(type({"F2", "BackTab", "BackTab", "BackTab", "Enter"}), Outcome::Button);
    EXPECT_EQ(form_.pressed_button(), "aPlay");
}

TEST_F(SetupFormTest, CancelAsksBeforeItLosesChanges) {
    EXPECT_EQ(type({"x", "Esc"}), Outcome::GoesOn);
    EXPECT_THAT(screen(), HasSubstr("Your changes will be lost."));
    EXPECT_EQ(type({"Idle", "Left", "Esc"}), Outcome::GoesOn);
    EXPECT_EQ(type({"Idle", "Esc"}), Outcome::Cancel);
}

TEST_F(SetupFormTest, ALongPageFollowsTheFocus) {
    form_.set_window({12, 60});
    type({"F2", "Down", "Down", "Down", "Down", "Down", "Down", "Down", "Down"});
    EXPECT_THAT(screen(), AllOf(HasSubstr(">[ ] aSound"), HasSubstr("^ more")));
    type({"F2"});
    EXPECT_THAT(screen(), AllOf(HasSubstr("more v"), HasSubstr("aVoice")));
    form_.set_window({11, 60});
    EXPECT_THAT(screen(), HasSubstr("too small"));
}

TEST_F(SetupFormTest, SlidesAreThoseOfTheChosenGroup) {
    type({"F4", "Right", "Right", "Down", "x", "Tab", "9"});
    EXPECT_EQ(changes(), R"([{"name":"aGroupSelect","index":1,"text":"1"},)"
                         R"({"name":"aSlideASP","index":5,"text":"x"},)"
                         R"({"name":"aDwell","index":5,"text":"9"}])");
}

TEST_F(SetupFormTest, ALongTextShowsTheCaret) {
    for (int i = 0; i < 100; ++i) {
        type({std::to_string(i % 10)});
    }
    const Picture picture = form_.picture();
    ASSERT_TRUE(picture.cursor);
    EXPECT_LT(picture.cursor->column, 80);
    EXPECT_THAT(screen(), HasSubstr("3456789"));
}

}  // namespace
}  // namespace app
