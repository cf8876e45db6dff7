#include "automation/guarded.h"
#include "devices/host_devices.h"
#include "host/host_interface.h"

// The ten devices that stand for one unit.
namespace devices {

namespace {

constexpr std::string_view kPluginName = "zynVelora";
constexpr char kEntrySeparator = '\x01';
constexpr char kFieldSeparator = '\x02';

constexpr int kFirstSoundsDevice = 7;
constexpr int kHighestDeviceNumber = 63;

constexpr std::int32_t kNoButtons = 16;
constexpr std::int32_t kStatusOnlyDevice = 32;
constexpr std::int32_t kReportsValueChanges = 32768;
constexpr std::int32_t kTypeWithControls = 4;
constexpr std::int32_t kTypeStatusOnly = 2;

std::string button(std::int16_t index, std::string_view location) {
    return std::string(kPluginName) + kFieldSeparator + std::string(DeviceCommands(index)) + " @ " +
           std::string(location) + " Velora";
}

}  // namespace

std::string HostDevices::DefineValues(std::int16_t first, std::int16_t count) {
    std::string values;
    for (std::int16_t i = 0; i < count; ++i) {
        if (i > 0) {
            values += kEntrySeparator;
        }
        values += DeviceCommands(static_cast<std::int16_t>(first + i));
        values += kFieldSeparator + std::to_string(i);
    }
    return values;
}

std::string HostDevices::DefineButtons(std::int16_t first, std::int16_t count,
                                       std::string_view location) const {
    std::string buttons;
    if (instance_.settings.StatusOnly) {
        return buttons;
    }
    for (std::int16_t i = 0; i < count; ++i) {
        if (i > 0) {
            buttons += kEntrySeparator;
        }
        buttons += button(static_cast<std::int16_t>(first + i), location);
    }
    return buttons;
}

std::string HostDevices::UpdateSoundsButton(std::string_view location) const {
    return automation::guarded(instance_.log, "UpdateSoundsButton: ", [&] {
        std::string buttons;
        if (instance_.settings.StatusOnly) {
            return buttons;
        }
        for (std::size_t i = 0; i < core::kSoundCount; ++i) {
            if (instance_.settings.SoundButtonEnabled[i]) {
                buttons += kEntrySeparator;
                buttons += button(static_cast<std::int16_t>(kStatusFirstSound + i), location);
            }
        }
        return buttons.empty() ? buttons : buttons.substr(1);
    });
}

void HostDevices::UpdateButtons() {
    automation::guarded(instance_.log, "UpdateButtons: ", [&] {
        for (int number = kFirstSoundsDevice; number <= kHighestDeviceNumber;
             number += static_cast<int>(kSubDeviceCount)) {
            const auto device = device_with(instance_.HouseCode + std::to_string(number));
            if (device == nullptr) {
                continue;
            }
            host::DeviceFields fields = device->fields();
            fields.buttons = UpdateSoundsButton(fields.location);
            device->set_fields(fields);
        }
    });
}

void HostDevices::write_unit_device(host::Device& device, SubDevice sub_device,
                                    std::string_view location, std::int32_t flags) {
    const host::DeviceFields before = device.fields();
    host::DeviceFields fields = before;
    if (sub_device == SubDevice::Reserved) {
        fields.iotype = kTypeStatusOnly;
        fields.misc = flags | kStatusOnlyDevice;
    } else {
        const SubDeviceRow& row = kSubDevices[static_cast<std::size_t>(sub_device)];
        fields.misc = flags;
        fields.values = DefineValues(row.first, row.count);
        fields.buttons = sub_device == SubDevice::Sounds
                             ? UpdateSoundsButton(fields.location)
                             : DefineButtons(row.first, row.count, location);
    }
    // A reload finds most devices as they are, and hosts keep what they are told on disk.
    if (fields != before) {
        device.set_fields(fields);
    }
}

void HostDevices::make_unit_device(std::string_view code, SubDevice sub_device,
                                   std::string_view location) {
    const host::DeviceRef ref = hsDeviceExists(code);
    instance_.log.debug(
        [&] { return "MakeDevice " + std::string(code) + ", Ref=" + std::to_string(ref); });
    std::shared_ptr<host::Device> device;
    std::int32_t flags = 0;
    if (ref != host::kNoDevice) {
        device = hsGetDevice(ref);
        if (device == nullptr) {
            return;
        }
        flags = (device->fields().misc & ~kNoButtons) |
                (instance_.HostIsV2 ? kReportsValueChanges : 0) |
                (instance_.settings.StatusOnly ? kNoButtons : 0);
    } else {
        const SubDeviceRow& row = kSubDevices[static_cast<std::size_t>(sub_device)];
        device = NewHSDevice("Velora " + std::string(row.name), code,
                             {.location = location, .iotype = kTypeWithControls});
        if (device == nullptr) {
            return;
        }
        instance_.log.debug([&] { return "MakeDevice Created for " + std::string(location); });
    }
    write_unit_device(*device, sub_device, location, flags);
}

}  // namespace devices
