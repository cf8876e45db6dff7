#include "slideshow/slideshow.h"

#include <algorithm>
#include <chrono>

#include "appliance/velora.h"
#include "automation/guarded.h"
#include "fleet/fleet.h"
#include "host/clock.h"
#include "host/host_interface.h"
#include "host/pump.h"

namespace slideshow {

namespace {

using namespace std::chrono_literals;

constexpr std::int16_t kStarted = 1;  // SlideshowMode
constexpr std::int16_t kStopped = 2;
constexpr std::chrono::milliseconds kMinute = 1min;
constexpr std::chrono::milliseconds kShortestInterval = 1s;

}  // namespace

std::string Slideshow::VeloraNextPicture() {
    const std::vector<std::string>& names = lists_.SlideshowFiles.FileNames;
    const double position =
        double{instance_.platform().random.next()} * static_cast<double>(names.size());
    return names[static_cast<std::size_t>(position)];
}

bool Slideshow::is_active() const {
    return instance_.SlideshowMode != kStopped ||
           std::ranges::any_of(fleet_.all(), [](const auto& unit) { return unit->Slideshow(); });
}

void Slideshow::UpdateSlideshow() {
    automation::guarded(instance_.log, "UpdateSlideshow ", [&] {
        host::Timer* const timer = timer_();
        if (timer == nullptr) {
            return;
        }
        if (!is_active()) {
            timer->set_enabled(false);
            save("SlideshowActive", "0");
        } else if (countdown_ >= 1) {
            --countdown_;
            timer->set_interval(kMinute);
            timer->set_enabled(true);
        } else {
            begin_interval(*timer);
            save("NextPicture", VeloraNextPicture());
            save("SlideshowActive", "1");
            timer->set_enabled(true);
        }
    });
}

void Slideshow::begin_interval(host::Timer& timer) {
    const std::chrono::milliseconds whole =
        std::chrono::seconds(instance_.settings.SlideshowUpdateSeconds);
    countdown_ = static_cast<std::int32_t>(whole / kMinute);
    std::chrono::milliseconds rest = whole % kMinute;
    if (rest <= kShortestInterval) {
        rest = countdown_ > 0 ? kMinute : kShortestInterval;
        countdown_ = std::max(countdown_ - 1, 0);
    }
    timer.set_interval(rest);
}

void Slideshow::save(std::string_view key, std::string_view value) const {
    instance_.hs().SaveIniSetting(core::kSettingsSection, key, value, core::kSettingsFile);
}

void Slideshow::keep_time() {
    const host::Timer* const timer = timer_();
    if (timer != nullptr && !timer->enabled()) {
        countdown_ = 0;
        UpdateSlideshow();
    }
}

void Slideshow::start() {
    instance_.SlideshowMode = kStarted;
    for (const auto& unit : fleet_.all()) {
        unit->ShowSlideshow("");
    }
    keep_time();
}

void Slideshow::stop() {
    instance_.SlideshowMode = kStopped;
    if (host::Timer* const timer = timer_()) {
        timer->set_enabled(false);
    }
    for (const auto& unit : fleet_.all()) {
        unit->set_Slideshow(false);
    }
}

}  // namespace slideshow
