// Callers: characters a second from the modem's line to finished calls, beside one search for line
// ends over the same bytes; look-ups a second in a phonebook of 50,000 numbers, beside a bare hash
// table; and datagrams a second to 100 client programs, beside a loop of sendto() that sends the
// same. The best of all rounds counts for each.

#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <vector>

#include "bench_house.h"
#include "callerid/modem_reader.h"
#include "callerid/phonebook_dictionary.h"
#include "core/instance.h"
#include "home/ini_user_store.h"
#include "udp/client_link.h"
#include "udp/datagram.h"

namespace bench {
namespace {

constexpr int kRounds = 30;
constexpr double kLongTime = 1e9;  // seconds

using Clock = std::chrono::steady_clock;

template <typename Step>
double seconds_of(const Step& step) {
    const auto start = Clock::now();
    step();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Best times of a step of ours and of its reference, which take turns.
struct Best {
    double ours = kLongTime;
    double reference = kLongTime;
};

template <typename Ours, typename Reference>
Best best_of(benchmark::State& state, const Ours& ours, const Reference& reference) {
    Best best;
    for (auto _ : state) {
        const double time = seconds_of(ours);
        best.ours = std::min(best.ours, time);
        best.reference = std::min(best.reference, seconds_of(reference));
        state.SetIterationTime(time);
    }
    return best;
}

// The plug-in's platform with an instance that has read no settings file.
class Plugin {
  public:
    Plugin() {
        instance_.attach(machine_.host(), &machine_.host());
        instance_.log.attach(&machine_.host());
        instance_.settings.CIDNamePrefix = "NAME =";
        instance_.settings.CIDNumberPrefix = "NMBR =";
        instance_.settings.useHSPPhoneBook = true;
    }

    [[nodiscard]] core::Instance& instance() noexcept { return instance_; }

    [[nodiscard]] BenchMachine& machine() noexcept { return machine_; }

  private:
    BenchMachine machine_{"127.0.0.31"};
    core::Instance instance_{machine_.platform()};
};

// --- the modem's line ---------------------------------------------------------------------------

// Counts the calls.
class Reader final : private callerid::CallListener {
  public:
    explicit Reader(core::Instance& instance)
        : reader_({instance, call_, echo_, *this, [] { return nullptr; }}) {}

    void receive(std::string_view bytes) {
        reader_.ProcessCommData(bytes, static_cast<std::int16_t>(callerid::CommEvent::Received));
    }

    [[nodiscard]] int calls() const noexcept { return calls_; }

  private:
    void ProcessModemInput() override {
        ++calls_;
        call_ = {};
    }

    callerid::CallState call_;
    callerid::EchoWindow echo_;
    callerid::ModemReader reader_;
    int calls_ = 0;
};

void modem_characters(benchmark::State& state) {
    constexpr int kCalls = 2000;
    constexpr std::size_t kPiece = 16;  // as a serial line gives them
    std::string session;
    for (int i = 0; i < kCalls; ++i) {
        session +=
            "\r\nRING\r\n\r\nDATE = 1125\r\nTIME = 0905\r\nNMBR = 5035551234\r\n"
            "NAME = SMITH ANNA\r\n";
    }
    Plugin plugin;
    int calls = 0;
    std::size_t lines = 0;
    const Best best = best_of(
        state,
        [&] {
            Reader reader(plugin.instance());
            for (std::size_t at = 0; at < session.size(); at += kPiece) {
                reader.receive(std::string_view(session).substr(at, kPiece));
            }
            calls = reader.calls();
        },
        [&] {
            lines = 0;
            for (std::size_t at = 0; (at = session.find("\r\n", at)) != std::string::npos;
                 at += 2) {
                ++lines;
            }
            benchmark::DoNotOptimize(lines);
        });
    if (calls != kCalls) {
        throw std::runtime_error("not all calls were read");
    }
    state.counters["characters/s"] = static_cast<double>(session.size()) / best.ours;
    state.counters["ours/search"] = best.ours / best.reference;
}

// --- the phonebook ------------------------------------------------------------------------------

constexpr int kNumbers = 50'000;

std::string number_of(int index) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "503555%04d", index % 10'000);
    return std::to_string(2 + index / 10'000) + std::string(text.data()).substr(1);
}

// A phonebook filled from an address book of the home.
class PhonebookMachine {
  public:
    PhonebookMachine() {
        std::string cards = "first,last,home\n";
        for (int i = 0; i < kNumbers; ++i) {
            cards += "Person," + std::to_string(i) + "," + number_of(i) + "\n";
        }
        const auto folder = plugin_.machine().home() / "Phone";
        std::filesystem::create_directories(folder);
        std::FILE* const file = std::fopen((folder / "book.csv").c_str(), "w");
        if (file == nullptr || std::fputs(cards.c_str(), file) < 0 || std::fclose(file) != 0) {
            throw std::runtime_error("no address book");
        }
        phonebook_.BuildPhonebook();
        if (phonebook_.size() < kNumbers) {
            throw std::runtime_error("not all numbers are in the phonebook");
        }
    }

    [[nodiscard]] callerid::PhonebookDictionary& phonebook() noexcept { return phonebook_; }

  private:
    Plugin plugin_;
    callerid::PhonebookDictionary phonebook_{plugin_.instance()};
};

void phonebook_look_ups(benchmark::State& state) {
    constexpr int kLookUps = 20'000;
    PhonebookMachine machine;
    std::unordered_map<std::string, std::string> bare;
    std::vector<std::string> numbers;
    for (int i = 0; i < kNumbers; ++i) {
        bare.emplace(number_of(i), "Person " + std::to_string(i));
    }
    for (int i = 0; i < kLookUps; ++i) {
        numbers.push_back(number_of(static_cast<int>(i * 7919L % kNumbers)));
    }
    const Best best = best_of(
        state,
        [&] {
            for (const std::string& number : numbers) {
                benchmark::DoNotOptimize(machine.phonebook().HSPAddressBookLookup(number, "O"));
            }
        },
        [&] {
            for (const std::string& number : numbers) {
                benchmark::DoNotOptimize(bare.at(number) + " : " + number);
            }
        });
    if (machine.phonebook().HSPAddressBookLookup(numbers.back(), "O").find("Person") ==
        std::string::npos) {
        throw std::runtime_error("the phonebook does not find its numbers");
    }
    state.counters["look_ups/s"] = kLookUps / best.ours;
    state.counters["ours/hash_table"] = best.ours / best.reference;
}

// --- datagrams ----------------------------------------------------------------------------------

constexpr int kClients = 100;

std::string client_address(int number) {
    return "127.0.3." + std::to_string(number + 1);
}

// 100 sockets that nobody reads; the system drops what they have no room for.
class Clients {
  public:
    Clients() {
        for (int i = 0; i < kClients; ++i) {
            const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
            descriptors_.push_back(descriptor);
            sockaddr_in place = place_of(i);
            if (::bind(descriptor, reinterpret_cast<sockaddr*>(&place), sizeof place) != 0) {
                throw std::runtime_error("no port at " + client_address(i));
            }
            socklen_t size = sizeof place;
            ::getsockname(descriptor, reinterpret_cast<sockaddr*>(&place), &size);
            port_ = ntohs(place.sin_port);
        }
    }

    Clients(const Clients&) = delete;
    Clients& operator=(const Clients&) = delete;

    ~Clients() {
        for (const int descriptor : descriptors_) {
            ::close(descriptor);
        }
    }

    [[nodiscard]] std::uint16_t port() const noexcept { return port_; }

    // All listen at the port that the first one has got.
    [[nodiscard]] sockaddr_in place_of(int client) const {
        sockaddr_in place{};
        place.sin_family = AF_INET;
        place.sin_port = htons(port_);
        place.sin_addr.s_addr = ::inet_addr(client_address(client).c_str());
        return place;
    }

  private:
    std::vector<int> descriptors_;
    std::uint16_t port_ = 0;
};

void datagrams_to_clients(benchmark::State& state) {
    const Clients clients;
    Plugin plugin;
    home::IniUserStore store(plugin.machine().host());
    store.SaveSetting(udp::kStoreTitle, udp::kStoreOptions, "LocalPort", "0");
    store.SaveSetting(udp::kStoreTitle, udp::kStoreOptions, "RemotePort",
                      std::to_string(clients.port()));
    udp::ClientLink link(plugin.instance());
    link.InitUDP();
    udp::ClientList list(store);
    for (int i = 0; i < kClients; ++i) {
        list.subscribe(client_address(i));
    }
    const int bare = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const std::string datagram =
        udp::make_datagram(udp::Message::Caller, "Anna Smith/home", "(503) 555-1234");
    const Best best = best_of(
        state,
        [&] {
            std::string name = "Anna Smith/home";
            std::string number = "(503) 555-1234";
            benchmark::DoNotOptimize(link.UDPSendCID(name, number, ""));
        },
        [&] {
            for (int i = 0; i < kClients; ++i) {
                const sockaddr_in place = clients.place_of(i);
                ::sendto(bare, datagram.data(), datagram.size(), 0,
                         reinterpret_cast<const sockaddr*>(&place), sizeof place);
            }
        });
    ::close(bare);
    if (list.ClientMax() != kClients) {
        throw std::runtime_error("not all clients have subscribed");
    }
    state.counters["datagrams/s"] = kClients / best.ours;
    state.counters["ours/sendto"] = best.ours / best.reference;
}

BENCHMARK(modem_characters)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(kRounds);
BENCHMARK(phonebook_look_ups)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(kRounds);
BENCHMARK(datagrams_to_clients)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(kRounds);

}  // namespace
}  // namespace bench

BENCHMARK_MAIN();
