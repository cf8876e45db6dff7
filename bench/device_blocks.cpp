// A reload of the units' devices in a house with many devices of others: how long it takes to find
// the house code, to bring the blocks of nine units up to date and to look for devices that belong
// to no unit, beside one plain walk over all devices. The best of all rounds counts for each.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>

#include "bench_house.h"
#include "plugin/subsystems.h"
#include "plugin/timer_events.h"

namespace bench {
namespace {

constexpr int kForeignDevices = 5000;
constexpr int kUnits = 9;
constexpr int kDevicesPerUnit = 10;
constexpr int kRounds = 50;
constexpr double kLongTime = 1e9;  // seconds

using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// The plug-in's parts on a host of one generation; no unit of it is ever asked for anything.
class CrowdedHouse {
  public:
    explicit CrowdedHouse(const std::string& host_version)
        : machine_("127.0.0.31", host_version), parts_(machine_.platform()), timer_events_(parts_) {
        add_foreign_devices();
        add_units();
        parts_.instance.attach(host_, &host_);
        parts_.instance.HostIsV2 = host_version.front() > '1';
        parts_.queue_timer =
            std::make_unique<appliance::QueueTimer>(parts_.instance, timer_events_);
        parts_.timer_pools.attach(parts_.queue_timer.get());
        parts_.fleet.DefineVeloras();
        if (parts_.fleet.all().size() != kUnits ||
            host_.DeviceCount() != kForeignDevices + kUnits * kDevicesPerUnit + 1) {
            throw std::runtime_error("not all units have their devices");
        }
    }

    ~CrowdedHouse() { parts_.fleet.shutdown(); }

    CrowdedHouse(const CrowdedHouse&) = delete;
    CrowdedHouse& operator=(const CrowdedHouse&) = delete;

    void define_units() { parts_.fleet.DefineVeloras(); }

    // Looks at what each device is, as anybody would who searches one.
    int walk() {
        int own = 0;
        if (parts_.instance.HostIsV2) {
            for (const auto devices = host_.GetDeviceEnumerator(); !devices->Finished();) {
                own += devices->GetNext()->fields().interface_name == "zynVelora" ? 1 : 0;
            }
            return own;
        }
        const std::int32_t count = host_.DeviceCount();
        for (std::int32_t number = 1; number <= count; ++number) {
            const auto device = host_.GetDevice(static_cast<std::int16_t>(number));
            own += device->fields().interface_name == "zynVelora" ? 1 : 0;
        }
        return own;
    }

  private:
    void add_foreign_devices() {
        for (int i = 0; i < kForeignDevices; ++i) {
            host_.NewDevice("A switch of somebody");
            const auto device = host_.GetDevice(static_cast<std::int16_t>(i + 1));
            host::DeviceFields fields = device->fields();
            fields.hc = std::string(1, static_cast<char>('A' + i % 16));
            fields.dc = std::to_string(i / 16 + 1);
            fields.location = "Living room";
            fields.interface_name = "Somebody's plug-in";
            device->set_fields(fields);
        }
    }

    // Beside the one that a home for benchmarks has, whose block is the first.
    void add_units() {
        for (int unit = 1; unit < kUnits; ++unit) {
            host_.SaveIniSetting("Velora Names", "127.0.1." + std::to_string(unit),
                                 "Unit" + std::to_string(unit) + ",~1" +
                                     std::to_string(unit * kDevicesPerUnit + 1) + ",,,0,0,",
                                 core::kSettingsFile);
        }
    }

    BenchMachine machine_;
    home::EmbeddedHost& host_ = machine_.host();
    plugin::Subsystems parts_;
    plugin::TimerEvents timer_events_;
};

void device_blocks(benchmark::State& state, const char* host_version) {
    CrowdedHouse house(host_version);
    double ours = kLongTime;
    double walk = kLongTime;
    for (auto _ : state) {
        const auto start = Clock::now();
        house.define_units();
        const double taken = seconds_since(start);
        state.SetIterationTime(taken);
        ours = std::min(ours, taken);
        const auto walk_start = Clock::now();
        benchmark::DoNotOptimize(house.walk());
        walk = std::min(walk, seconds_since(walk_start));
    }
    state.counters["ours_us"] = ours * 1e6;
    state.counters["walk_us"] = walk * 1e6;
    state.counters["ours/walk"] = ours / walk;
}

BENCHMARK_CAPTURE(device_blocks, newer_host, "2.5.0")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(kRounds);
BENCHMARK_CAPTURE(device_blocks, older_host, "1.7.0")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(kRounds);

}  // namespace
}  // namespace bench

BENCHMARK_MAIN();
