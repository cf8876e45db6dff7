// The house on an xAP network: messages a second that are read and recorded on a tag, beside one
// copy of their bytes; and how long a command to an idle unit takes while 20,000 messages for
// others arrive each second, beside the same command in silence.

#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "answering_server.h"
#include "bench_house.h"
#include "core/instance.h"
#include "plugin/hspi.h"
#include "xap/filters.h"
#include "xapnet/node.h"
#include "xapnet/received_message.h"
#include "xapnet/wire_text.h"

namespace bench {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr double kLongTime = 1e9;  // seconds
constexpr const char* kLoopback = "127.0.0.1";
constexpr const char* kBroadcast = "127.255.255.255";

double seconds_since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

std::string frame(const std::string& message_class, const std::string& target) {
    return "xap-header\n{\nv=12\nhop=1\nuid=FF123400\nclass=" + message_class +
           "\nsource=acme.weather.roof\ntarget=" + target +
           "\n}\nweather.report\n{\nTempC=21\nWindM=3\nRain=0\nUpdated=20261124 100000\n}\n";
}

// --- recording ----------------------------------------------------------------------------------

void recorded_frames(benchmark::State& state) {
    constexpr int kFrames = 20'000;
    BenchMachine machine("127.0.0.31");
    core::Instance instance(machine.platform());
    instance.attach(machine.host(), &machine.host());
    instance.log.attach(&machine.host());
    machine.host().SaveIniSetting("Received", "acme.weather.roof~weather.report", "roof;",
                                  core::kSettingsFile);
    machine.host().SaveIniSetting("Devices", "roof", "", core::kSettingsFile);
    xap::Filters filters(instance, [](std::string_view) {});
    filters.InitFilterDictionary();
    filters.InitDeviceDictionary();
    const std::string datagram = frame("weather.report", "a.b.c");
    double ours = kLongTime;
    double copy = kLongTime;
    for (auto _ : state) {
        const auto start = Clock::now();
        for (int i = 0; i < kFrames; ++i) {
            xapnet::ParsedMessage parsed = xapnet::parse_message(xapnet::text_from_wire(datagram));
            filters.record(xapnet::ReceivedMessage(std::move(*parsed.message)));
        }
        const double time = seconds_since(start);
        ours = std::min(ours, time);
        state.SetIterationTime(time);
        const auto copy_start = Clock::now();
        for (int i = 0; i < kFrames; ++i) {
            const std::string copied(datagram);
            benchmark::DoNotOptimize(std::ranges::count(copied, '\n'));
        }
        copy = std::min(copy, seconds_since(copy_start));
    }
    if (filters.DeviceDictionary().find("roof")->Sequence < kFrames) {
        throw std::runtime_error("not all messages were recorded");
    }
    state.counters["messages/s"] = kFrames / ours;
    state.counters["ours/copy"] = ours / copy;
}

// --- a command under traffic --------------------------------------------------------------------

// Sends messages for others from a thread of its own, 20 a millisecond while it is switched on.
class Traffic {
  public:
    explicit Traffic(std::uint16_t port) : thread_([this, port] { run(port); }) {}

    Traffic(const Traffic&) = delete;
    Traffic& operator=(const Traffic&) = delete;

    ~Traffic() {
        is_over_ = true;
        thread_.join();
    }

    void set_on(bool on) { is_on_ = on; }

    [[nodiscard]] std::int64_t sent() const { return sent_; }

  private:
    void run(std::uint16_t port) {
        const int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        const int yes = 1;
        ::setsockopt(socket, SOL_SOCKET, SO_BROADCAST, &yes, sizeof yes);
        sockaddr_in place{};
        place.sin_family = AF_INET;
        place.sin_port = htons(port);
        place.sin_addr.s_addr = ::inet_addr(kBroadcast);
        const std::string datagram = frame("weather.report", "acme.display.*");
        auto next = Clock::now();
        while (!is_over_) {
            for (int i = 0; i < 20 && is_on_; ++i, ++sent_) {
                ::sendto(socket, datagram.data(), datagram.size(), 0,
                         reinterpret_cast<const sockaddr*>(&place), sizeof place);
            }
            next = std::max(next + 1ms, Clock::now() - 5ms);
            std::this_thread::sleep_until(next);
        }
        ::close(socket);
    }

