#include "support/house.h"

#include <stdexcept>

#include "automation/code_page.h"

namespace support {

House::House()
    : instance_(machine_.platform()),
      status_board_(instance_),
      host_devices_(instance_, status_board_),
      sound_files_(instance_),
      timer_pools_(instance_.log),
      queue_timer_((instance_.attach(host_, &host_), instance_), *this),
      fleet_({instance_, timer_pools_, status_board_, host_devices_, sound_files_, *this, *this}) {
    instance_.application_path = host_.GetAppPath();
    instance_.HostIsV2 = true;
    instance_.StartupReady = true;
    status_board_.set_listener(this);
    timer_pools_.attach(&queue_timer_);
    machine_.files.put_folder(sound_files_.temporary_folder());
    host_.on_exec_x10 = [this](std::string_view code, std::string_view command) {
        machine_.trace.note("X10 " + std::string(code) + " " + std::string(command));
    };
    core::UtilitySettings& values = settings();
    values.CommandRetries = 1;
    values.PowerCycleTime = 5000;
    values.PowerUpTime = 75000;
    values.PushDelay = 5;
    values.HomeseerIP = "10.0.0.2";
    values.HomeseerPort = "81";
    values.ServerPort = "8080";
    values.UseOwnServer = true;
    values.FontColor = "white";
}

House::House(const std::vector<std::string>& names) : House() {
    for (const std::string& name : names) {
        add_unit(name);
    }
    open();
}

void House::add_unit(std::string_view name, const UnitLine& line) {
    const std::string key =
        "192.168.0." + std::to_string(20 + units_added_++) + "/" + automation::to_lower(name);
    host_.put_setting(kNames, key,
                      "\"" + std::string(name) + "," + line.dc + "," + line.power + "," +
                          line.motion + "," + std::to_string(line.slideshow) + "," +
                          line.caller_id + "," + line.x10_server + "\"");
}

void House::open() {
    fleet_.DefineVeloras();
    host_.forget();
    machine_.trace.clear();
    announced_.clear();
}

ScriptedUnit& House::unit(std::string_view name) {
    return machine_.units.unit(automation::to_lower(name));
}

appliance::Velora& House::velora(const std::string& name) {
    const auto unit = fleet_.GetOneVeloraObject(name);
    if (unit == nullptr) {
        throw std::out_of_range("no unit " + name);
    }
    return *unit;
}

void House::runs_client(const std::string& name) {
    settings().UseVeloraServer = true;
    clients_.insert(velora(name).IP());
}

std::string House::shown(std::string_view code) {
    const std::string text = host_.DeviceString(code);
    const auto end = text.rfind("</font>");
    if (end == std::string::npos) {
        return text;
    }
    const auto begin = text.rfind("'>", end) + 2;
    return text.substr(begin, end - begin);
}

void House::Timer1_Timer(std::size_t index) {
    if (const auto owner = timer_pools_.command_timer_owner(index)) {
        owner->TimerTimeout();
    }
}

void House::IETimer_Timer(std::size_t index) {
    if (const auto owner = timer_pools_.browser_timer_owner(index)) {
        queue_timer_.IETimer(index).set_enabled(false);
        owner->ReceiveData();
    }
}

void House::SetVeloraIO(const std::string& house_code, const std::string& device_code,
                        std::int16_t command, std::int16_t brightness) {
    device_commands_.push_back(house_code + "," + device_code + "," + std::to_string(command) +
                               "," + std::to_string(brightness));
}

bool House::UDPClientAvailable(std::string_view address) {
    return clients_.contains(address);
}

std::string House::UDPSendCommand(std::string_view command, std::string_view parameter,
                                  std::string_view address) {
    machine_.trace.note("UDP " + std::string(command) + " " + std::string(parameter) + " to " +
                        std::string(address));
    return {};
}

std::string House::UDPSendCID(std::string& name, std::string& number, std::string_view address) {
    machine_.trace.note("UDP caller " + name + "/" + number + " to " + std::string(address));
    return {};
}

}  // namespace support
