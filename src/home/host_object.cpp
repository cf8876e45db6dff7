#include "home/host_object.h"

#include <algorithm>
#include <array>
#include <utility>

#include "automation/array.h"
#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "home/device_object.h"
#include "host/host_interface.h"
#include "host/plugin.h"

namespace home {

namespace {

using automation::Member;
using automation::method;
using automation::Object;

constexpr std::string_view kSettingsFile = "settings.ini";

host::Plugin* find_plugin(const std::vector<host::Plugin*>& plugins, const std::string& name) {
    const auto found = std::ranges::find_if(plugins, [&name](host::Plugin* plugin) {
        return automation::equals_ignoring_case(plugin->Name(), name);
    });
    return found == plugins.end() ? nullptr : *found;
}

}  // namespace

HostObject::HostObject(host::HostInterface& hs, Plugins plugins)
    : hs_(hs), plugins_(std::move(plugins)) {}

std::span<const Member> HostObject::members() const {
    using H = HostObject;
    static constexpr auto kMembers = std::to_array<Member>({
        method<&H::GetIniSetting>("GetIniSetting", "section, key, default, [file]"),
        method<&H::SaveIniSetting>("SaveIniSetting", "section, key, value, [file]"),
        method<&H::GetINISection>("GetINISection", "section, file"),
        method<&H::ClearINISection>("ClearINISection", "section, file"),
        method<&H::WriteLog>("WriteLog", "type, message"),
        method<&H::GetAppPath>("GetAppPath"),
        method<&H::Version>("Version"),
        method<&H::DeviceString>("DeviceString", "code"),
        method<&H::SetDeviceString>("SetDeviceString", "code, text"),
        method<&H::DeviceStatus>("DeviceStatus", "code"),
        method<&H::SetDeviceStatus>("SetDeviceStatus", "code, status"),
        method<&H::DeviceValue>("DeviceValue", "code"),
        method<&H::SetDeviceValue>("SetDeviceValue", "code, value"),
        method<&H::DeviceLastChange>("DeviceLastChange", "code"),
        method<&H::SetDeviceLastChange>("SetDeviceLastChange", "code, when"),
        method<&H::DeviceCount>("DeviceCount"),
        method<&H::DeviceExists>("DeviceExists", "code"),
        method<&H::DeviceExistsRef>("DeviceExistsRef", "code"),
        method<&H::GetDevice>("GetDevice", "number"),
        method<&H::GetDeviceByRef>("GetDeviceByRef", "ref"),
        method<&H::GetDeviceEnumerator>("GetDeviceEnumerator"),
        method<&H::NewDevice>("NewDevice", "name, [code]"),
        method<&H::NewDeviceRef>("NewDeviceRef", "name"),
        method<&H::DeleteDevice>("DeleteDevice", "ref"),
        method<&H::ExecX10>("ExecX10", "code, command"),
        method<&H::IsOn>("IsOn", "code"),
        method<&H::IsOff>("IsOff", "code"),
        method<&H::Plugin>("Plugin", "name"),
        method<&H::GetPlugins>("GetPlugins", "[name]"),
    });
    return kMembers;
}

std::string HostObject::GetIniSetting(const std::string& section, const std::string& key,
                                      const std::string& fallback,
                                      const std::optional<std::string>& file) {
    return hs_.GetIniSetting(section, key, fallback, file.value_or(std::string(kSettingsFile)));
}

void HostObject::SaveIniSetting(const std::string& section, const std::string& key,
                                const std::string& value, const std::optional<std::string>& file) {
    hs_.SaveIniSetting(section, key, value, file.value_or(std::string(kSettingsFile)));
}

std::string HostObject::GetINISection(const std::string& section, const std::string& file) {
    return hs_.GetINISection(section, file);
}

void HostObject::ClearINISection(const std::string& section, const std::string& file) {
    hs_.SaveINISection(section, {}, file);
}

void HostObject::WriteLog(const std::string& type, const std::string& message) {
    hs_.Writelog(type, message);
}

std::string HostObject::GetAppPath() {
    return hs_.GetAppPath();
}

std::string HostObject::Version() {
    return hs_.Version();
}

std::string HostObject::DeviceString(const std::string& code) {
    return hs_.DeviceString(code);
}

void HostObject::SetDeviceString(const std::string& code, const std::string& text) {
    hs_.SetDeviceString(code, text);
}

std::int32_t HostObject::DeviceStatus(const std::string& code) {
    return hs_.DeviceStatus(code);
}

void HostObject::SetDeviceStatus(const std::string& code, std::int32_t status) {
    hs_.SetDeviceStatus(code, status);
}

std::int32_t HostObject::DeviceValue(const std::string& code) {
    return hs_.DeviceValue(code);
}

void HostObject::SetDeviceValue(const std::string& code, std::int32_t value) {
    hs_.SetDeviceValue(code, value);
}

automation::Date HostObject::DeviceLastChange(const std::string& code) {
    return automation::date_of(hs_.DeviceLastChange(code));
}

void HostObject::SetDeviceLastChange(const std::string& code, automation::Date when) {
    hs_.SetDeviceLastChange(code, automation::date_time_of(when));
}

std::int32_t HostObject::DeviceCount() {
    return hs_.DeviceCount();
}

std::int32_t HostObject::DeviceExists(const std::string& code) {
    return hs_.DeviceExists(code);
}

std::int32_t HostObject::DeviceExistsRef(const std::string& code) {
    return hs_.DeviceExistsRef(code);
}

std::shared_ptr<Object> HostObject::GetDevice(std::int16_t number) {
    return DeviceObject::of(hs_.GetDevice(number));
}

std::shared_ptr<Object> HostObject::GetDeviceByRef(std::int32_t ref) {
    return DeviceObject::of(hs_.GetDeviceByRef(ref));
}

std::shared_ptr<Object> HostObject::GetDeviceEnumerator() {
    return std::make_shared<DeviceEnumeratorObject>(hs_.GetDeviceEnumerator());
}

std::int32_t HostObject::NewDevice(const std::string& name, std::optional<std::string> code) {
    return code ? hs_.NewDevice(name, *code) : hs_.NewDevice(name);
}

std::int32_t HostObject::NewDeviceRef(const std::string& name) {
    return hs_.NewDeviceRef(name);
}

void HostObject::DeleteDevice(std::int32_t ref) {
    hs_.DeleteDevice(ref);
}

void HostObject::ExecX10(const std::string& code, const std::string& command) {
    hs_.ExecX10(code, command);
}

bool HostObject::IsOn(const std::string& code) {
    return hs_.isOn(code);
}

bool HostObject::IsOff(const std::string& code) {
    return hs_.IsOff(code);
}

std::shared_ptr<Object> HostObject::Plugin(const std::string& name) {
    host::Plugin* plugin = find_plugin(plugins_(), name);
    if (plugin == nullptr) {
        throw automation::RunTimeError(automation::ErrorNumber::ActiveXCannotCreateObject,
                                       "The host carries no plug-in '" + name + "'");
    }
    return plugin->object();
}

automation::Value HostObject::GetPlugins(std::optional<std::string> name) {
    if (name) {
        return Plugin(*name);
    }
    std::vector<automation::Value> objects;
    for (host::Plugin* plugin : plugins_()) {
        objects.emplace_back(plugin->object());
    }
    return std::make_shared<automation::Array>(std::move(objects));
}

}  // namespace home
