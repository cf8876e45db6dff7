#include "devices/actions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "automation/convert.h"
#include "devices/devices_house.h"

namespace devices {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

void make_unit(DevicesHouse& house, int first, const std::string& name) {
    for (int offset = 0; offset < 10; ++offset) {
        house.devices.make_unit_device("[" + std::to_string(first + offset),
                                       static_cast<SubDevice>(offset), name);
    }
}

// The fields of an action, less the prefix: "[11-Kitchen|Awaken" is one pair.
std::string action(std::string_view prefix, std::string_view pairs) {
    std::string text = std::string(prefix) + "|not read";
    if (!pairs.empty()) {
        text += "|" + std::string(pairs);
    }
    std::ranges::replace(text, '|', '\x02');
    return text;
}

TEST(TriggeredAction, SetsDeviceAndValueOfItsLabel) {
    // The first and last label of each row, and the browser's, which fall to the mail LED.
    const struct {
        const char* label;
        const char* call;
    } rows[] = {
        {"Send to ACID", "SetDeviceValue [11 0"},
        {"TBD2", "SetDeviceValue [11 3"},
        {"Put to Sleep", "SetDeviceValue [12 0"},
        {"Power Cycle", "SetDeviceValue [12 3"},
        {"Turn Backlight Off", "SetDeviceValue [13 0"},
        {"Turn Backlight On", "SetDeviceValue [13 1"},
        {"Turn Off Top LED", "SetDeviceValue [14 0"},
        {"Blink Top LED", "SetDeviceValue [14 2"},
        {"Turn Off Mail LED", "SetDeviceValue [15 0"},
        {"Blink Mail LED", "SetDeviceValue [15 2"},
        {"Show Browser Nav Buttons", "SetDeviceValue [15 3"},
        {"Hide Browser Nav Buttons", "SetDeviceValue [15 4"},
        {"Play Cancel Sound", "SetDeviceValue [17 0"},
        {"Play Wake Sound", "SetDeviceValue [17 18"},
        {"Set Sounds Volume to 0%", "SetDeviceValue [18 0"},
        {"Set Sounds Volume to 100%", "SetDeviceValue [18 100"},
        {"Set Master Volume to 50%", "SetDeviceValue [19 50"},
        {"Set Master Volume to 100%%", "SetDeviceValue [19 100"},
    };

    for (const auto& row : rows) {
        DevicesHouse house;
        house.actions.TriggerAction(action("Velora", "[11-Kitchen|" + std::string(row.label)));
        EXPECT_THAT(house.host.device_calls(), ElementsAre(row.call)) << row.label;
    }
}

TEST(TriggeredAction, TakesTwelvePairsAndPassesOverWhatNamesNothing) {
    const std::string pair = "[1-Hall|Awaken";
    std::string thirteen = pair;
    for (int i = 1; i < 13; ++i) {
        thirteen += "|" + pair;
    }

    const struct {
        const char* what;
        std::string pairs;
        std::size_t calls;
    } rows[] = {
        {"none", "", 0},
        {"half a pair", "[1-Hall", 0},
        {"two", pair + "|" + pair, 2},
        {"thirteen", thirteen, 12},
        {"a label in another case", "[1-Hall|awaken", 0},
        {"an unknown label first", "[1-Hall|no such label|" + pair, 1},
        {"a device without a dash", "[1 Hall|Awaken", 0},
        {"a dash at position 4", "[11-Hall|Awaken", 1},
        {"a dash without a number", "[-Hall|Awaken", 1},
        {"a dash without anything", "-|Awaken", 1},
        {"a dash at position 5", "[111-Hall|Awaken", 0},
    };

    for (const auto& row : rows) {
        DevicesHouse house;
        house.actions.TriggerAction(action("Velora", row.pairs));
        EXPECT_THAT(house.host.device_calls(), SizeIs(row.calls)) << row.what;
    }
}

TEST(TriggeredAction, IsLoggedWithItsFieldsWhateverItsPrefix) {
    const struct {
        const char* prefix;
        std::size_t calls;
    } rows[] = {{"Velora", 1}, {"Velora action", 1}, {"zynVelora", 0}, {"velora", 0}, {"", 0}};

    for (const auto& row : rows) {
        DevicesHouse house;
        house.actions.TriggerAction(action(row.prefix, "[11-Kitchen|Awaken"));
        EXPECT_THAT(house.host.device_calls(), SizeIs(row.calls)) << row.prefix;
        EXPECT_THAT(house.host.log(), ElementsAre("TriggerAction: " + std::string(row.prefix) +
                                                  ":not read:[11-Kitchen:Awaken"));
    }
}

TEST(ActionInWords, NamesLabelAndDeviceOfEachPair) {
    const struct {
        const char* prefix;
        const char* pairs;
        const char* words;
    } rows[] = {
        {"zynVelora", "[11-Kitchen|Turn Backlight On", "Turn Backlight On to [11-Kitchen Velora"},
        {"zynVelora", "[11-Kitchen; the kitchen |Awaken", "Awaken to the kitchen Velora"},
        {"zynVelora", "[11-Kitchen|Awaken|[1-Hall;Hall|Play Snap",
         "Awaken to [11-Kitchen Velora AND Play Snap to Hall Velora"},
        {"zynVelora", "[11-Kitchen|nothing|[111-Far|Awaken", ""},
        {"zynVelora", "", ""},
        {"Velora", "[11-Kitchen|Awaken", ""},
        {"", "[11-Kitchen|Awaken", ""},
    };

    for (const auto& row : rows) {
        DevicesHouse house;
        EXPECT_EQ(house.actions.ActionUIFormat(action(row.prefix, row.pairs)), row.words);
        EXPECT_THAT(house.host.log(), IsEmpty());
    }
}

TEST(Button, SetsItsDeviceToItsPlaceAmongTheButtons) {
    const struct {
        const char* button;
        const char* call;
    } rows[] = {
        {"Send to ACID @ kitchen Velora", "SetDeviceValue [11 0"},
        {"Awaken @ Kitchen Velora", "SetDeviceValue [12 1"},
        {"Awaken Forever @ kitchen Velora", "SetDeviceValue [12 2"},
        {"Turn Backlight On@KITCHEN velora", "SetDeviceValue [13 1"},
        {" Blink Mail LED @ kitchen", "SetDeviceValue [15 2"},
        {"Play Copy Sound @ Kitchen Velora", "SetDeviceValue [17 0"},
        {"Play Help Sound @ Kitchen Velora", "SetDeviceValue [17 1"},
        {"Set Master Volume to 100%% @ kitchen Velora", "SetDeviceValue [19 4"},
        {"Awaken @ hall Velora", "SetDeviceValue [2 1"},
    };

    for (const auto& row : rows) {
        DevicesHouse house;
        house.instance.settings.SoundButtonEnabled[2] = true;
        house.instance.settings.SoundButtonEnabled[5] = true;
        make_unit(house, 1, "hall");
        make_unit(house, 11, "kitchen");
        house.actions.ButtonPress(row.button);
        EXPECT_THAT(house.host.device_calls(), ElementsAre(row.call)) << row.button;
    }
}

TEST(Button, OfNoDeviceDoesNothing) {
    DevicesHouse house;
    make_unit(house, 1, "hall");
    for (const char* button :
         {"", "Awaken", "Awaken @ hall @ Velora", "Awaken @ kitchen Velora",
          "Play Snap @ hall Velora", "No such label @ hall Velora", "Awaken @"}) {
        house.actions.ButtonPress(button);
        EXPECT_THAT(house.host.device_calls(), IsEmpty()) << button;
    }
}

TEST(Button, TellsItsSearch) {
    DevicesHouse house;
    make_unit(house, 1, "hall");
    house.actions.ButtonPress("Blink Top LED @ Hall Velora");
    EXPECT_THAT(house.host.log(),
                ElementsAre("zynVelora: Button Device Found, Location is hall",
                            "zynVelora: Button Location Found", "zynVelora: Button Found",
                            "zynVelora: Button SetDeviceValue=[4"));
    house.host.forget();
    house.instance.log.set_debug_log(true);
    house.actions.ButtonPress("Blink Top LED @ Den Velora");
    EXPECT_THAT(house.host.log(), ElementsAre("zynVelora Debug: Button Press, Location=den, "
                                              "Button=zynVelora\x02"
                                              "Blink Top LED, HouseCode=["));
}

// --- the host's controls -------------------------------------------------------------------------

using Written = std::vector<std::string>;

class Control : public automation::Object {
  public:
    [[nodiscard]] std::string type_name() const override { return "Control"; }

