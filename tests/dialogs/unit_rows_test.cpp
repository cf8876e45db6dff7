#include "dialogs/setup_house.h"

// The rows of units and the section "Velora Names".
namespace dialogs {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class UnitRowsTest : public SetupHouse {
  protected:
    void unit(std::string_view key, std::string_view value) { setting(key, value, "Velora Names"); }

    // What stands in the first row: address, computer, name, code, power, motion, do-CID, server.
    std::vector<std::string> first_row() {
        std::vector<std::string> texts;
        for (const char* name : {"aIP", "aComputer", "aName", "aDC", "aPower", "aMotion"}) {
            texts.push_back(setup_.Text({name, 0}));
        }
        texts.emplace_back(setup_.Value({"aDoCID", 0}) ? "CID" : "");
        texts.push_back(setup_.Text({"aX10Server", 0}));
        return texts;
    }
};

struct Line {
    std::string key, value;
    std::vector<std::string> shown;
    std::string stored;
};

TEST_F(UnitRowsTest, ALineIsShownAndStoredAgain) {
    for (const Line& line : std::vector<Line>{
             {"10.0.0.5/kitchen",
              "\"Kitchen,~11,A1,B2,0,1,\"",
              {"10.0.0.5", "kitchen", "Kitchen", "[1", "A1", "B2", "CID", ""},
              "10.0.0.5/kitchen=\"Kitchen,~11,A1,B2,0,1,\""},
             {"10.0.0.5",
              "Kitchen",
              {"10.0.0.5", "", "Kitchen", "", "", "", "", ""},
              "10.0.0.5=\"Kitchen,,,,0,0,\""},
             {"10.0.0.5 / kitchen",
              "Kitchen,^21,,,3,True,acme.x10:lights,hall",
              {"10.0.0.5", "kitchen", "Kitchen", "^21", "", "", "CID", "acme.x10:lights,hall"},
              "10.0.0.5/kitchen=\"Kitchen,^21,,,3,1,acme.x10:lights,hall\""},
             // No button stands for this group.
             {"~1::1~2",
              "Kitchen,,,,7,False",
              {"[::1]", "", "Kitchen", "", "", "", "", ""},
              "~1::1~2=\"Kitchen,,,,7,0,\""},
         }) {
        host_.remove_section("Velora Names");
        unit(line.key, line.value);
        setup_.open();
        EXPECT_EQ(first_row(), line.shown) << line.key;
        setup_.OKButton_Click();
        EXPECT_THAT(names(), ElementsAre(line.stored));
    }
}

TEST_F(UnitRowsTest, TheChosenButtonIsTheUnitsGroup) {
    unit("10.0.0.5", "Kitchen,,,,2");
    setup_.Load();
    EXPECT_TRUE(setup_.Value({"Option1", 2}));
    setup_.set_Value({"Option1", 3}, true);
    EXPECT_FALSE(setup_.Value({"Option1", 2}));
    setup_.OKButton_Click();
    EXPECT_THAT(names(), ElementsAre("10.0.0.5=\"Kitchen,,,,3,0,\""));
}

TEST_F(UnitRowsTest, RowsAreChangedEmptiedAndAdded) {
    unit("10.0.0.5/kitchen", "Kitchen,~11");
    unit("10.0.0.6", "Hall");
    unit("10.0.0.7", "Attic");
    house_.instance().log.set_debug_log(true);
    setup_.Load();
    setup_.set_Text({"aIP", 0}, "10.0.0.50");  // the computer is the same
    setup_.set_Text({"aIP", 1}, "");
    setup_.set_Text({"aName", 2}, "");  // an address alone makes no unit
    setup_.set_Text({"aIP", 3}, "10.0.0.8/garage");
    setup_.set_Text({"aName", 3}, "Garage");
    setup_.OKButton_Click();
    EXPECT_THAT(names(), ElementsAre("10.0.0.50/kitchen=\"Kitchen,~11,,,0,0,\"",
                                     "10.0.0.8/garage=\"Garage,,,,0,0,\""));
    EXPECT_THAT(host_.log(),
                ElementsAre("zynVelora Debug: OK Click Saving Name Kitchen at 10.0.0.50",
                            "zynVelora Debug: OK Click Saving Name Garage at 10.0.0.8/garage"));
}

TEST_F(UnitRowsTest, AComputerThatIsTheAddressMovesWithIt) {
    unit("10.0.0.5/10.0.0.5:8080", "Kitchen");
    unit("10.0.0.6/hall", "Hall");
    unit("10.0.0.7/10.0.0.77", "Attic");
    setup_.Load();
    for (std::size_t row = 0; row < 3; ++row) {
        setup_.set_Text({"aIP", row}, "10.0.1." + std::to_string(row));
    }
    setup_.OKButton_Click();
    EXPECT_THAT(names(), ElementsAre("10.0.1.0/10.0.1.0:8080=\"Kitchen,,,,0,0,\"",
                                     "10.0.1.1/hall=\"Hall,,,,0,0,\"",
                                     "10.0.1.2/10.0.0.77=\"Attic,,,,0,0,\""));
}

TEST_F(UnitRowsTest, LinesThatNoRowShowsStay) {
    unit("10.0.0.99", "");
    unit("broken", "a=b");
    for (int i = 1; i <= 11; ++i) {
        unit("10.0.0." + std::to_string(i), "Unit" + std::to_string(i) + ",,,,0,0,");
    }
    setup_.Load();
    EXPECT_EQ(setup_.Text({"aName", 8}), "Unit9");
    setup_.set_Text({"aName", 0}, "");
    setup_.OKButton_Click();
    ASSERT_THAT(names(), SizeIs(12));
    EXPECT_THAT(names(), Contains("10.0.0.99="));
    EXPECT_THAT(names(), Contains("broken=a=b"));
    EXPECT_THAT(names(), Contains("10.0.0.10=Unit10,,,,0,0,"));
    EXPECT_THAT(names(), Contains("10.0.0.11=Unit11,,,,0,0,"));
}

TEST_F(UnitRowsTest, ARowTakesTheAddressOfALineThatNamesNoUnit) {
    unit("10.0.0.5", "");
    setup_.set_Text({"aIP", 0}, "10.0.0.5");
    setup_.set_Text({"aName", 0}, "Kitchen");
    setup_.OKButton_Click();
    EXPECT_THAT(names(), ElementsAre("10.0.0.5=\"Kitchen,,,,0,0,\""));
}

// A unit that got its devices, or was added by hand, while the dialog was open.
TEST_F(UnitRowsTest, ALineThatCameMeanwhileStays) {
    setup_.Load();
    unit("10.0.0.5", "Kitchen");
    setup_.OKButton_Click();
    EXPECT_THAT(names(), ElementsAre("10.0.0.5=Kitchen"));
}

TEST_F(UnitRowsTest, ASecondTryDoesNotKeepWhatTheFirstHasWritten) {
    unit("10.0.0.5", "Kitchen");
    setup_.Load();
    setup_.set_Text({"aIP", 0}, "10.0.0.6");
    constexpr int kKeysAndLine = 66;
    host_.fail(support::MemoryHost::Operation::SaveIniSetting, kKeysAndLine + 1);
    setup_.OKButton_Click();
    ASSERT_THAT(names(), ElementsAre("10.0.0.6=\"Kitchen,,,,0,0,\""));
    ASSERT_TRUE(setup_.is_loaded());
    setup_.set_Text({"aIP", 0}, "10.0.0.7");
    setup_.OKButton_Click();
    EXPECT_THAT(names(), ElementsAre("10.0.0.7=\"Kitchen,,,,0,0,\""));
}

TEST_F(UnitRowsTest, MarksBetweenFieldsAreCleanedUnderTheProtectionAlone) {
    for (const bool is_protected : {false, true}) {
        host_.remove_section("Velora Names");
        if (is_protected) {
            protect();
        }
        setup_.open();
        setup_.set_Text({"aIP", 0}, " ;10.0.0.5=x");
        setup_.set_Text({"aName", 0}, "Kitchen,\n\"big\"");
        setup_.OKButton_Click();
        EXPECT_THAT(names(),
                    ElementsAre(is_protected ? "10.0.0.5x=\"Kitchenbig,,,,0,0,\""
                                             : " ;10.0.0.5=x=\"Kitchen,\n\"big\",,,,0,0,\""));
    }
    setup_.open();
    setup_.set_Text({"aIP", 0}, " ; ");  // nothing is left of it
    setup_.OKButton_Click();
    EXPECT_THAT(names(), IsEmpty());
}

}  // namespace
}  // namespace dialogs
