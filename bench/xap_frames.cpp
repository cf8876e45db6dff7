// Frames of an xAP network that are for somebody else, the usual case: each is read, held against
// an address and a class, and dropped. Beside it one copy of the same bytes with a search for their
// line ends, the least that any reader of lines has to do. The best of all rounds counts for each.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "xapnet/received_message.h"
#include "xapnet/wire_text.h"

namespace bench {
namespace {

constexpr int kRounds = 200;
constexpr int kFrames = 2000;
constexpr double kLongTime = 1e9;  // seconds

using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// A heartbeat, an event, and a command with several blocks, in turns.
std::vector<std::string> traffic() {
    std::vector<std::string> frames;
    for (int i = 0; i < kFrames; ++i) {
        const std::string source = "acme.panel.room" + std::to_string(i % 50);
        const std::string head = "v=12\nhop=1\nuid=FF123400\nclass=";
        switch (i % 3) {
            case 0:
                frames.push_back("xap-hbeat\n{\n" + head + "xap-hbeat.alive\nsource=" + source +
                                 "\ninterval=60\nport=4000\n}\n");
                break;
            case 1:
                frames.push_back("xap-header\n{\n" + head + "xAPBSC.event\nsource=" + source +
                                 ":switch.1\n}\ninput.state\n{\nState=on\nLevel=50/100\n"
                                 "DisplayText=Half way\n}\n");
                break;
            default:
                frames.push_back("xap-header\n{\n" + head + "xAPBSC.cmd\nsource=" + source +
                                 "\ntarget=acme.lights.*:>\n}\noutput.state.1\n{\nID=*\n"
                                 "State=on\n}\noutput.state.2\n{\nID=0E\nLevel=10/100\n}\n");
        }
    }
    return frames;
}

int read_and_drop(const std::vector<std::string>& frames) {
    int taken = 0;
    for (const std::string& frame : frames) {
        xapnet::ParsedMessage parsed = xapnet::parse_message(xapnet::text_from_wire(frame));
        const xapnet::ReceivedMessage message(std::move(*parsed.message));
        taken += message.CompareTarget("zyn.zynVelora.kitchen") ||
                         message.CompareClass("xAP-OSD.Display")
                     ? 1
                     : 0;
    }
    return taken;
}

std::size_t copy_and_find_lines(const std::vector<std::string>& frames) {
    std::size_t lines = 0;
    for (const std::string& frame : frames) {
        const std::string copy = frame;
        for (std::size_t at = copy.find('\n'); at != std::string::npos;
             at = copy.find('\n', at + 1)) {
            ++lines;
        }
    }
    return lines;
}

void xap_frames(benchmark::State& state) {
    const std::vector<std::string> frames = traffic();
    double ours = kLongTime;
    double copy = kLongTime;
    for (auto _ : state) {
        const auto start = Clock::now();
        benchmark::DoNotOptimize(read_and_drop(frames));
        const double taken = seconds_since(start);
        state.SetIterationTime(taken);
        ours = std::min(ours, taken);
        const auto copy_start = Clock::now();
        benchmark::DoNotOptimize(copy_and_find_lines(frames));
        copy = std::min(copy, seconds_since(copy_start));
    }
    state.counters["frames/s"] = kFrames / ours;
    state.counters["copies/s"] = kFrames / copy;
    state.counters["ours/copy"] = ours / copy;
}

BENCHMARK(xap_frames)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(kRounds);

}  // namespace
}  // namespace bench

BENCHMARK_MAIN();
