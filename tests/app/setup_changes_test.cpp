#include "app/setup_changes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "app/control_client.h"
#include "app/server_form.h"

namespace app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const Json kSetup = Json::parse(R"({"controls":[
 {"page":"P","name":"aFontColor","index":0,"count":1,"kind":"text","setting":"FontColor",
  "group":"","caption":"Font Color","text":"red","value":false,"enabled":true,"enabled_by":"",
  "choices":[]},
 {"page":"P","name":"aIP","index":0,"count":1,"kind":"text","setting":"","group":"",
  "caption":"IP","text":"10.0.0.5\u001b","value":false,"enabled":true,"enabled_by":"",
  "choices":[]},
 {"page":"P","name":"Option1","index":0,"count":2,"kind":"option","setting":"","group":"Slide",
  "caption":"None","text":"","value":false,"enabled":true,"enabled_by":"","choices":[]},
 {"page":"P","name":"Option1","index":1,"count":2,"kind":"option","setting":"","group":"Slide",
  "caption":"First","text":"","value":true,"enabled":true,"enabled_by":"","choices":[]}]})");

TEST(SetupChanges, NameAControlOrItsSetting) {
    const struct {
        const char *word, *change;
    } rows[] = {
        {"fontcolor=blue", R"([{"name":"aFontColor","index":0,"text":"blue"}])"},
        {"AFONTCOLOR=", R"([{"name":"aFontColor","index":0,"text":""}])"},
        {"aIP.3=a=b", R"([{"name":"aIP","index":3,"text":"a=b"}])"},
        {"option1=1", R"([{"name":"Option1","index":1,"text":"1"}])"},
        {"Option1.1=0", R"([{"name":"Option1","index":1,"text":"0"}])"},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(parse_changes(kSetup, {row.word}).dump(), row.change) << row.word;
    }
    for (const char* wrong : {"FontColor", "aNothing=1", "aIP.x=1", "aIP.=1", "Option1=First"}) {
        EXPECT_THROW((void)parse_changes(kSetup, {wrong}), CommandFailure) << wrong;
    }
}

TEST(SetupChanges, TheTableShowsWhatTheControlsHold) {
    EXPECT_THAT(setup_table(kSetup), ElementsAre("PAGE  CONTROL     VALUE      CAPTION",
                                                 "P     aFontColor  red        Font Color",
                                                 "P     aIP         10.0.0.5?  IP",
                                                 "P     Option1     1 (First)  Slide"));
}

TEST(ServerForm, TellsWhatItsKeysMean) {
    using Outcome = ServerForm::Outcome;
    ServerForm form;
    form.take({{"box", "one\r\ntwo\r\n"}, {"debug", false}});
    EXPECT_EQ(form.press({.key = Key::Enter}), Outcome::Debug);
    EXPECT_TRUE(form.debug());
    EXPECT_EQ(form.press({.key = Key::Next}), Outcome::GoesOn);
    EXPECT_EQ(form.press({.key = Key::Character, .character = " "}), Outcome::Button);
    EXPECT_EQ(form.pressed_button(), "TestMessageButton");
    form.press({.key = Key::Left});
    form.press({.key = Key::Left});
    EXPECT_EQ(form.press({.key = Key::Enter}), Outcome::Close);
    EXPECT_EQ(form.pressed_button(), "cmdArray(1)");
    EXPECT_EQ(form.press({.key = Key::Function, .number = 10}), Outcome::Close);
    EXPECT_EQ(form.pressed_button(), "cmdArray(0)");
}

TEST(ServerForm, ScrollsItsBox) {
    ServerForm form;
    std::string box;
    for (int i = 1; i <= 50; ++i) {
        box += "line " + std::to_string(i) + "\r\n";
    }
    form.take({{"box", box}, {"debug", true}});
    form.set_window({10, 80});
    const auto first_row = [&form] { return form.picture().pieces.at(1).text; };
    EXPECT_EQ(first_row(), "line 46");
    form.press({.key = Key::PageUp});
    EXPECT_EQ(first_row(), "line 41");
    form.press({.key = Key::PageDown});
    form.press({.key = Key::PageDown});
    EXPECT_EQ(first_row(), "line 46");
    for (int i = 0; i < 20; ++i) {
        form.press({.key = Key::PageUp});
    }
    EXPECT_EQ(first_row(), "line 1");
    form.press({.key = Key::PageDown});
    EXPECT_EQ(first_row(), "line 6");
}

}  // namespace
}  // namespace app
