#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "devices/host_devices.h"
#include "fleet/fleet.h"
#include "fleet/names_section.h"
#include "host/host_interface.h"

// From the section "Velora Names" to units and blocks of device numbers.
//
// An entry is `ip/computer="name,dc,power,motion,enableSlideshow,doCID,x10server"`; only the name
// is required, and "/computer" may be missing.
namespace fleet {

namespace {

using automation::guarded;
using automation::split;

constexpr int kDevicesPerUnit = 10;
constexpr int kHighestDeviceNumber = 63;

std::int16_t slide_group(const std::string& field) {
    const auto number = automation::parse_number(field);
    return number ? automation::checked_int16(*number) : std::int16_t{0};
}

}  // namespace

struct Fleet::NameLine {
    std::string key;
    std::vector<std::string> fields;
    std::string name;  // lower case, trimmed
};

// Which of the device numbers 1 to 63 belong to a unit.
class Fleet::DeviceNumbers {
  public:
    void mark_block(int first) {
        for (int number = first; number < first + kDevicesPerUnit; ++number) {
            if (number >= 1 && number <= kHighestDeviceNumber) {
                used_[static_cast<std::size_t>(number)] = true;
            }
        }
    }

    [[nodiscard]] bool is_used(int number) const { return used_[static_cast<std::size_t>(number)]; }

