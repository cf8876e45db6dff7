#include "automation/run_time_error.h"
#include "dialogs/setup_house.h"

// What the setup dialog does beside filling and storing its controls.
namespace dialogs {
namespace {

using automation::ErrorNumber;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

using VeloraSetupTest = SetupHouse;

template <typename Body>
std::int32_t error_of(Body&& body) {
    try {
        body();
    } catch (const automation::RunTimeError& error) {
        return error.number();
    }
    return 0;
}

TEST_F(VeloraSetupTest, ADialogThatIsLoadedStaysAsItIs) {
    setting("FontColor", "red");
    EXPECT_FALSE(setup_.is_loaded());
    EXPECT_EQ(setup_.Text({"aFontColor"}), "");
    setup_.Load();
    setup_.set_Text({"AFONTCOLOR"}, "blue");
    setup_.Load();
    EXPECT_EQ(setup_.Text({"aFontColor"}), "blue");
    setup_.CancelButton_Click();
    EXPECT_FALSE(setup_.is_loaded());
    EXPECT_THAT(host_.saved_settings(), IsEmpty());
    EXPECT_THAT(calls_, IsEmpty());
}

// Whoever changes one control of a dialog that is not loaded does not empty the others.
TEST_F(VeloraSetupTest, NoSettingIsLostToAnEmptyControl) {
    setting("FontColor", "red");
    setup_.set_Value({"aDebugLog"}, true);
    setup_.OKButton_Click();
    EXPECT_EQ(stored("FontColor"), "\"red\"");
    EXPECT_EQ(stored("DebugLog"), "\"1\"");
}

TEST_F(VeloraSetupTest, ControlsThatAreNotThereAreErrors) {
    EXPECT_EQ(error_of([&] { (void)setup_.Text({"aNothing"}); }), 438);
    EXPECT_EQ(error_of([&] { (void)setup_.Text({"aDebugLog"}); }), 438);
    EXPECT_EQ(error_of([&] { (void)setup_.Value({"aFontColor"}); }), 438);
    EXPECT_EQ(error_of([&] { (void)setup_.Text({"aIP", 9}); }), 340);
    EXPECT_EQ(error_of([&] { (void)setup_.Caption({"Check1", 19}); }), 340);
    EXPECT_EQ(error_of([&] { setup_.set("aDebugLog", 0, "perhaps"); }), 13);
    EXPECT_EQ(error_of([&] { setup_.set("aDC", 0, "[1"); }), 438);
    EXPECT_EQ(error_of([&] { setup_.press("aIP"); }), 438);
    EXPECT_EQ(error_of([&] { setup_.show_page("Nowhere"); }), 5);
    EXPECT_EQ(setup_.count("Check1"), 19U);
    EXPECT_EQ(setup_.count("adwell"), 15U);
}

TEST_F(VeloraSetupTest, ShowsCaptionsVersionHouseCodeAndVoices) {
    house_.instance().HouseCode = "[";
    setup_.Load();
    EXPECT_EQ(setup_.Caption({"Check1", 0}), "Cancel Sound");
    EXPECT_EQ(setup_.Caption({"Check1", 15}), "Snap");
    EXPECT_EQ(setup_.Caption({"Option9", 0}), "None");
    EXPECT_EQ(setup_.Caption({"aHSIP"}), "Server IP");
    EXPECT_THAT(setup_.labels(), ElementsAre("Version 1.0.0", "Plugin House Code is ["));
    for (const host::DialogControl& control : setup_.controls()) {
        if (control.name == "aVoiceCB") {
            EXPECT_EQ(control.text, "Microsoft Mary");
            EXPECT_THAT(control.choices, ElementsAre("Microsoft Sam", "Microsoft Mary"));
        }
    }
}

TEST_F(VeloraSetupTest, OneOptionOfAGroupIsChosenAndTheOwnServerHasAPort) {
    setup_.Load();
    EXPECT_TRUE(setup_.is_enabled("aServerPort"));
    setup_.set("aTCPServerOption", 1, "1");
    EXPECT_FALSE(setup_.Value({"aTCPServerOption", 0}));
    EXPECT_FALSE(setup_.is_enabled("aServerPort"));
    setup_.set_Value({"aTCPServerOption", 0}, true);
    EXPECT_TRUE(setup_.is_enabled("aServerPort"));
}

TEST_F(VeloraSetupTest, PagesAndTheJukebox) {
    setup_.show_page("power");
    EXPECT_EQ(setup_.shown_page(), "Power");
    setup_.press("aPlay");
    setup_.press("ASTOP");
    EXPECT_THAT(calls_, ElementsAre("play", "stop"));
}

// --- the event of the telephone line ------------------------------------------------------------

TEST_F(VeloraSetupTest, AnEventIsMadeForAGroupAndOneOfTwoLines) {
    const struct {
        const char *group, *line;
        int made_for;
    } rows[] = {{"", "1", 0}, {"Phone", "3", 0}, {"Phone", "", 0}, {"Phone", "2", 2}};

    for (const auto& row : rows) {
        setup_.set_Text({"aCIDEventGroup"}, row.group);
        setup_.set_Text({"aLineNumber"}, row.line);
        setup_.OKButton_Click();
        ASSERT_THAT(host_.events(), SizeIs(row.made_for == 0 ? 0 : 1)) << row.line;
    }
    EXPECT_EQ(host_.events()[0].phone_line, 2);
    EXPECT_EQ(host_.events()[0].Group, "Phone");
    setup_.set_Text({"aLineNumber"}, "1");
    setup_.OKButton_Click();
    ASSERT_THAT(host_.events(), SizeIs(1));
    EXPECT_EQ(host_.events()[0].phone_line, 2);
}

// --- the resize component -----------------------------------------------------------------------

class ResizeQuestion : public SetupHouse {
  protected:
    void click_ok() {
        setup_.Load();
        setup_.OKButton_Click();
    }