    [[nodiscard]] std::optional<automation::MemberId> find_member(
        std::string_view name) const override {
        names_.emplace_back(name);
        return static_cast<automation::MemberId>(names_.size());
    }

    automation::Value invoke(automation::MemberId member, automation::Access,
                             std::span<automation::Value> arguments) override {
        written.push_back(names_.at(static_cast<std::size_t>(member - 1)) + "=" +
                          automation::to_text(arguments.back()));
        return {};
    }

    Written written;

  private:
    mutable std::vector<std::string> names_;
};

// A collection from 1, as hosts hand it over.
class Controls : public automation::Object {
  public:
    explicit Controls(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            controls.push_back(std::make_shared<Control>());
        }
    }

    [[nodiscard]] std::string type_name() const override { return "Controls"; }

    [[nodiscard]] std::optional<automation::MemberId> find_member(std::string_view) const override {
        return automation::kDefaultMember;
    }

    automation::Value invoke(automation::MemberId, automation::Access,
                             std::span<automation::Value> arguments) override {
        const auto position = static_cast<std::size_t>(automation::to_int32(arguments[0]));
        if (position < 1 || position > controls.size()) {
            throw automation::RunTimeError(automation::ErrorNumber::SubscriptOutOfRange);
        }
        return std::static_pointer_cast<automation::Object>(controls[position - 1]);
    }