  private:
    std::array<bool, kHighestDeviceNumber + 1> used_{};
};

void Fleet::DefineVeloras() {
    guarded(services_.instance.log, "DefineVeloras: ", [&] {
        services_.host_devices.InitDevices();
        DeviceNumbers numbers;
        for (Appliance& appliance : table_) {
            appliance.VeloraActive = false;
        }
        power_device_list_.clear();
        const std::string section = names_section(services_.instance);
        if (section.empty()) {
            table_.front().VeloraDC.clear();
            settle(table_.front(), numbers);
        }
        for (const NameLine& line : lines_of(section)) {
            take_line(line, numbers);
        }
        remove_inactive();
        build_silent_list();
        remove_unused_devices(numbers);
    });
}

std::vector<Fleet::NameLine> Fleet::lines_of(const std::string& section) {
    std::vector<NameLine> lines;
    for (const std::string& entry : split(section, '\0')) {
        const std::vector<std::string> sides = split(entry, '=');
        if (sides.size() != 2 || sides[0].empty() || sides[1].empty()) {
            continue;
        }
        NameLine line{sides[0], split(sides[1], ','), {}};
        line.name = automation::to_lower(automation::trim(line.fields.front()));
        if (!line.name.empty()) {
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

Appliance& Fleet::slot_for(const NameLine& line) {
    const auto known = std::find_if(table_.begin(), table_.end(), [&](const Appliance& appliance) {
        return appliance.VeloraName == line.name;
    });
    if (known != table_.end()) {
        return *known;
    }
    services_.instance.log.debug(
        [&] { return "DefineVeloras Not Found Ubound =" + std::to_string(table_.size() - 1); });
    if (!table_.back().VeloraName.empty()) {
        table_.emplace_back();
    }
    velora_high_index_ = static_cast<std::int16_t>(static_cast<int>(table_.size()) - 2);
    return table_.back();
}

void Fleet::take_line(const NameLine& line, DeviceNumbers& numbers) {
    Appliance& appliance = slot_for(line);
    fill(appliance, line);
    if (appliance.VeloraDC.empty()) {
        allocate_block(appliance, line);
    }
    if (!appliance.VeloraDC.empty()) {
        appliance.VeloraName = line.name;
    }
    settle(appliance, numbers);
}

void Fleet::settle(Appliance& appliance, DeviceNumbers& numbers) {
    if (appliance.VeloraDC.empty()) {
        appliance.VeloraActive = false;
    } else {
        update_unit(appliance);
        if (appliance.VeloraDC.substr(0, 1) == services_.instance.HouseCode) {
            numbers.mark_block(
                static_cast<int>(automation::numeric_prefix(appliance.VeloraDC.substr(1))));
        }
    }
    note_power_device(appliance);
}

void Fleet::fill(Appliance& appliance, const NameLine& line) {
    appliance.VeloraActive = true;
    const std::size_t slash = line.key.find('/');
    appliance.VeloraIP =
        slash == std::string::npos ? line.key : automation::trim(line.key.substr(0, slash));
    appliance.VeloraComputer =
        slash == std::string::npos ? line.key : automation::trim(line.key.substr(slash + 1));
    const auto field = [&line](std::size_t index) {
        return index < line.fields.size() ? line.fields[index] : std::string();
    };
    appliance.VeloraDC = field(1);
    appliance.VeloraPowerDevice = automation::to_upper(field(2));
    appliance.VeloraMotionDevice = automation::to_upper(field(3));
    appliance.VeloraEnableSlideshow = slide_group(field(4));
    appliance.VeloraDoCID = field(5) == "1";
    appliance.VeloraX10Server = field(6);
}

void Fleet::allocate_block(Appliance& appliance, const NameLine& line) {
    core::Instance& instance = services_.instance;
    for (int first = 1; first <= kHighestDeviceNumber; first += kDevicesPerUnit) {
        const std::string code = instance.HouseCode + std::to_string(first);
        if (services_.host_devices.hsDeviceExists(code) == host::kNoDevice) {
            appliance.VeloraDC = code;
            break;
        }
    }
    if (appliance.VeloraDC.empty()) {
        return;
    }
    const std::string key = appliance.VeloraIP == appliance.VeloraComputer
                                ? appliance.VeloraIP
                                : appliance.VeloraIP + "/" + appliance.VeloraComputer;
    // Written as a word, though only "1" is read as true: kept, since files in use have both.
    const std::string value =
        "\"" + line.fields.front() + "," + store_brackets(appliance.VeloraDC) + "," +
        appliance.VeloraPowerDevice + "," + appliance.VeloraMotionDevice + "," +
        std::to_string(appliance.VeloraEnableSlideshow) + "," +
        automation::text_of(appliance.VeloraDoCID) + "," + appliance.VeloraX10Server + "\"";
    instance.hs().SaveIniSetting(kNamesSection, key, value, core::kSettingsFile);
    instance.log.debug([&] {
        return "DefineVeloras Saving Name " + line.fields.front() + " at " + appliance.VeloraDC;
    });
}

void Fleet::update_unit(Appliance& appliance) {
    const bool is_new = appliance.unit == nullptr;
    services_.instance.log.debug([&] {
        return (is_new ? "Initializing New Velora " : "Initializing Existing Velora ") +
               appliance.VeloraName;
    });
    if (is_new) {
        appliance.unit = appliance::Velora::create(services_);
    }
    appliance::Velora& unit = *appliance.unit;
    unit.set_Name(appliance.VeloraName);
    unit.set_IP(appliance.VeloraIP);
    unit.set_Computer(appliance.VeloraComputer);
    unit.set_DeviceCodeBase(appliance.VeloraDC);
    unit.set_PowerDevice(appliance.VeloraPowerDevice);
    unit.set_MotionDevice(appliance.VeloraMotionDevice);
    unit.set_EnableSlideshow(appliance.VeloraEnableSlideshow);
    unit.set_DoCID(appliance.VeloraDoCID);
    unit.set_MotionOffMinutes(0);
    unit.set_X10Server(appliance.VeloraX10Server);
}

void Fleet::note_power_device(const Appliance& appliance) {
    if (appliance.VeloraPowerDevice.empty()) {
        return;
    }
    power_device_list_ = "," + appliance.VeloraPowerDevice + "," + power_device_list_;
    if (services_.instance.XapHosted) {
        services_.instance.hs().SetDeviceStatusNoReport(appliance.VeloraPowerDevice,
                                                        host::kStatusOn, 0);
    }
}

void Fleet::remove_inactive() {
    if (velora_high_index_ < 1) {
        return;
    }
    // An inactive last entry stays.
    for (std::size_t index = 0; index + 1 < table_.size();) {
        if (table_[index].VeloraActive) {
            ++index;
            continue;
        }
        if (const auto unit = table_[index].unit) {
            unit->Shutdown();
        }
        table_.erase(table_.begin() + static_cast<std::ptrdiff_t>(index));
    }
}

void Fleet::build_silent_list() {
    std::vector<std::pair<std::string, std::int32_t>> silent;
    do_cid_names_.clear();
    for (const Appliance& appliance : table_) {
        if (!appliance.VeloraDoCID || appliance.VeloraDC.empty()) {
            continue;
        }
        const auto first = static_cast<std::int32_t>(
            automation::numeric_prefix(std::string_view(appliance.VeloraDC).substr(1)));
        silent.emplace_back(appliance.VeloraDC.substr(0, 1), first + kDevicesPerUnit - 1);
        do_cid_names_ += (do_cid_names_.empty() ? "" : ",") + appliance.VeloraName;
    }
    if (services_.instance.XapHosted) {
        services_.instance.hs().SetSilentDeviceCollection(silent);
    }
}

void Fleet::remove_unused_devices(const DeviceNumbers& numbers) {
    core::Instance& instance = services_.instance;
    for (int number = 1; number <= kHighestDeviceNumber; ++number) {
        if (numbers.is_used(number)) {
            continue;
        }
        const std::string code = instance.HouseCode + std::to_string(number);
        const host::DeviceRef ref = services_.host_devices.hsDeviceExists(code);
        if (ref == host::kNoDevice) {
            continue;
        }
        if (const auto device = services_.host_devices.hsGetDevice(ref)) {
            instance.hs().DeleteDevice(device->ref());
        }
        if (!instance.XapHosted) {
            instance.log.VeloraWriteLog(core::kLogType, "Removing virtual device " + code);
        }
    }
}

}  // namespace fleet
