#include "appliance/checkout.h"

#include <array>
#include <chrono>
#include <string>

#include "appliance/velora.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "core/instance.h"
#include "devices/status_table.h"
#include "host/pump.h"

namespace appliance {

namespace {

using namespace std::chrono_literals;

constexpr std::string_view kSteps = "PUSH,AUDIO,TEXT,LED";
constexpr int kPushPasses = 1001;
constexpr std::int16_t kWaitSeconds = 1;
constexpr std::int16_t kBacklightSeconds = 5;
constexpr auto kLongestStep = 60s;

struct Test {
    core::Instance& instance;
    Velora& unit;

    void malfunction(const std::string& finding) const {
        instance.log.VeloraWriteLog("zynVelora Velora Test Malfunction ", finding);
    }

    void wait() const { unit.SetWaitsecs(kWaitSeconds, ""); }
};

void push(const Test& test) {
    Velora& unit = test.unit;
    const std::string tag = unit.PushPage("VeloraTestMessage.HTML", "");
    for (int pass = 0; pass < kPushPasses && unit.CommandBusy(tag); ++pass) {
        test.instance.platform().pump.run_ready();
    }
    if (unit.BrowserFullScreen()) {
        test.malfunction("BrowserFullScreen reports full screen after push page");
    }
    unit.ToggleBrowserFullScreen("");
    test.wait();
    if (!unit.BrowserFullScreen()) {
        test.malfunction("Toggle Browser did not report toggle");
    }
    unit.SetBrowserScreen(false, "");
    test.wait();
    if (unit.BrowserFullScreen()) {
        test.malfunction("Browser Full Screen Property did not change to not full screen");
    }
}

void audio(const Test& test) {
    constexpr std::int16_t kHalf = 50;
    Velora& unit = test.unit;
    unit.SetVolume(100, "");
    unit.SendSpeak("How are you doing today at 100% Volume, Next at 50%?", "");
    unit.SetVolume(kHalf, "");
    unit.Wav("VeloraTest.wav", "");
    if (unit.Volume() != kHalf) {
        test.malfunction("50% Volume not reported back");
    }
}

void text(const Test& test) {
    test.unit.set_PushText("Test Message Line 1\r\nTest Message Line 2");
}

void check_led(const Test& test, const std::string& name, const std::string& value,
               const std::string& state) {
    if (value != state) {
        test.malfunction(name + " reports " + value + " when should be " + state);
    }
}

void led(const Test& test) {
    Velora& unit = test.unit;
    for (const char* state : {"off", "on", "blink"}) {
        unit.SetTopLED(state, "");
        unit.SetMailLED(state, "");
        check_led(test, "TopLED", unit.TopLED(), state);
        check_led(test, "MailLED", unit.MailLED(), state);
    }
    for (const char* top : {"on", "off", "on", "off"}) {
        test.wait();
        unit.SetTopLED(top, "");
        unit.SetMailLED(top == std::string_view("on") ? "off" : "on", "");
    }
    unit.SetMailLED("off", "");
}

// Puts the unit into a state and says what is wrong when it does not get there.
void sleep_or_wake(const Test& test, const char* action, const char* finding) {
    test.unit.set_Sleep(action);
    test.wait();
    if (test.unit.Asleep() != (action == std::string_view("sleep"))) {
        test.malfunction(finding);
    }
}

void sleep(const Test& test) {
    if (test.unit.Asleep()) {
        sleep_or_wake(test, "awake", "Did not awaken");
        sleep_or_wake(test, "sleep", "Did not go to sleep after awake");
    } else {
        sleep_or_wake(test, "sleep", "Did not go to sleep");
        sleep_or_wake(test, "awake", "Did not awaken after sleep");
    }
}

void set_backlight(const Test& test, const char* state, std::int16_t status, const char* finding) {
    const std::string tag = test.unit.SetBacklight(state, "");
    test.unit.WaitForCommandComplete(tag, kBacklightSeconds);
    if (test.unit.Backlight() != devices::DeviceStatus(status)) {
        test.malfunction(finding);
    }
}

void backlight(const Test& test) {
    test.unit.SetSounds(automation::to_int16(automation::Value("1.23")), "");
    set_backlight(test, "off", devices::kStatusBacklightOff, "Backlight off reported as on");
    set_backlight(test, "on", devices::kStatusBacklightOn, "Backlight on reported as off");
}

struct Step {
    std::string_view name;
    void (*run)(const Test& test);
};

constexpr std::array<Step, 6> kBranches{{
    {"PUSH", &push},
    {"AUDIO", &audio},
    {"TEXT", &text},
    {"LED", &led},
    {"SLEEP", &sleep},
    {"BACKLIGHT", &backlight},
}};

void leave_the_queue_room(core::Instance& instance, const Velora& unit) {
    if (instance.platform().protection.self_test_leaves_the_queue_room) {
        const QueueState& queue = unit.queue().state();
        instance.platform().pump.run_until(
            [&queue] { return queue.QueueEmpty && !queue.WaitActive; }, kLongestStep);
    }
}

}  // namespace

void perform_test(core::Instance& instance, Velora& unit, std::string_view step) {
    for (const Step& branch : kBranches) {
        if (branch.name == step) {
            branch.run({instance, unit});
        }
    }
}

void Checkout(core::Instance& instance, Velora& unit) {
    automation::guarded(instance.log, "Main Test Error ", [&] {
        instance.log.debug([&] { return " TEST STARTED ON VELORA in " + unit.Name(); });
        for (const std::string& step : automation::split(kSteps, ',')) {
            instance.log.VeloraWriteLog(
                core::kLogType, "PERFORMING TEST " + step + " on " + unit.Name() + " Velora");
            perform_test(instance, unit, step);
            leave_the_queue_room(instance, unit);
        }
        instance.log.debug([&] { return " TEST COMPLETED ON VELORA " + unit.Name(); });
    });
}

}  // namespace appliance
