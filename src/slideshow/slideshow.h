#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/instance.h"
#include "slideshow/picture_list.h"

namespace fleet {
class Fleet;
}

namespace host {
class Timer;
}

namespace slideshow {

// The pictures of the house's slideshow, its start and end, and the timer that marks its time for
// pages of the host. Which slide a unit shows next is decided when it asks, by SlideshowAsp. Owned
// by the plug-in.
class Slideshow {
  public:
    // `timer` gives the slideshow's timer, none before start-up and after shut-down.
    Slideshow(core::Instance& instance, fleet::Fleet& fleet, std::function<host::Timer*()> timer)
        : instance_(instance), fleet_(fleet), timer_(std::move(timer)) {}

    Slideshow(const Slideshow&) = delete;
    Slideshow& operator=(const Slideshow&) = delete;

    [[nodiscard]] PictureLists& lists() noexcept { return lists_; }

    // The name of a picture of the main list, chosen by chance; "" of an empty list.
    [[nodiscard]] std::string VeloraNextPicture();

    // The timer's tick, about once in `SlideshowUpdateInterval`: first what is left over of whole
    // minutes, then each minute. Chooses the next picture and tells it the host in the settings;
    // the timer ends when the slideshow is stopped and no unit shows it. A failure is logged.
    void UpdateSlideshow();

    // A unit has started to show slides: the timer runs from now on, if it does not already.
    void keep_time();

    // What the entries of the host's menu do. May pump.
    void start();
    void stop();

  private:
    [[nodiscard]] bool is_active() const;
    void begin_interval(host::Timer& timer);
    void save(std::string_view key, std::string_view value) const;

    core::Instance& instance_;
    fleet::Fleet& fleet_;
    std::function<host::Timer*()> timer_;
    PictureLists lists_;
    std::int32_t countdown_ = 0;  // whole minutes until the next picture
};

}  // namespace slideshow