    std::atomic<bool> is_on_ = false;
    std::atomic<bool> is_over_ = false;
    std::atomic<std::int64_t> sent_ = 0;
    std::thread thread_;
};

// The whole plug-in with one unit, on a network of its own port.
class XapHouse final : private xapnet::NodeListener {
  public:
    XapHouse()
        : machine_(server_.host_and_port()),
          own_(machine_.pump(), kLoopback),
          broadcast_(machine_.pump(), kBroadcast),
          node_(machine_.pump(), {own_, broadcast_, own_}, options(), *this,
                [](xapnet::LogLevel, std::string_view) {}),
          plugin_(machine_.platform()) {
        plugin_.RegisterCallback(machine_.host());
        plugin_.InitIO(0);
        node_.start();
        run_until_idle();
    }

    ~XapHouse() { plugin_.ShutdownIO(); }

    XapHouse(const XapHouse&) = delete;
    XapHouse& operator=(const XapHouse&) = delete;

    // Seconds from the call of an operation to its request at the unit.
    double command_time() {
        is_on_ = !is_on_;
        std::vector<automation::Value> arguments{"kitchen", is_on_ ? "on" : "off"};
        const int before = server_.requests();
        const auto start = Clock::now();
        plugin_.object()->call("VeloraTopLed", arguments);
        machine_.pump().run_until([&] { return server_.requests() > before; }, 10s);
        const std::chrono::duration<double> taken = server_.last_request_at() - start;
        run_until_idle();
        return taken.count();
    }

    void run_for(std::chrono::milliseconds time) {
        machine_.pump().run_until([] { return false; }, time);
    }

    [[nodiscard]] std::uint64_t heard() { return node_.status().delivered; }

    [[nodiscard]] std::uint16_t port() const { return static_cast<std::uint16_t>(port_); }

  private:
    void on_message(const host::XapMessage& message) override {
        plugin_.VeloraOnXapMessage(message);
    }

    xapnet::NodeOptions options() const {
        xapnet::NodeOptions options;
        options.source = "zyn.zynVelora.bench";
        options.unit_id = 1;
        options.interface_address = kLoopback;
        options.broadcast_address = kBroadcast;
        options.port = port_;
        return options;
    }

    void run_until_idle() {
        machine_.pump().run_until(
            [&] {
                const auto status = plugin_.status();
                return std::ranges::all_of(status.units, [](const host::UnitStatus& unit) {
                    return unit.waiting.empty() && unit.queue_text.starts_with("Queue: 0");
                });
            },
            10s);
    }

    std::int32_t port_ = 36'390;
    AnsweringServer server_{"127.0.0.31"};
    BenchMachine machine_;
    platform::AsioNetwork own_;
    platform::AsioNetwork broadcast_;
    xapnet::Node node_;
    plugin::hspi plugin_;
    bool is_on_ = false;
};

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void command_under_traffic(benchmark::State& state) {
    XapHouse house;
    Traffic traffic(house.port());
    std::vector<double> in_silence;
    std::vector<double> in_traffic;
    std::int64_t sent = 0;
    double traffic_seconds = 0;
    const std::uint64_t heard_before = house.heard();
    for (auto _ : state) {
        in_silence.push_back(house.command_time());
        traffic.set_on(true);
        const std::int64_t sent_before = traffic.sent();
        const auto start = Clock::now();
        house.run_for(100ms);
        in_traffic.push_back(house.command_time());
        sent += traffic.sent() - sent_before;
        traffic_seconds += seconds_since(start);
        traffic.set_on(false);
        house.run_for(50ms);
        state.SetIterationTime(in_traffic.back());
    }
    state.counters["sent/s"] = static_cast<double>(sent) / traffic_seconds;
    state.counters["heard"] =
        static_cast<double>(house.heard() - heard_before) / static_cast<double>(traffic.sent());
    state.counters["silence_us"] = median(in_silence) * 1e6;
    state.counters["traffic_us"] = median(in_traffic) * 1e6;
    state.counters["worst_us"] = *std::ranges::max_element(in_traffic) * 1e6;
    state.counters["traffic/silence"] = median(in_traffic) / median(in_silence);
}

BENCHMARK(recorded_frames)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(command_under_traffic)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(40);

}  // namespace
}  // namespace bench

BENCHMARK_MAIN();
