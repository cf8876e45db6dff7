#include "appliance/velora.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "appliance/udp_link.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "devices/host_devices.h"
#include "devices/status_board.h"
#include "host/clock.h"
#include "host/host_interface.h"

// A unit's life: creation, power-on state, devices, end.
namespace appliance {

namespace {

using automation::guarded;
using devices::SubDevice;

constexpr std::int32_t kLongestMotionOff = 99999;
constexpr std::chrono::hours kAgeOfSlideBeforeTheFirst(1);
constexpr std::int16_t kSetValueCommand = 19;
constexpr std::int16_t kSoundsVolumeAfterPowerOn = 50;

std::string type_name(const LentTimer& timer) {
    return timer.exists() ? "Timer" : "Nothing";
}

}  // namespace

std::shared_ptr<Velora> Velora::create(const ApplianceServices& services) {
    std::shared_ptr<Velora> unit(new Velora(services));
    unit->Class_Initialize();
    return unit;
}

Velora::Velora(const ApplianceServices& services)
    : services_(services),
      log_(services.instance.log, name_),
      queue_(services.instance, *this, log_, services.udp_link),
      slideshow_time_(services.instance.platform().clock.now() - kAgeOfSlideBeforeTheFirst),
      motion_start_time_(services.instance.platform().clock.now()) {}

Velora::~Velora() = default;

void Velora::Class_Initialize() {
    guarded(log_, "Initialize ", [&] {
        core::VeloraLog& log = services_.instance.log;
        SetPowerUpState();
        log.debug([] { return "Initialize Velora Class Objects - Timer"; });
        command_timer_ = services_.timer_pools.GetTimer(weak_from_this());
        browser_timer_ = services_.timer_pools.GetIETimer(weak_from_this());
        queue_.set_timers(command_timer_, browser_timer_);
        log.debug([] { return "Initialize Velora Class Objects - IE"; });
        queue_.create_page_fetch();
        log.debug([] { return "Initialize Velora Class Objects -Dispatch"; });
        queue_.create_wait();
        log.debug([&] {
            return "Initialize Velora Class with  Timers of Type " + type_name(command_timer_) +
                   ", " + type_name(browser_timer_);
        });
    });
}

void Velora::Shutdown() {
    guarded(log_, "Shutdown ", [&] {
        queue_.drop_all();
        services_.timer_pools.ReleaseTimer(std::exchange(command_timer_, {}).index);
        services_.timer_pools.ReleaseIETimer(std::exchange(browser_timer_, {}).index);
        services_.instance.log.debug([&] { return "Terminate Class for Velora " + name_; });
    });
}

void Velora::SetPowerUpState() {
    guarded(log_, "SetPowerUpState ", [&] {
        backlight_is_on_ = true;
        is_awake_ = true;
        sleep_state_ = 1;
        top_led_ = "off";
        mail_led_ = "off";
        pending_sleep_state_ = 1;
        sounds_ = 0;
        sounds_volume_ = kSoundsVolumeAfterPowerOn;
        volume_ = -1;
        browser_full_screen_ = true;
        if (!device_code(SubDevice::Awake).empty()) {
            report_power_up_state();
        }
    });
}

void Velora::report_power_up_state() {
    constexpr std::pair<SubDevice, std::int32_t> kValues[] = {
        {SubDevice::Awake, 1},   {SubDevice::Backlight, 1},     {SubDevice::MailLed, 0},
        {SubDevice::TopLed, 0},  {SubDevice::SoundsVolume, 50}, {SubDevice::Volume, -1},
        {SubDevice::Browser, 1},
    };
    for (const auto& [sub_device, value] : kValues) {
        services_.instance.callback().ValueChangeEvent(device_code(sub_device), value);
    }
    devices::StatusBoard& board = services_.status_board;
    const auto volume_index = static_cast<std::int16_t>(
        devices::kStatusSoundsVolume + devices::DetermineVolumeIcon(kSoundsVolumeAfterPowerOn));
    board.show_silently(device_code(SubDevice::SoundsVolume),
                        board.FormatValue(volume_index, "50%"));
    board.show_silently(device_code(SubDevice::Browser),
                        board.FormatStatus(devices::kStatusFullScreen));
    board.show_silently(device_code(SubDevice::MailLed),
                        board.FormatStatus(devices::kStatusMailLedOff));
    board.show_silently(device_code(SubDevice::TopLed),
                        board.FormatStatus(devices::kStatusTopLedOff));
}

void Velora::SyncWithHomeseer() {
    guarded(log_, "SyncWithHomeseer ", [&] {
        host::HostInterface& hs = services_.instance.hs();
        if (!power_device_.empty() && !hs.isOn(power_device_)) {
            return;
        }
        for (const SubDevice sub_device : {SubDevice::Awake, SubDevice::TopLed, SubDevice::MailLed,
                                           SubDevice::SoundsVolume, SubDevice::Volume}) {
            const std::string& code = device_code(sub_device);
            services_.device_commands.SetVeloraIO(
                code.substr(0, 1), code.empty() ? code : code.substr(1), kSetValueCommand,
                automation::checked_int16(hs.DeviceValue(code)));
        }
        browser_full_screen_ = hs.DeviceValue(device_code(SubDevice::Browser)) != 0;
        sounds_ = automation::checked_int16(hs.DeviceValue(device_code(SubDevice::Sounds)));
    });
}

void Velora::set_Name(const std::string& name) {
    name_ = name;
    browser_flag_file_ = services_.instance.settings.WindowsShare + "\\" + name + ".txt";
}

void Velora::set_DeviceCodeBase(const std::string& base) {
    guarded(log_, "DeviceCodeBase ", [&] {
        device_code_base_ = base;
        if (base.empty()) {
            device_codes_.fill("");
            return;
        }
        const auto first = automation::parse_number(base.substr(1));
        if (!first) {
            return;
        }
        const std::int32_t number = automation::checked_int32(*first);
        for (std::size_t i = 0; i < device_codes_.size(); ++i) {
            device_codes_[i] = base.substr(0, 1) + std::to_string(number + static_cast<int>(i));
        }
        MakeDevice();
    });
}

void Velora::MakeDevice() {
    guarded(log_, "MakeDevice ", [&] {
        for (std::size_t i = 0; i < device_codes_.size(); ++i) {
            services_.host_devices.make_unit_device(device_codes_[i], static_cast<SubDevice>(i),
                                                    name_);
        }
    });
}

void Velora::set_MotionOffMinutes(std::int32_t minutes) {
    motion_off_minutes_ = std::min(minutes, kLongestMotionOff);
}

void Velora::set_EnableSlideshow(std::int16_t group) {
    enable_slideshow_ = group;
    slide_group_ = group;
}

void Velora::set_Slideshow(bool shows) {
    if (enable_slideshow_ != 0) {
        shows_slides_ = shows;
    }
}

void Velora::show_status(SubDevice sub_device, int index) {
    services_.status_board.show_status(device_code(sub_device), static_cast<std::int16_t>(index));
}

bool Velora::HasClient() {
    return services_.instance.settings.UseVeloraServer &&
           services_.udp_link.UDPClientAvailable(ip_);
}

std::string Velora::AsyncCommand(const std::string& command, std::int32_t timeout_ms,
                                 const std::string& tag) {
    return queue_.AsyncCommand(command, timeout_ms, tag);
}

}  // namespace appliance
