#include "host/dialogs.h"
#include "plugin/plugin_house.h"

// From the dialogs into the running plug-in.
namespace plugin {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

std::string text_of(host::SetupDialog& setup, const std::string& name) {
    for (const host::DialogControl& control : setup.controls()) {
        if (control.name == name) {
            return control.text;
        }
    }
    return "(none)";
}

TEST(DialogRoad, OkReachesTheRunningHouse) {
    PluginHouse house;
    house.start();
    host::SetupDialog& setup = *house.plugin->setup_dialog();
    setup.open();
    setup.set("aIP", 3, "10.0.0.24");
    setup.set("aName", 3, "Attic");
    setup.set("aName", 1, "");
    setup.set("aDebugLog", 0, "True");
    house.forget();
    EXPECT_TRUE(setup.ok());
    EXPECT_EQ(house.text("VeloraNames", {}), "kitchen,bedroom,attic");
    EXPECT_THAT(house.host.log(),
                Contains("zynVelora: User Configuration Setup Initialization Complete"));
    house.call("VeloraTopLed", {"attic", "on"});
    EXPECT_THAT(house.host.log(), Contains(HasSubstr("zynVelora Debug")));
}

TEST(DialogRoad, ThreeOperationsAndAMenuEntryOpenTheSetup) {
    for (const char* way : {"ConfigIO", "ConfigX10", "ConfigIR", "menu"}) {
        PluginHouse house;
        house.setting("FontColor", "red");
        house.start();
        host::SetupDialog& setup = *house.plugin->setup_dialog();
        EXPECT_EQ(text_of(setup, "aFontColor"), "");
        if (std::string_view(way) == "menu") {
            house.plugin->SelectMenu("GUI Setup");
        } else {
            house.call(way, {});
        }
        EXPECT_EQ(text_of(setup, "aFontColor"), "red") << way;
    }
}

TEST(DialogRoad, AShimHasNoDialogs) {
    PluginHouse house;
    house.setting("RunAsXapNode", "1");
    house.start();
    house.forget();
    house.call("ConfigIO", {});
    house.plugin->SelectMenu("Velora Server");
    EXPECT_EQ(house.plugin->setup_dialog(), nullptr);
    EXPECT_EQ(house.plugin->server_dialog(), nullptr);
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST(DialogRoad, TheJukeboxButtonsReachEveryUnit) {
    PluginHouse house;
    house.start();
    house.forget();
    house.plugin->setup_dialog()->press("aPlay");
    for (const char* name : {"kitchen", "hall", "bedroom"}) {
        EXPECT_THAT(house.host.log(), Contains(AllOf(HasSubstr("phJuke"), HasSubstr(name))));
    }
}

TEST(DialogRoad, TheServerDialogOpensFromTheMenu) {
    PluginHouse house;
    house.start();
    host::ServerDialog& server = *house.plugin->server_dialog();
    EXPECT_FALSE(server.is_open());
    house.plugin->SelectMenu("Velora Server");
    EXPECT_TRUE(server.is_open());
    EXPECT_THAT(server.status_box(), HasSubstr("Registered CID clients:\r\n"));
}

}  // namespace
}  // namespace plugin
