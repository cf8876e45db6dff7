#include "fleet/supervision.h"

#include <algorithm>
#include <chrono>
#include <memory>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "fleet/fleet.h"
#include "host/clock.h"
#include "host/host_interface.h"

namespace fleet {

namespace {

using appliance::Velora;
using automation::guarded;

constexpr std::string_view kAlwaysAwake = "always awake";
constexpr std::string_view kSlideshowPage = "VeloraSlideshow.asp";
constexpr int kMissedSlides = 5;               // until a unit counts as one that has stopped
constexpr std::int32_t kMinutesLeftToDim = 5;  // before the end of the time without motion
constexpr std::size_t kShortestSensorCode = 2;

std::int16_t hour_of(automation::DateTime moment) {
    const auto of_day = moment - std::chrono::floor<std::chrono::days>(moment);
    return static_cast<std::int16_t>(std::chrono::floor<std::chrono::hours>(of_day).count());
}

}  // namespace

void Supervision::restart_sleep_check() noexcept {
    sleep_check_countdown_ = instance_.settings.SleepMonitorInterval;
}

// --- sleep ---------------------------------------------------------------------------------------

void Supervision::UpdateSleepModeStatus() {
    guarded(instance_.log, "UpdateSleepModeStatus ", [&] {
        instance_.log.debug([&] {
            return "Periodic Check of SleepModeTimer=" + std::to_string(sleep_check_countdown_);
        });
        for (const auto& unit : fleet_.all()) {
            if (unit->Sleep() == kAlwaysAwake) {
                unit->set_Sleep(std::string(kAlwaysAwake));
            }
        }
        if (instance_.settings.SleepMonitorInterval == 0) {
            return;
        }
        sleep_check_countdown_ = automation::add_int16(sleep_check_countdown_, -1);
        if (sleep_check_countdown_ >= 0) {
            return;
        }
        restart_sleep_check();
        for (const auto& unit : fleet_.all()) {
            unit->RefreshSleepStatus("");
        }
    });
}

// --- slideshow -----------------------------------------------------------------------------------

void Supervision::UpdateSlideshowNoMotionStatus() {
    guarded(instance_.log, "UpdateSlideshowNoMotionStatus ", [&] {
        const Fleet::Selection units = fleet_.all();
        instance_.log.debug([&] {
            return "Slideshow NoMotion Time=" +
                   std::to_string(instance_.settings.SlideshowNoMotionTime) +
                   ", MinutesNoMotion(firstVelora)=" +
                   (units.empty() ? std::string()
                                  : std::to_string(units.front()->MotionOffMinutes()));
        });
        for (const auto& unit : units) {
            if (unit->Slideshow() && is_watched(*unit) && unit->Sleep() != kAlwaysAwake) {
                unit->set_Sleep("awake");
            }
        }
    });
}

bool Supervision::is_watched(Velora& unit) {
    if (unit.MotionDevice().size() < kShortestSensorCode) {
        return true;
    }
    if (!instance_.hs().IsOff(unit.MotionDevice())) {
        unit.set_MotionOffMinutes(0);
        return false;
    }
    const std::int16_t limit = instance_.settings.SlideshowNoMotionTime;
    if (limit > 0) {
        unit.set_MotionOffMinutes(unit.MotionOffMinutes() + 1);
        return unit.MotionOffMinutes() < limit - kMinutesLeftToDim;
    }
    const std::chrono::seconds interval(instance_.settings.SlideshowUpdateSeconds);
    if (unit.SlideshowTime() + kMissedSlides * interval <= instance_.platform().clock.now()) {
        unit.set_Slideshow(false);
        return false;
    }
    return true;
}

// --- power ---------------------------------------------------------------------------------------

void Supervision::EvaluatePowerCycle() {
    guarded(instance_.log, "EvaluatePowerCycle ", [&] {
        core::UtilitySettings& settings = instance_.settings;
        if (settings.PowerCycleInterval.empty()) {
            return;
        }
        if (cycle_index_ >= 0) {
            cycle_next_unit();
            return;
        }
        const std::int16_t hour = hour_of(instance_.platform().clock.now());
        if (hour == 0 && settings.LastPowerCycleHour >= 1) {
            settings.LastPowerCycleHour = -1;
        }
        if (hour <= settings.LastPowerCycleHour || !is_scheduled(hour)) {
            return;
        }
        settings.LastPowerCycleHour = hour;
        instance_.hs().SaveIniSetting(core::kSettingsSection, "LastPowerCycleHour",
                                      std::to_string(hour), core::kSettingsFile);
        if (!fleet_.is_empty()) {
            cycle_index_ = static_cast<std::int16_t>(fleet_.table().size() - 1);
        }
    });
}

// The fleet may have become smaller since the last minute.
void Supervision::cycle_next_unit() {
    const auto index = static_cast<std::size_t>(cycle_index_--);
    if (index < fleet_.table().size()) {
        if (const auto unit = fleet_.table()[index].unit) {
            unit->CyclePower("");
        }
    }
}

bool Supervision::is_scheduled(std::int16_t hour) const {
    return std::ranges::any_of(
        automation::split(instance_.settings.PowerCycleInterval, ','),
        [hour](const std::string& entry) { return automation::parse_number(entry) == hour; });
}

// --- motion --------------------------------------------------------------------------------------

void Supervision::CheckMotionEvent(const std::string& code, std::int32_t status) {
    guarded(instance_.log, "CheckMotionEvent ", [&] {
        instance_.log.debug([&] {
            return "X10 Callback " + code + "=" + std::to_string(status) +
                   " was on=" + automation::text_of(instance_.hs().isOn(code));
        });
        const std::string sensor = automation::to_upper(code);
        const auto unit = unit_of_sensor(sensor);
        if (unit == nullptr || status != host::kStatusOn) {
            return;
        }
        if (instance_.hs().IsOff(sensor)) {
            unit->set_MotionStartTime(instance_.platform().clock.now());
        }
        put_out_seen_lights(*unit);
        if (unit->Sleep() == "sleep") {
            awaken(*unit);
        } else if (instance_.settings.AwakenOnMotion && unit->Sleep() != kAlwaysAwake) {
            unit->set_Sleep("awake");
        }
    });
}

std::shared_ptr<Velora> Supervision::unit_of_sensor(const std::string& code) const {
    const auto& table = fleet_.table();
    const auto found = std::ranges::find(table, code, &Appliance::VeloraMotionDevice);
    return found == table.end() ? nullptr : found->unit;
}

// Somebody who has moved about in front of a light for long enough has seen it.
void Supervision::put_out_seen_lights(Velora& unit) {
    const auto moving = std::chrono::floor<std::chrono::seconds>(instance_.platform().clock.now() -
                                                                 unit.MotionStartTime());
    if (moving.count() <= instance_.settings.LEDMotionTime) {
        return;
    }
    if (unit.TopLED() != "off") {
        unit.SetTopLED("off", "");
    }
    if (unit.MailLED() != "off") {
        unit.SetMailLED("off", "");
    }
}

void Supervision::awaken(Velora& unit) {
    const core::UtilitySettings& settings = instance_.settings;
    if (unit.EnableSlideshow() != 0 && settings.StartSlildeshow) {
        unit.set_Sleep("awake");
        unit.PushPage(std::string(kSlideshowPage), "");
        unit.SetWaitsecs(settings.PushDelay, "");
        unit.SetBrowserScreen(true, "");
        unit.set_Slideshow(true);
    } else if (settings.AwakenOnMotion) {
        unit.set_Sleep("awake");
    }
}

}  // namespace fleet