    void move_in() {
        house_.add_unit("Kitchen");
        house_.open();
    }

    support::RecordingDesktop& desktop_ = house_.machine().desktop;
};

TEST_F(ResizeQuestion, IsAskedOnceInAHouseWithUnitsAndWithoutTheComponent) {
    move_in();
    click_ok();
    EXPECT_THAT(desktop_.questions(), IsEmpty());
    house_.machine().image_resizer.remove();
    click_ok();
    EXPECT_THAT(desktop_.questions(),
                ElementsAre("Images can be rescaled to work with Velora.  sfImageResize is used  "
                            "to perform this function.  Click Yes to download this component for "
                            "personal use only."));
    EXPECT_EQ(stored("ResizeQuestion"), "1");
    click_ok();
    EXPECT_THAT(desktop_.questions(), SizeIs(1));
    EXPECT_THAT(desktop_.downloads(), IsEmpty());
    EXPECT_THAT(host_.log(), IsEmpty());
}

TEST_F(ResizeQuestion, IsNotAskedInAHouseWithoutUnits) {
    house_.machine().image_resizer.remove();
    click_ok();
    EXPECT_THAT(desktop_.questions(), IsEmpty());
    EXPECT_EQ(stored("ResizeQuestion"), "(none)");
}

TEST_F(ResizeQuestion, YesStartsTheScript) {
    move_in();
    house_.machine().image_resizer.remove();
    desktop_.will_answer(host::Answer::Yes);
    click_ok();
    EXPECT_THAT(desktop_.downloads(), ElementsAre("C:\\HomeSeer\\Scripts\\DownloadAndExecute.vbs "
                                                  "SfImageResize.ImageResize"));
}

// --- errors -------------------------------------------------------------------------------------

TEST_F(VeloraSetupTest, AnErrorEndsTheSavingAndLeavesTheDialogOpen) {
    setup_.Load();
    setup_.set_Text({"aFontColor"}, "red");
    host_.fail(support::MemoryHost::Operation::SaveIniSetting, 9, ErrorNumber::DiskFull);
    EXPECT_FALSE(setup_.ok());
    EXPECT_THAT(host_.saved_settings(), SizeIs(8));
    EXPECT_THAT(host_.log(), ElementsAre(StartsWith("zynVelora: OK Button 61 Line ")));
    EXPECT_THAT(calls_, IsEmpty());
    EXPECT_EQ(setup_.Text({"aFontColor"}), "red");
    EXPECT_TRUE(setup_.ok());
    EXPECT_EQ(stored("FontColor"), "\"red\"");
}

// The event is made when all has been stored.
TEST_F(VeloraSetupTest, AnErrorInTheLastKeyLeavesNoEvent) {
    constexpr int kAllKeys = 86;
    setup_.set_Text({"aCIDEventGroup"}, "Phone");
    host_.fail(support::MemoryHost::Operation::SaveIniSetting, kAllKeys);
    EXPECT_FALSE(setup_.ok());
    EXPECT_THAT(host_.saved_settings(), SizeIs(kAllKeys - 1));
    EXPECT_THAT(host_.events(), IsEmpty());
    EXPECT_TRUE(setup_.ok());
    EXPECT_THAT(host_.events(), SizeIs(1));
}

TEST_F(VeloraSetupTest, WithoutSpeechAllButTheVoicesIsThere) {
    house_.machine().speech.fail_with(ErrorNumber::ActiveXCannotCreateObject);
    setting("192.168.0.5", "Kitchen", "Velora Names");
    setup_.Load();
    EXPECT_THAT(host_.log(), ElementsAre(StartsWith("zynVelora: Setup 429 Line ")));
    EXPECT_EQ(setup_.Text({"aVoiceCB"}), "Microsoft Mary");
    EXPECT_EQ(setup_.Text({"aName", 0}), "Kitchen");
}

TEST_F(VeloraSetupTest, WhatCannotBeOpenedIsNotStored) {
    house_.instance().attach(host_, nullptr);
    house_.instance().log.attach(&host_);
    setup_.Load();
    EXPECT_FALSE(setup_.is_loaded());
    EXPECT_FALSE(setup_.ok());
    EXPECT_THAT(host_.log(), ElementsAre(StartsWith("zynVelora: Setup 91 Line "),
                                         StartsWith("zynVelora: Setup 91 Line ")));
    EXPECT_THAT(host_.saved_settings(), IsEmpty());
    house_.instance().attach(host_, &host_);
}

}  // namespace
}  // namespace dialogs
