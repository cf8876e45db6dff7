#include "unit/command_page.h"

#include <gtest/gtest.h>

#include <array>

#include "unit/fault.h"
#include "unit/state_json.h"

namespace unit {
namespace {

std::string text_of(const ApplianceState& state) {
    return state_json(state, Fault{}, JsonLayout::OneLine);
}

struct Change {
    std::string_view target;
    std::string_view page_text;
    void (*expect)(ApplianceState& state);
};

constexpr std::array kChanges{
    Change{"/led.shtml?t0", "Top LED off", [](ApplianceState& s) { s.top_led = Led::Off; }},
    Change{"/led.shtml?t1", "Top LED on", [](ApplianceState& s) { s.top_led = Led::On; }},
    Change{"led.shtml?t2", "Top LED blink", [](ApplianceState& s) { s.top_led = Led::Blink; }},
    Change{"/led.shtml?m0", "Mail LED off", [](ApplianceState& s) { s.mail_led = Led::Off; }},
    Change{"/led.shtml?m2", "Mail LED blink", [](ApplianceState& s) { s.mail_led = Led::Blink; }},
    Change{"/scrOff.shtml", "Backlight off", [](ApplianceState& s) { s.backlight = false; }},
    Change{"/scrOn.shtml", "Backlight on", [](ApplianceState& s) { s.backlight = true; }},
    Change{"/beep.shtml?0 5", "Sound 5", [](ApplianceState& s) { s.last_sound = 5; }},
    Change{"/beep.shtml?0%2018", "Sound 18", [](ApplianceState& s) { s.last_sound = 18; }},
    Change{"/beep.shtml?0+0", "Sound 0", [](ApplianceState& s) { s.last_sound = 0; }},
    Change{"/beep.shtml?4 70", "Sounds volume 70", [](ApplianceState& s) { s.sounds_volume = 70; }},
    Change{"/volume.shtml?100", "Volume 100", [](ApplianceState& s) { s.volume = 100; }},
    Change{"/cgi-bin/firef4", "Window", [](ApplianceState& s) { s.full_screen = false; }},
    Change{"/screen.shtml?0", "Asleep", [](ApplianceState& s) { s.awake = s.backlight = false; }},
    Change{"/screen.shtml?1", "Awake", [](ApplianceState& s) { s.awake = s.backlight = true; }},
    Change{"/screen.shtml?t", "Asleep", [](ApplianceState& s) { s.awake = s.backlight = false; }},
    Change{"/screen.shtml?p", "1", [](ApplianceState&) {}},
};

TEST(CommandPage, ChangesTheStateThatItNames) {
    for (const Change& row : kChanges) {
        ApplianceState state;
        const auto effect = apply_command(state, row.target);
        ASSERT_TRUE(effect && std::holds_alternative<Done>(*effect)) << row.target;
        EXPECT_EQ(std::get<Done>(*effect).text, row.page_text) << row.target;
        ApplianceState expected;
        row.expect(expected);
        EXPECT_EQ(text_of(state), text_of(expected)) << row.target;
    }
}

TEST(CommandPage, OfAnotherFormIsNotFoundAndChangesNothing) {
    for (const std::string_view target : {"/",
                                          "",
                                          "/led.shtml",
                                          "/led.shtml?x1",
                                          "/led.shtml?t3",
                                          "/led.shtml?t11",
                                          "/scrOn.shtml?",
                                          "/SCRON.shtml",
                                          "/beep.shtml?",
                                          "/beep.shtml?0",
                                          "/beep.shtml?05",
                                          "/beep.shtml?0 19",
                                          "/beep.shtml?0 -1",
                                          "/beep.shtml?4 101",
                                          "/beep.shtml?1 5",
                                          "/volume.shtml?-1",
                                          "/volume.shtml?5x",
                                          "/volume.shtml?",
                                          "/screen.shtml?2",
                                          "/screen.shtml?pp",
                                          "/loadWav.shtml?ftp://1.2.3.4/a.wav",
                                          "/gotoURL.shtml?S=http://1.2.3.4/",
                                          "/gotoURL.shtml?M=GOTO_URL&S=file:///etc/passwd",
                                          "/../state.json"}) {
        ApplianceState state;
        EXPECT_FALSE(apply_command(state, target)) << target;
        EXPECT_EQ(text_of(state), text_of(ApplianceState{})) << target;
    }
}

TEST(CommandPage, SleepStatusFollowsTheToggle) {
    ApplianceState state;
    ASSERT_TRUE(apply_command(state, "/screen.shtml?t"));
    EXPECT_EQ(std::get<Done>(*apply_command(state, "/screen.shtml?p")).text, "0");
    ASSERT_TRUE(apply_command(state, "/screen.shtml?t"));
    EXPECT_EQ(std::get<Done>(*apply_command(state, "/screen.shtml?p")).text, "1");
    EXPECT_TRUE(state.backlight);
}

TEST(CommandPage, NamesWhatHasToBeFetched) {
    ApplianceState state;
    const auto sound = apply_command(state, "/loadWav.shtml?http://10.0.0.1:8080/a b+c%20d.wav");
    EXPECT_EQ(std::get<LoadSound>(*sound).url, "http://10.0.0.1:8080/a b+c%20d.wav");
    const auto page = apply_command(state, "/gotoURL.shtml?M=GOTO_URL&S=http://10.0.0.1/x.asp?a=1");
    EXPECT_EQ(std::get<ShowPage>(*page).url, "http://10.0.0.1/x.asp?a=1");
    EXPECT_FALSE(state.full_screen);
}

TEST(ApplianceState, PowerCycleKeepsNameAndCountOnly) {
    ApplianceState state;
    state.name = "hall";
    state.requests = 7;
    state.top_led = Led::Blink;
    state.last_sound = 3;
    state.browser = {"http://x/", "HTTP/1.0 200 OK", 9};
    power_down(state, Power::Off);
    EXPECT_FALSE(state.awake || state.backlight);
    EXPECT_EQ(state.browser.url, "");
    power_up(state);
    ApplianceState expected;
    expected.name = "hall";
    expected.requests = 7;
    EXPECT_EQ(text_of(state), text_of(expected));
}

TEST(StateJson, SurvivesBytesThatAreNoUtf8) {
    ApplianceState state;
    state.browser.url = "http://x/\xe4\xff";
    EXPECT_NE(text_of(state).find("http://x/\xef\xbf\xbd"), std::string::npos);
}

}  // namespace
}  // namespace unit
