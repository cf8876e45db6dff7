#include "appliance/velora.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "core/xap_body.h"
#include "devices/status_board.h"
#include "host/clock.h"
#include "host/host_interface.h"

// Power: the switch, the end of a power cycle, and the slideshow that a unit then shows.
namespace appliance {

namespace {

using automation::guarded;
using devices::SubDevice;

constexpr std::int32_t kCommandTimeout = 5000;  // milliseconds

}  // namespace

void Velora::hsExecX10(std::string_view code, std::string_view command) {
    guarded(log_, "hsExecX10", [&] {
        core::Instance& instance = services_.instance;
        if (!instance.XapHosted) {
            instance.hs().ExecX10(code, command);
            return;
        }
        instance.callback().SendXapMessage(x10_server_, "xap-x10.request", "xap-x10.request",
                                           core::xap_body({{"device", code}, {"command", command}}),
                                           "", "00");
        const bool is_on = automation::equals_ignoring_case(command, "on");
        const std::int32_t before = is_on ? host::kStatusOff : host::kStatusOn;
        if (instance.hs().DeviceStatus(code) == before) {
            instance.hs().SetDeviceLastChange(code, instance.platform().clock.now());
        }
        instance.hs().SetDeviceStatus(code, is_on ? host::kStatusOn : host::kStatusOff);
        instance.hs().SetDeviceString(
            code, services_.status_board.FormatString(automation::to_upper(command)));
    });
}

std::string Velora::CyclePower(const std::string& tag) {
    if (power_device_.empty()) {
        return {};
    }
    return AsyncCommand("power", kCommandTimeout, tag);
}

void Velora::power_came_back() {
    services_.instance.hs().SetDeviceValue(device_code(SubDevice::Awake), 1);
    if (pending_sleep_state_ < 1 || pending_sleep_state_ >= 3) {
        pending_sleep_state_ = 1;
    }
    show_status(SubDevice::Awake, pending_sleep_state_ + devices::kStatusSleeping);
    show_status(SubDevice::Backlight, devices::kStatusBacklightOn);
}

void Velora::boot_finished() {
    SetPowerUpState();
    const std::string& page = services_.instance.settings.DefaultPushPage;
    if (Slideshow()) {
        ShowSlideshow("");
    } else if (!page.empty()) {
        SendPushFullscreen(page, "");
    }
}

std::string Velora::ShowSlideshow(const std::string& tag) {
    return guarded(log_, "ShowSlideshow ", [&]() -> std::string {
        if (enable_slideshow_ == 0) {
            return {};
        }
        shows_slides_ = true;
        std::string queued = SendPushFullscreen("VeloraSlideshow.asp", tag);
        // A disabled unit gives no tag, and no tag is no truth value.
        set_Slideshow(automation::to_boolean(queued));
        return queued;
    });
}

}  // namespace appliance
