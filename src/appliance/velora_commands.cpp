#include "appliance/velora.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "devices/status_board.h"
#include "host/clock.h"
#include "host/host_interface.h"
#include "media/sound_files.h"
#include "media/text_page.h"

// Lights, sounds, browser and free commands: each operation's command text, state and device.
namespace appliance {

namespace {

using automation::guarded;
using devices::SubDevice;

constexpr std::int32_t kCommandTimeout = 5000;  // milliseconds
constexpr std::int32_t kPushTimeout = 20000;
constexpr std::string_view kSlideshowPage = "VeloraSlideshow.asp";

struct LedWord {
    std::string_view word;
    char value;
};

LedWord led_word(const std::string& state) {
    if (automation::find_ignoring_case(state, "blink") != std::string::npos) {
        return {"blink", '2'};
    }
    if (automation::find_ignoring_case(state, "off") != std::string::npos) {
        return {"off", '0'};
    }
    return {"on", '1'};
}

}  // namespace

std::string Velora::LED(char which, const std::string& state, const std::string& tag) {
    return guarded(log_, "LED ", [&] {
        const LedWord led = led_word(state);
        const std::string command =
            HasClient() ? (which == 't' ? "topled" : "mailled") + std::string(led.word)
                        : std::string("led.shtml?") + which + led.value;
        std::string queued = AsyncCommand(command, kCommandTimeout, tag);
        motion_start_time_ = services_.instance.platform().clock.now();
        return queued;
    });
}

std::string Velora::SetTopLED(const std::string& state, const std::string& tag) {
    return guarded(log_, "SetTopLED ", [&] {
        top_led_ = state;
        services_.status_board.SetLEDStatus(device_code(SubDevice::TopLed), state,
                                            devices::kStatusTopLedOff);
        return LED('t', state, tag);
    });
}

std::string Velora::SetMailLED(const std::string& state, const std::string& tag) {
    return guarded(log_, "SetMailLED ", [&] {
        mail_led_ = state;
        services_.status_board.SetLEDStatus(device_code(SubDevice::MailLed), state,
                                            devices::kStatusMailLedOff);
        return LED('m', state, tag);
    });
}

std::string_view Velora::Backlight() const {
    return devices::DeviceStatus(backlight_is_on_ ? devices::kStatusBacklightOn
                                                  : devices::kStatusBacklightOff);
}

std::string Velora::SetBacklight(const std::string& state, const std::string& tag) {
    return guarded(log_, "BacklightPower ", [&]() -> std::string {
        if (!is_awake_) {
            return {};
        }
        backlight_is_on_ = automation::to_lower(state) == "on";
        std::string queued =
            AsyncCommand(backlight_is_on_ ? "scrOn.shtml" : "scrOff.shtml", kCommandTimeout, tag);
        if (!device_code(SubDevice::Display).empty()) {
            show_status(SubDevice::Backlight, backlight_is_on_ ? devices::kStatusBacklightOn
                                                               : devices::kStatusBacklightOff);
        }
        return queued;
    });
}

std::string Velora::SetSounds(std::int16_t number, const std::string& tag) {
    return guarded(log_, "Sounds ", [&] {
        sounds_ = number;
        show_status(SubDevice::Sounds, devices::kStatusFirstSound + number);
        const std::string text = std::to_string(number);
        return AsyncCommand(HasClient() ? "beepcmd" + text : "beep.shtml?0 " + text,
                            kCommandTimeout, tag);
    });
}

std::string Velora::SetSoundsVolume(std::int16_t percent, const std::string& tag) {
    return guarded(log_, "SoundsVolume ", [&] {
        sounds_volume_ = percent;
        const std::string text = std::to_string(percent);
        const auto index = static_cast<std::int16_t>(devices::kStatusSoundsVolume +
                                                     devices::DetermineVolumeIcon(percent));
        services_.status_board.show_value(device_code(SubDevice::SoundsVolume), index, text + "%");
        return AsyncCommand("beep.shtml?4 " + text, kCommandTimeout, tag);
    });
}

std::string Velora::SetVolume(std::int16_t percent, const std::string& tag) {
    return guarded(log_, "SetVolumeControl ", [&] {
        volume_ = percent;
        const std::string text = std::to_string(percent);
        const auto index = static_cast<std::int16_t>(devices::kStatusVolume +
                                                     devices::DetermineVolumeIcon(percent));
        services_.status_board.show_value(device_code(SubDevice::Volume), index, text + "%");
        return AsyncCommand("volume.shtml?" + text, kCommandTimeout, tag);
    });
}

std::string Velora::ToggleBrowserControl(const std::string& tag) {
    return guarded(log_, "ToggleBrowserControl ", [&] {
        browser_full_screen_ = !browser_full_screen_;
        show_status(SubDevice::Browser,
                    browser_full_screen_ ? devices::kStatusFullScreen : devices::kStatusNavButtons);
        return AsyncCommand("cgi-bin/firef4", kCommandTimeout, tag);
    });
}

std::string Velora::ToggleBrowserFullScreen(const std::string& tag) {
    return ToggleBrowserControl(tag);
}

std::string Velora::SetBrowserScreen(bool full, const std::string& tag) {
    if (full == browser_full_screen_) {
        return "0";
    }
    return ToggleBrowserControl(tag);
}

std::string Velora::own_server_url(const std::string& path) const {
    const core::UtilitySettings& settings = services_.instance.settings;
    return "http://" + settings.HomeseerIP + ":" + settings.unit_port() + "/" + path;
}

void Velora::prepare_page(const std::string& page, const std::string& tag) {
    if (Sleep() != "always awake") {
        SleepControl("awake", tag);
    }
    browser_full_screen_ = false;
    show_status(SubDevice::Browser, devices::kStatusNavButtons);
    services_.status_board.show_silently(device_code(SubDevice::Display), page);
    display_ = page;
}

std::string Velora::load_page(const std::string& url, const std::string& tag) {
    std::string queued = AsyncCommand("gotoURL.shtml?M=GOTO_URL&S=" + url, kPushTimeout, tag);
    services_.status_board.announce(device_code(SubDevice::Display));
    return queued;
}

std::string Velora::PushPage(const std::string& page, const std::string& tag) {
    return guarded(log_, "SendPushPage ", [&] {
        prepare_page(page, tag);
        if (page != kSlideshowPage) {
            shows_slides_ = false;
        }
        log_.debug([&] { return "PushPageTag=" + tag; });
        return load_page(own_server_url(page), tag);
    });
}

std::string Velora::PushIISPage(const std::string& url, const std::string& tag) {
    return guarded(log_, "SendPushIISPage ", [&] {
        prepare_page(url, tag);
        return load_page("http://" + url, tag);
    });
}

std::string Velora::PushTextMessage(const std::string& text, const std::string& tag,
                                    std::int32_t delay) {
    return guarded(log_, "PushTextMessage ", [&] {
        push_text_ = text;
        // Blanks of the name stay, unlike in the names of sound files.
        const std::string file = "VeloraTemp/" + std::string(media::kTemporaryFileStem) + name_ +
                                 next_temporary_number() + ".html";
        const core::UtilitySettings& settings = services_.instance.settings;
        media::WrapHTML(services_.instance, file,
                        {.background = settings.TextBackground,
                         .foreground = settings.TextForeground,
                         .size = settings.TextFontSize,
                         .face = settings.TextStyle},
                        text, delay);
        std::string queued = PushPage(file, tag);
        browser_full_screen_ = true;
        show_status(SubDevice::Browser, devices::kStatusFullScreen);
        services_.status_board.show_value(device_code(SubDevice::Display), 0, text);
        return queued;
    });
}

std::string Velora::SendPushFullscreen(const std::string& page, const std::string& tag) {
    return guarded(log_, "SendPushFullscreen ", [&] {
        PushPage(page, tag);
        // The pause lets the page load before the browser's buttons go away.
        SetWaitsecs(services_.instance.settings.PushDelay, "");
        return ToggleBrowserControl(tag);
    });
}

std::string Velora::SetWaitsecs(std::int16_t seconds, const std::string& tag) {
    return guarded(log_, "SetWaitsecs ", [&] {
        return AsyncCommand("waitsecs " + std::to_string(seconds),
                            automation::multiply_int16(seconds, 2), tag);
    });
}

std::string Velora::Execute(const std::string& command, const std::string& tag) {
    return AsyncCommand("execute" + command, kCommandTimeout, tag);
}

std::string Velora::SendUDPCommand(const std::string& command, const std::string& parameter,
                                   const std::string& tag) {
    return AsyncCommand("sendcmd" + command + "~" + parameter, kCommandTimeout, tag);
}

std::string Velora::SendUDPCID(const std::string& line1, const std::string& line2,
                               const std::string& tag) {
    return AsyncCommand("sendcid" + line1 + "~" + line2, kCommandTimeout, tag);
}

}  // namespace appliance