    std::vector<std::shared_ptr<Control>> controls;
};

TEST(ActionControls, StandInTwelveRowsOfFour) {
    DevicesHouse house;
    const auto controls = std::make_shared<Controls>(50);
    house.actions.ModifyActionUI(controls);
    const auto& list = controls->controls;
    EXPECT_THAT(list[0]->written,
                ElementsAre("Left=500", "Width=300", "Top=50", "Height=375", "Alignment=1"));
    EXPECT_THAT(list[1]->written,
                ElementsAre("Left=3050", "Width=300", "Top=50", "Height=375", "Alignment=1"));
    EXPECT_THAT(list[2]->written, ElementsAre("Left=850", "Width=2000", "Top=50"));
    EXPECT_THAT(list[3]->written, ElementsAre("Left=3400", "Width=800", "Top=50"));
    EXPECT_THAT(list[44]->written, Contains("Top=4010"));
    EXPECT_THAT(list[47]->written, ElementsAre("Left=3400", "Width=800", "Top=4010"));
    EXPECT_THAT(list[48]->written, IsEmpty());
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST(ActionControls, ThatAreMissingEndTheLayoutWithAReport) {
    DevicesHouse house;
    house.instance.log.set_debug_log(true);
    const auto few = std::make_shared<Controls>(1);
    house.actions.ModifyActionUI(few);
    EXPECT_THAT(few->controls[0]->written, SizeIs(5));
    EXPECT_THAT(house.host.log(),
                ElementsAre("zynVelora Debug: ModifyActionUI",
                            "zynVelora Debug: Modify Control Top/Left/Width 50/500/300",
                            StartsWith("zynVelora: ModifyActionUI:  Line ")));
    house.host.forget();
    house.actions.ModifyActionUI(nullptr);
    EXPECT_THAT(house.host.log(), Contains(StartsWith("zynVelora: ModifyActionUI:  Line ")));
}

}  // namespace
}  // namespace devices
