// How long a command to an idle unit takes from the operation's call to the arrival of its request
// line at the unit, beside two references: a page fetch by the bare library, and a bare socket.

#include <benchmark/benchmark.h>
#include <curl/curl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "answering_server.h"
#include "bench_house.h"

namespace bench {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int kRounds = 200;
constexpr auto kRest = 50ms;  // longer than anything of an earlier round goes on

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

// Asks by a bare socket and waits for the end of the answer.
void ask_by_socket(const AnsweringServer& server, const std::string& request) {
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const auto& address = reinterpret_cast<const sockaddr&>(server.address());
    std::array<char, 256> answer{};
    if (::connect(socket, &address, sizeof(server.address())) == 0 &&
        ::send(socket, request.data(), request.size(), MSG_NOSIGNAL) > 0) {
        while (::recv(socket, answer.data(), answer.size(), 0) > 0) {
        }
    }
    ::close(socket);
}

// Asks as the page-fetch object does: a handle and a connection for each page.
void ask_by_library(const std::string& url) {
    const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> easy(curl_easy_init(),
                                                                   &curl_easy_cleanup);
    const auto swallow = [](char*, std::size_t size, std::size_t count, void*) {
        return size * count;
    };
    curl_easy_setopt(easy.get(), CURLOPT_URL, url.c_str());
    curl_easy_setopt(easy.get(), CURLOPT_PROXY, "");
    curl_easy_setopt(easy.get(), CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy.get(), CURLOPT_WRITEFUNCTION, static_cast<curl_write_callback>(swallow));
    curl_easy_perform(easy.get());
}

// One way to make the server see a request; `finish` waits until all is quiet again.
struct Contender {
    std::function<void()> ask;
    std::function<void()> finish;
    std::vector<double> microseconds;
};

// Lets one contender ask once; whether exactly its request arrived.
bool take_time(Contender& contender, BenchHouse& house, const AnsweringServer& server) {
    house.run_for(kRest);  // all start equally cold
    const int before = server.requests();
    const auto start = Clock::now();
    contender.ask();
    contender.finish();
    const std::chrono::duration<double, std::micro> taken = server.last_request_at() - start;
    contender.microseconds.push_back(taken.count());
    return server.requests() == before + 1;
}

void command_latency(benchmark::State& state) {
    const AnsweringServer server("127.0.0.31");
    BenchHouse house(server.host_and_port());
    const auto nothing = [] {};
    const std::string path = "/led.shtml?t1";
    bool is_on = false;
    std::vector<double> call_microseconds;
    const auto call = [&] {
        is_on = !is_on;
        const auto start = Clock::now();
        house.call("VeloraTopLed", {"kitchen", is_on ? "on" : "off"});
        const std::chrono::duration<double, std::micro> taken = Clock::now() - start;
        call_microseconds.push_back(taken.count());
    };
    std::array<Contender, 3> contenders{{
        {call, [&] { house.run_until_idle(); }, {}},
        {[&] { ask_by_library("http://" + server.host_and_port() + path); }, nothing, {}},
        {[&] { ask_by_socket(server, "GET " + path + " HTTP/1.0\r\n\r\n"); }, nothing, {}},
    }};
    for (auto _ : state) {
        for (Contender& contender : contenders) {
            if (!take_time(contender, house, server)) {
                state.SkipWithError("not exactly one request arrived");
                return;
            }
        }
        state.SetIterationTime(contenders[0].microseconds.back() / 1e6);
    }
    const double ours = median(contenders[0].microseconds);
    const double library = median(contenders[1].microseconds);
    const double socket = median(contenders[2].microseconds);
    state.counters["call_us"] = median(call_microseconds);
    state.counters["ours_us"] = ours;
    state.counters["libcurl_us"] = library;
    state.counters["socket_us"] = socket;
    state.counters["ours/libcurl"] = ours / library;
    state.counters["ours/socket"] = ours / socket;
}

BENCHMARK(command_latency)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(kRounds);

}  // namespace
}  // namespace bench

BENCHMARK_MAIN();
