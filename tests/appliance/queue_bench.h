#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "appliance/command_queue.h"
#include "appliance/udp_link.h"
#include "core/instance.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"

namespace appliance {

// One command queue on a test bench: a unit "hall" with power switch A1 at 192.168.0.20, whose
// owner does nothing but note what the queue makes it do. Its settings: one try for each command,
// 5 s without power, 75 s to boot, and no power cycle on silence.
class QueueBench final : private QueueOwner, private UdpLink {
  public:
    static constexpr std::string_view kQueueDevice = "[10";

    QueueBench();
    QueueBench(const QueueBench&) = delete;
    QueueBench& operator=(const QueueBench&) = delete;

    // --- verbs ----------------------------------------------------------------------------------

    std::string send(const std::string& command, std::int32_t timeout_ms = 5000) {
        return queue_.AsyncCommand(command, timeout_ms, "");
    }

    // Pages "cmd.shtml?1" and so on, as many, the first number given.
    void send_pages(int count, int first = 1);

    void run_for(std::chrono::milliseconds duration) { machine.pump.run_for(duration); }

    [[nodiscard]] support::ScriptedUnit& unit() { return machine.units.unit(computer); }

    // Silence makes the unit be power cycled.
    void cycles_on_silence() { settings().noResponseAction = true; }

    // The state in one word: "idle", "fetching", "UDP gap", "delay", "power off", "boot",
    // "given up", "disabled".
    [[nodiscard]] std::string state() const;

    // What left the house, with the time and without.
    [[nodiscard]] const std::vector<std::string>& trace() const { return machine.trace.lines(); }

    [[nodiscard]] std::vector<std::string> events() const { return machine.trace.without_time(); }

    [[nodiscard]] std::string queue_device_text() { return host.DeviceString(kQueueDevice); }

    // --- parts ----------------------------------------------------------------------------------

    [[nodiscard]] CommandQueue& queue() noexcept { return queue_; }

    [[nodiscard]] core::UtilitySettings& settings() noexcept { return instance.settings; }

    [[nodiscard]] host::Timer& command_timer() noexcept { return *command_timer_; }

    support::FakeMachine machine;
    support::MemoryHost host;
    core::Instance instance{machine.platform()};

    // What the unit is; may be changed.
    std::string computer = "hall";
    std::string power_device = "A1";
    std::string flag_file = "\\\\pc\\share\\hall.txt";
    std::string queue_device_code{kQueueDevice};

    // Runs when the unit has booted, after it was noted as "booted".
    std::function<void()> on_boot_finished;

  private:
    [[nodiscard]] const std::string& Name() const override { return name_; }

    [[nodiscard]] const std::string& IP() const override { return ip_; }

    [[nodiscard]] const std::string& Computer() const override { return computer; }

    [[nodiscard]] const std::string& PowerDevice() const override { return power_device; }

    [[nodiscard]] const std::string& BrowserFlagFile() const override { return flag_file; }

    [[nodiscard]] const std::string& queue_device() const override { return queue_device_code; }

    void hsExecX10(std::string_view code, std::string_view command) override;

    void power_came_back() override { machine.trace.note("power came back"); }

    void boot_finished() override;

    std::string UDPSendCommand(std::string_view command, std::string_view parameter,
                               std::string_view address) override;
    std::string UDPSendCID(std::string& name, std::string& number,
                           std::string_view address) override;

    std::string name_ = "hall";
    std::string ip_ = "192.168.0.20";
    UnitLog log_{instance.log, name_};
    CommandQueue queue_{instance, *this, log_, *this};
    std::unique_ptr<host::Timer> command_timer_;
    std::unique_ptr<host::Timer> browser_timer_;
};

}  // namespace appliance
