// Commands a second through one unit that answers at once. After each page the queue waits 50 ms by
// design: what the rest of the road adds to this floor is the figure.

#include <benchmark/benchmark.h>

#include <chrono>

#include "answering_server.h"
#include "bench_house.h"

namespace bench {
namespace {

constexpr int kCommands = 20;
constexpr int kRounds = 5;
constexpr std::chrono::duration<double> kHop = std::chrono::milliseconds(50);

void command_rate(benchmark::State& state) {
    const AnsweringServer server("127.0.0.31");
    BenchHouse house(server.host_and_port());
    const int before = server.requests();
    double seconds = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < kCommands; ++i) {
            house.call("VeloraTopLed", {"kitchen", i % 2 == 0 ? "on" : "off"});
        }
        house.run_until_idle();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(taken.count());
        seconds += taken.count();
    }
    if (server.requests() - before != kCommands * static_cast<int>(state.iterations())) {
        state.SkipWithError("not every command arrived once");
        return;
    }
    const double taken = seconds / static_cast<double>(state.iterations()) / kCommands;
    state.counters["commands/s"] = 1 / taken;
    state.counters["floor/s"] = 1 / kHop.count();
    state.counters["measured/floor"] = taken / kHop.count();
    state.counters["added_us"] = (taken - kHop.count()) * 1e6;  // to the hop of each command
}

BENCHMARK(command_rate)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(kRounds);

}  // namespace
}  // namespace bench

BENCHMARK_MAIN();
