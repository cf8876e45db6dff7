#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/members.h"

namespace host {
class HostInterface;
class Plugin;
}  // namespace host

namespace home {

// `hs`, the host as scripts and pages see it: settings, log, devices, power line and the plug-ins
// that it carries. Owned by the host; the values of scripts share it.
class HostObject final : public automation::TableObject {
  public:
    // The plug-ins that the host carries now.
    using Plugins = std::function<std::vector<host::Plugin*>()>;

    // `hs` must outlive the object.
    HostObject(host::HostInterface& hs, Plugins plugins);

    [[nodiscard]] std::string type_name() const override { return "Host"; }

    [[nodiscard]] std::span<const automation::Member> members() const override;

    // settings, log
    std::string GetIniSetting(const std::string& section, const std::string& key,
                              const std::string& fallback, const std::optional<std::string>& file);
    void SaveIniSetting(const std::string& section, const std::string& key,
                        const std::string& value, const std::optional<std::string>& file);
    std::string GetINISection(const std::string& section, const std::string& file);
    void ClearINISection(const std::string& section, const std::string& file);
    void WriteLog(const std::string& type, const std::string& message);
    std::string GetAppPath();
    std::string Version();

    // devices, by code
    std::string DeviceString(const std::string& code);
    void SetDeviceString(const std::string& code, const std::string& text);
    std::int32_t DeviceStatus(const std::string& code);
    void SetDeviceStatus(const std::string& code, std::int32_t status);
    std::int32_t DeviceValue(const std::string& code);
    void SetDeviceValue(const std::string& code, std::int32_t value);
    automation::Date DeviceLastChange(const std::string& code);
    void SetDeviceLastChange(const std::string& code, automation::Date when);

    // devices, as objects
    std::int32_t DeviceCount();
    std::int32_t DeviceExists(const std::string& code);
    std::int32_t DeviceExistsRef(const std::string& code);
    std::shared_ptr<automation::Object> GetDevice(std::int16_t number);
    std::shared_ptr<automation::Object> GetDeviceByRef(std::int32_t ref);
    std::shared_ptr<automation::Object> GetDeviceEnumerator();
    std::int32_t NewDevice(const std::string& name, std::optional<std::string> code);
    std::int32_t NewDeviceRef(const std::string& name);
    void DeleteDevice(std::int32_t ref);

    // power line
    void ExecX10(const std::string& code, const std::string& command);
    bool IsOn(const std::string& code);
    bool IsOff(const std::string& code);

    // Throws: RunTimeError 429 "... no plug-in 'name'".
    std::shared_ptr<automation::Object> Plugin(const std::string& name);

    // One by its name, or all of them as an array.
    automation::Value GetPlugins(std::optional<std::string> name);

  private:
    host::HostInterface& hs_;
    Plugins plugins_;
};

}  // namespace home
