#include "devices/host_devices.h"

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "devices/status_board.h"
#include "host/clock.h"
#include "host/host_interface.h"

namespace devices {

namespace {

constexpr std::string_view kPluginName = "zynVelora";
constexpr std::string_view kXapHouseCode = "^";
constexpr std::int32_t kReportsValueChanges = 32768;
constexpr std::int32_t kOwnDeviceFlags = 32816;
constexpr std::int32_t kOwnDeviceFlagsOfOlderHosts = 48;

bool is_house_code_of(const host::DeviceFields& fields) {
    if (fields.interface_name != kPluginName && fields.iomisc != kPluginName) {
        return false;
    }
    const std::string letter = automation::to_upper(fields.hc);
    return !letter.empty() && (letter[0] < 'A' || letter[0] > 'Z');
}

}  // namespace

std::shared_ptr<host::Device> HostDevices::hsGetDevice(host::DeviceRef ref) {
    return automation::guarded(instance_.log, "hsGetDevice ", [&] {
        if (instance_.HostIsV2) {
            return instance_.hs().GetDeviceByRef(ref);
        }
        return instance_.hs().GetDevice(automation::checked_int16(ref));
    });
}

host::DeviceRef HostDevices::hsNewDevice(std::string_view name, std::string_view code) {
    return automation::guarded(instance_.log, "hsNewDevice ", [&] {
        if (instance_.HostIsV2) {
            return instance_.hs().NewDeviceRef(name);
        }
        return code.empty() ? instance_.hs().NewDevice(name) : instance_.hs().NewDevice(name, code);
    });
}

host::DeviceRef HostDevices::hsDeviceExists(std::string_view code) {
    host::DeviceRef ref = host::kNoDevice;
    automation::guarded(instance_.log, "hsDeviceExists ", [&] {
        ref = instance_.HostIsV2 ? instance_.hs().DeviceExistsRef(code)
                                 : instance_.hs().DeviceExists(code);
    });
    return ref;
}

std::shared_ptr<host::Device> HostDevices::device_with(std::string_view code) {
    const host::DeviceRef ref = hsDeviceExists(code);
    return ref == host::kNoDevice ? nullptr : hsGetDevice(ref);
}

std::shared_ptr<host::Device> HostDevices::NewHSDevice(std::string_view name, std::string_view code,
                                                       const OwnedDevice& owned) {
    return automation::guarded(instance_.log, "NewHSDevice: ", [&] {
        const bool code_at_birth = instance_.XapHosted;
        std::shared_ptr<host::Device> device =
            hsGetDevice(hsNewDevice(name, code_at_birth ? code : ""));
        if (device == nullptr) {
            return device;
        }
        host::DeviceFields fields = device->fields();
        if (!code_at_birth && !code.empty()) {
            fields.hc = code.substr(0, 1);
            fields.dc = code.substr(1);
        }
        fields.location = owned.location;
        fields.dev_type_string = "Velora";
        fields.interface_name = kPluginName;
        fields.misc = owned.misc;
        fields.iotype = owned.iotype;
        device->set_fields(fields);
        return device;
    });
}

std::string HostDevices::house_code_by_enumerator() {
    std::string found;
    auto devices = instance_.hs().GetDeviceEnumerator();
    while (!devices->Finished()) {
        if (devices->CountChanged()) {
            devices = instance_.hs().GetDeviceEnumerator();
            continue;
        }
        const std::shared_ptr<host::Device> device = devices->GetNext();
        if (device != nullptr && is_house_code_of(device->fields())) {
            found = device->fields().hc;
        }
    }
    return found;
}

std::string HostDevices::house_code_by_number() {
    const std::int32_t count = instance_.hs().DeviceCount();
    for (std::int32_t number = 1; number <= count; ++number) {
        const std::shared_ptr<host::Device> device = hsGetDevice(number);
        if (device != nullptr && is_house_code_of(device->fields())) {
            return device->fields().hc;
        }
    }
    return {};
}

std::string HostDevices::GetHouseCode() {
    return automation::guarded(instance_.log, " GetHouseCode: ", [&] {
        return instance_.HostIsV2 ? house_code_by_enumerator() : house_code_by_number();
    });
}

void HostDevices::InitDevices() {
    automation::guarded(instance_.log, "InitDevices: ", [&] {
        if (instance_.XapHosted) {
            instance_.HouseCode = kXapHouseCode;
            return;
        }
        std::string code = GetHouseCode();
        if (code.empty()) {
            const std::int32_t number = instance_.callback().GetNextFreeIOCode();
            code.assign(1, static_cast<char>(automation::checked_byte(number)));
            NewDevice(code + "99");
            instance_.hs().SaveIniSetting(core::kSettingsSection, "HouseCode",
                                          std::to_string(number), core::kSettingsFile);
        }
        instance_.HouseCode = code;
    });
}

bool HostDevices::make_own_device(std::string_view name, std::string_view code, std::int32_t misc) {
    if (hsDeviceExists(code) != host::kNoDevice) {
        return false;
    }
    return NewHSDevice(name, code, {.location = "Velora", .misc = misc}) != nullptr;
}

void HostDevices::NewDevice(std::string_view code) {
    automation::guarded(instance_.log, "NewDevice: ", [&] {
        if (make_own_device("Original Plugin Version", code, kOwnDeviceFlags)) {
            instance_.hs().SetDeviceString(
                code, "Original Install Version " + std::string(kProgramVersion));
            instance_.hs().SetDeviceLastChange(code, instance_.platform().clock.now());
        }
    });
}

void HostDevices::CIDDevice(std::string_view code) {
    automation::guarded(instance_.log, "CIDDevice: ", [&] {
        const std::int32_t misc =
            instance_.HostIsV2 ? kOwnDeviceFlags : kOwnDeviceFlagsOfOlderHosts;
        if (make_own_device("CID Detected", code, misc)) {
            instance_.hs().SetDeviceString(code, "");
            instance_.hs().SetDeviceStatus(code, host::kStatusOff);
            instance_.hs().SetDeviceLastChange(code, instance_.platform().clock.now());
            status_board_.announce(code);
        }
    });
}

void HostDevices::SetValueCallback() {
    if (!instance_.HostIsV2) {
        return;
    }
    automation::guarded(instance_.log, "SetValueCallback", [&] {
        auto devices = instance_.hs().GetDeviceEnumerator();
        while (!devices->Finished()) {
            const std::shared_ptr<host::Device> device = devices->GetNext();
            if (device == nullptr) {
                continue;
            }
            host::DeviceFields fields = device->fields();
            if (automation::equals_ignoring_case(fields.interface_name, kPluginName)) {
                fields.misc |= kReportsValueChanges;
                device->set_fields(fields);
            }
        }
    });
}

}  // namespace devices
