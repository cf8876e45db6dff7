#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "appliance/queue_timer.h"
#include "appliance/timer_pools.h"
#include "appliance/udp_link.h"
#include "appliance/velora.h"
#include "core/instance.h"
#include "devices/host_devices.h"
#include "devices/status_board.h"
#include "fleet/fleet.h"
#include "media/sound_files.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"

namespace support {

// What a line of the settings says of a unit beside its name.
struct UnitLine {
    std::string dc{};
    std::string power{};
    std::string motion{};
    int slideshow = 0;
    std::string caller_id{};
    std::string x10_server{};
};

// A house of units without the plug-in's entry class: host, machine and fleet, and the timers of
// the event object led to the units that have borrowed them. The settings are those of a house
// whose units get one try for each command, and can be changed before and after `open`.
class House final : private appliance::QueueTimerEvents,
                    private appliance::DeviceCommandTarget,
                    private appliance::UdpLink,
                    private devices::EndpointListener {
  public:
    static constexpr std::string_view kNames = "Velora Names";

    House();

    // A house whose units stand in the settings under these names, opened.
    explicit House(const std::vector<std::string>& names);
    House(const House&) = delete;
    House& operator=(const House&) = delete;

    // --- the house ------------------------------------------------------------------------------

    // A line of the settings: the unit "Hall" at 192.168.0.20 and so on, whose pages are fetched
    // from the host "hall".
    void add_unit(std::string_view name, const UnitLine& line = {});

    // Reads the settings' units, and forgets what was logged and done until then.
    void open();

    void run_for(std::chrono::milliseconds duration) { machine_.pump.run_for(duration); }

    // The unit's own web server, by the unit's name.
    [[nodiscard]] ScriptedUnit& unit(std::string_view name);

    // The unit as the plug-in has it. Throws: std::out_of_range without such a unit.
    [[nodiscard]] appliance::Velora& velora(const std::string& name);

    // A UDP client runs at the address of the unit, and the settings allow it.
    void runs_client(const std::string& name);

    // What the machinery around the units did: pages fetched, datagrams ("UDP Beep 3 to
    // 192.168.0.20"), power switched ("X10 A1 off").
    [[nodiscard]] const std::vector<std::string>& trace() const { return machine_.trace.lines(); }

    [[nodiscard]] std::vector<std::string> trace_without_time() const {
        return machine_.trace.without_time();
    }

    void clear_trace() { machine_.trace.clear(); }

    // Texts of the devices without their mark-up: what a person sees.
    [[nodiscard]] std::string shown(std::string_view code);

    // Codes of devices that listeners heard of, "SetVeloraIO [,12,19,1" of calls to devices.
    [[nodiscard]] const std::vector<std::string>& announced() const noexcept { return announced_; }

    [[nodiscard]] const std::vector<std::string>& device_commands() const noexcept {
        return device_commands_;
    }

    // --- its parts ------------------------------------------------------------------------------

    [[nodiscard]] FakeMachine& machine() noexcept { return machine_; }

    [[nodiscard]] MemoryHost& host() noexcept { return host_; }

    [[nodiscard]] const std::vector<std::string>& log() const noexcept { return host_.log(); }

    [[nodiscard]] core::Instance& instance() noexcept { return instance_; }

    [[nodiscard]] core::UtilitySettings& settings() noexcept { return instance_.settings; }

    [[nodiscard]] devices::HostDevices& host_devices() noexcept { return host_devices_; }

    [[nodiscard]] devices::StatusBoard& status_board() noexcept { return status_board_; }

    [[nodiscard]] media::SoundFiles& sound_files() noexcept { return sound_files_; }

    [[nodiscard]] appliance::TimerPools& timer_pools() noexcept { return timer_pools_; }

    [[nodiscard]] appliance::QueueTimer& queue_timer() noexcept { return queue_timer_; }

    [[nodiscard]] fleet::Fleet& fleet() noexcept { return fleet_; }

  private:
    void Timer1_Timer(std::size_t index) override;
    void IETimer_Timer(std::size_t index) override;

    void Timer2_Timer() override {}

    void ConnectTimer_Timer() override { queue_timer_.phJuke()->ConnectTimer_Timer(); }

    void SendTimer_Timer() override { queue_timer_.phJuke()->SendTimer_Timer(); }

    void SetVeloraIO(const std::string& house_code, const std::string& device_code,
                     std::int16_t command, std::int16_t brightness) override;

    [[nodiscard]] bool UDPClientAvailable(std::string_view address) override;
    std::string UDPSendCommand(std::string_view command, std::string_view parameter,
                               std::string_view address) override;
    std::string UDPSendCID(std::string& name, std::string& number,
                           std::string_view address) override;

    void SendXapBSC(std::string_view code) override { announced_.emplace_back(code); }

    FakeMachine machine_;
    MemoryHost host_;
    core::Instance instance_;
    devices::StatusBoard status_board_;
    devices::HostDevices host_devices_;
    media::SoundFiles sound_files_;
    appliance::TimerPools timer_pools_;
    appliance::QueueTimer queue_timer_;
    fleet::Fleet fleet_;

    int units_added_ = 0;
    std::set<std::string, std::less<>> clients_;
    std::vector<std::string> announced_;
    std::vector<std::string> device_commands_;
};

}  // namespace support
