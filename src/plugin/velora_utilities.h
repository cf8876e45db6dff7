#pragma once

#include <functional>
#include <string>

#include "core/instance.h"

namespace appliance {
class QueueTimer;
class TimerPools;
}  // namespace appliance

namespace callerid {
class CallerId;
}

namespace devices {
class HostDevices;
}

namespace fleet {
class Fleet;
class Supervision;
}  // namespace fleet

namespace pages {
class PageEngine;
}

namespace slideshow {
class Slideshow;
}

namespace webserver {
class TCPServerModule;
}

namespace plugin {

// What a settings load touches beside the settings record. All of it outlives the loader.
struct SettingsServices {
    core::Instance& instance;
    devices::HostDevices& host_devices;
    appliance::TimerPools& timer_pools;
    fleet::Fleet& fleet;
    fleet::Supervision& supervision;
    slideshow::Slideshow& slideshow;
    pages::PageEngine& page_engine;
    webserver::TCPServerModule& web_server;
    callerid::CallerId& caller_id;
    std::function<appliance::QueueTimer*()> queue_timer;  // none before it is loaded
};

// Reads the settings file into the settings record and applies it: web server, units, timers,
// picture lists, caller-ID device. Owned by the plug-in instance.
class VeloraUtilities {
  public:
    explicit VeloraUtilities(SettingsServices services) : services_(std::move(services)) {}

    // Reads every key anew; safe to repeat on a running house, whose units keep their queues. A
    // step that fails is reported, its field keeps its value, and the load goes on behind it.
    void InitVeloraUtilities();

    // --- the rules of single keys; see setting_steps.cpp -----------------------------------------

    void take_last_power_cycle_hour(const std::string& text);
    void make_temporary_folder(const std::string& text);
    void choose_server(const std::string& text);
    void read_host_port(const std::string& text);
    void take_friends_location(const std::string& text);
    void take_image_path(const std::string& text);
    void validate_slideshow_path(const std::string& text);
    void take_update_interval(const std::string& text);
    void take_power_cycle_time(const std::string& text);
    void take_power_cycle_interval(const std::string& text);
    void take_default_push_page(const std::string& text);
    void take_power_up_time(const std::string& text);
    void take_windows_share(const std::string& text);
    void take_debug_log(const std::string& text);
    void read_voice(const std::string& text);
    void take_sounds(const std::string& text);

  private:
    template <typename Step>
    void step(Step&& body);

    void start_over();
    void read_keys();
    void start_web_server();
    void arm_minute_timer();
    void read_slide_groups();
    void read_slide_group(std::size_t group);
    void read_slide_row(std::size_t group, std::size_t row);
    void define_caller_device();

    [[nodiscard]] core::UtilitySettings& settings() noexcept { return services_.instance.settings; }

    [[nodiscard]] std::string read(std::string_view key, std::string_view fallback) const;
    [[nodiscard]] std::string default_image_server();
    void log(std::string_view text);

    SettingsServices services_;
};

}  // namespace plugin
