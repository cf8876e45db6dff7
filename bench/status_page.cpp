// The status page of a house of nine units with all that it can show, beside one copy of the
// finished page, and beside the joining of as many pieces as the page has cells and fields.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "automation/members.h"
#include "bench_house.h"
#include "plugin/subsystems.h"
#include "plugin/timer_events.h"

namespace bench {
namespace {

constexpr int kUnits = 9;
constexpr int kDevicesPerUnit = 10;
constexpr int kFilters = 10;
constexpr double kLongTime = 1e9;  // seconds

using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// A visit of a browser.
class Visit final : public automation::TableObject {
  public:
    [[nodiscard]] std::string ServerVariables(const std::string& name) const {
        return name == "REMOTE_ADDR" ? "127.0.0.99" : "";
    }

    [[nodiscard]] std::string Form(const std::string& /*name*/) const { return {}; }

    [[nodiscard]] std::string type_name() const override { return "Request"; }

    [[nodiscard]] std::span<const automation::Member> members() const override {
        using automation::method;
        static constexpr auto kMembers = std::to_array<automation::Member>({
            method<&Visit::ServerVariables>("ServerVariables", "name"),
            method<&Visit::Form>("Form", "name"),
        });
        return kMembers;
    }
};

// The plug-in's parts on the embedded host; no unit is ever asked for anything.
class StatusHouse {
  public:
    StatusHouse() : machine_("127.0.0.31"), parts_(machine_.platform()), timer_events_(parts_) {
        add_settings();
        parts_.instance.attach(host_, &host_);
        parts_.instance.HostIsV2 = true;
        parts_.instance.application_path = host_.GetAppPath();
        parts_.queue_timer =
            std::make_unique<appliance::QueueTimer>(parts_.instance, timer_events_);
        parts_.timer_pools.attach(parts_.queue_timer.get());
        parts_.fleet.DefineVeloras();
        parts_.xap_node.filters().InitFilterDictionary();
        parts_.xap_node.filters().InitDeviceDictionary();
        status::StatusState& state = parts_.status_state;
        state.ShowControl = state.ShowSetup = true;
        state.ShowReceiveMessages = state.ShowReceiveDetail = true;
        show_states();
    }

    ~StatusHouse() { parts_.fleet.shutdown(); }

    StatusHouse(const StatusHouse&) = delete;
    StatusHouse& operator=(const StatusHouse&) = delete;

    std::string page() { return parts_.status_asp.StatusPage(visit_, nullptr); }

  private:
    // Beside the unit that a home for benchmarks has, whose block is the first.
    void add_settings() {
        for (int unit = 1; unit < kUnits; ++unit) {
            host_.SaveIniSetting("Velora Names", "127.0.1." + std::to_string(unit),
                                 "Unit" + std::to_string(unit) + ",~1" +
                                     std::to_string(unit * kDevicesPerUnit + 1) + ",,,0,0,",
                                 core::kSettingsFile);
        }
        for (int filter = 0; filter < kFilters; ++filter) {
            host_.SaveIniSetting("Received", "acme.lamp" + std::to_string(filter) + "~lamp.state",
                                 "lamp" + std::to_string(filter) + ";1", core::kSettingsFile);
        }
    }

    void show_states() {
        for (int number = 1; number <= kUnits * kDevicesPerUnit; ++number) {
            parts_.status_board.show_status(parts_.instance.HouseCode + std::to_string(number), 11);
        }
    }

    BenchMachine machine_;
    home::EmbeddedHost& host_ = machine_.host();
    plugin::Subsystems parts_;
    plugin::TimerEvents timer_events_;
    std::shared_ptr<Visit> visit_ = std::make_shared<Visit>();
};

// The page in pieces, cut where cells and fields begin.
std::vector<std::string> pieces_of(const std::string& page) {
    std::vector<std::string> pieces;
    for (std::size_t begin = 0; begin < page.size();) {
        const std::size_t end = std::min(page.find('<', begin + 1), page.size());
        pieces.push_back(page.substr(begin, end - begin));
        begin = end;
    }
    return pieces;
}

void status_page(benchmark::State& state) {
    StatusHouse house;
    const std::string sample = house.page();
    if (!sample.ends_with("</html>")) {
        throw std::runtime_error("not the whole page");
    }
    const std::vector<std::string> pieces = pieces_of(sample);
    double ours = kLongTime;
    double joining = kLongTime;
    for (auto _ : state) {
        const auto start = Clock::now();
        benchmark::DoNotOptimize(house.page());
        const double taken = seconds_since(start);
        state.SetIterationTime(taken);
        ours = std::min(ours, taken);
        const auto join_start = Clock::now();
        std::string joined;
        for (const std::string& piece : pieces) {
            joined += piece;
        }
        benchmark::DoNotOptimize(joined);
        joining = std::min(joining, seconds_since(join_start));
    }
    state.counters["ours_us"] = ours * 1e6;
    state.counters["joining_us"] = joining * 1e6;
    state.counters["ours/joining"] = ours / joining;
    state.counters["bytes"] = static_cast<double>(sample.size());
}

BENCHMARK(status_page)->Iterations(500)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace bench

BENCHMARK_MAIN();
