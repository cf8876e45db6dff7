#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/utility_settings.h"
#include "core/velora_log.h"
#include "host/platform.h"

namespace host {
class CallbackObject;
class HostInterface;
}  // namespace host

namespace core {

// What is "module-wide" in one plug-in instance: role, phase, settings, log, and the way to host
// and platform. Owned by the plug-in's entry class; every subsystem holds a reference.
class Instance {
  public:
    explicit Instance(host::Platform platform) : platform_(platform) {}

    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    // The host, once it has handed itself over. Throws: RunTimeError 91 before.
    [[nodiscard]] host::HostInterface& hs() const;
    [[nodiscard]] host::CallbackObject& callback() const;
    void attach(host::CallbackObject& callback, host::HostInterface* hs) noexcept;

    [[nodiscard]] host::Platform& platform() noexcept { return platform_; }

    // `hs.GetAppPath`, without trailing backslash.
    std::string application_path;

    // role
    bool XapHosted = false;
    bool InstanceActive = true;
    bool HostIsV2 = false;
    std::int32_t HostVersionNumber = 0;

    // phase
    bool StartupReady = false;
    bool ShuttingDown = false;

    // 0 at each load of the settings, 1 after "Start Slideshow", 2 after "Stop Slideshow".
    std::int16_t SlideshowMode = 0;

    // Set once a call has gone out to the xAP network, cleared at each load of the settings.
    bool XapCIDSent = false;

    // What the xAP network has told of today's sun, "" before.
    std::string Sunrise;
    std::string Sunset;

    // The plug-in's one I/O house code, a character outside "A" to "Z".
    std::string HouseCode;

    UtilitySettings settings;
    VeloraLog log;

  private:
    host::Platform platform_;
    host::CallbackObject* callback_ = nullptr;
    host::HostInterface* hs_ = nullptr;
};

// A value of zynVeloraUtilities.ini with all double quotes removed.
[[nodiscard]] std::string read_setting(const Instance& instance, std::string_view section,
                                       std::string_view key, std::string_view fallback);

inline constexpr std::string_view kSettingsFile = "zynVeloraUtilities.ini";
inline constexpr std::string_view kSettingsSection = "Velora Utilities";

[[nodiscard]] std::string without_quotes(std::string text);

// A random text such as "1.705547" that marks one command.
[[nodiscard]] std::string MakeTag(Instance& instance);

// "<application path>\HTML", the root of all served files.
[[nodiscard]] std::string html_root(const Instance& instance);

// Appends "<now> | <step> | <detail>" to Data\zynVelora\StartupLog.txt, making folders and file.
// Throws: RunTimeError of the file service.
void StartupLog(Instance& instance, std::string_view step, std::string_view detail);

}  // namespace core
