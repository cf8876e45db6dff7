// Device updates a second through the embedded host, each on disk when the call returns, beside a
// bare SQLite loop that updates the same row by number with a statement of its own, and one that
// inserts a row. All three write the same text to a database of the same settings.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include "home/embedded_host.h"
#include "home/home_layout.h"
#include "platform/asio/asio_pump.h"
#include "platform/system/system_clock.h"

namespace bench {
namespace {

namespace fs = std::filesystem;
using Step = std::function<void(int)>;

constexpr int kDevices = 60;  // six units
constexpr int kUpdates = 4000;
constexpr int kRounds = 9;

// What a status of a unit looks like; another one each time, so that each is written.
std::string status_text(int number) {
    return "<table><td><img alt='Awake' src='/images/Velora/Velora-on.gif' '><img alt=' ' "
           "src='/images/Velora/blank3.gif'></td><td valign='middle' align='left'><font "
           "color='#000000'>Awake " +
           std::to_string(number) + "</font></td></table>";
}

class Folder {
  public:
    Folder() {
        std::string name = (fs::temp_directory_path() / "zynvelora_bench_XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::system_error(errno, std::generic_category(), name);
        }
        path_ = name;
    }

    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }

    [[nodiscard]] const fs::path& path() const noexcept { return path_; }

  private:
    fs::path path_;
};

// SQLite without anything of ours around it.
class BareTable {
  public:
    explicit BareTable(const fs::path& file) {
        sqlite3* opened = nullptr;
        check(sqlite3_open(file.c_str(), &opened));
        database_.reset(opened);
        run("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL;"
            "CREATE TABLE device(ref INTEGER PRIMARY KEY, text TEXT NOT NULL)");
        for (int i = 0; i < kDevices; ++i) {
            run("INSERT INTO device(text) VALUES('')");
        }
        update_ = prepare("UPDATE device SET text=? WHERE ref=?");
        insert_ = prepare("INSERT INTO device(text) VALUES(?)");
    }

    void update(int number) {
        check(sqlite3_bind_int64(update_.get(), 2, number % kDevices + 1));
        write(update_.get(), number);
    }

    void insert(int number) { write(insert_.get(), number); }

  private:
    struct Close {
        void operator()(sqlite3* database) const noexcept { sqlite3_close(database); }
    };

    struct Finalize {
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };

    using StatementPointer = std::unique_ptr<sqlite3_stmt, Finalize>;

    static void check(int result, int wanted = SQLITE_OK) {
        if (result != wanted) {
            throw std::runtime_error(sqlite3_errstr(result));
        }
    }

    void run(const char* sql) {
        check(sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr));
    }

    StatementPointer prepare(const char* sql) {
        sqlite3_stmt* statement = nullptr;
        check(sqlite3_prepare_v2(database_.get(), sql, -1, &statement, nullptr));
        return StatementPointer(statement);
    }

    static void write(sqlite3_stmt* statement, int number) {
        const std::string text = status_text(number);
        check(sqlite3_bind_text(statement, 1, text.c_str(), static_cast<int>(text.size()),
                                SQLITE_TRANSIENT));
        check(sqlite3_step(statement), SQLITE_DONE);
        check(sqlite3_reset(statement));
    }

    std::unique_ptr<sqlite3, Close> database_;
    StatementPointer update_;
    StatementPointer insert_;
};

// The embedded host with the devices of six units, as the daemon has them.
class HostTable {
  public:
    explicit HostTable(const fs::path& home) : host_(pump_, clock_, laid_out(home)) {
        for (int i = 0; i < kDevices; ++i) {
            codes_.push_back("[" + std::to_string(i + 1));
            host_.NewDevice("Velora Display", codes_.back());
        }
    }

    void update(int number) {
        host_.SetDeviceString(codes_[static_cast<std::size_t>(number % kDevices)],
                              status_text(number));
    }

  private:
    static home::EmbeddedHostOptions laid_out(const fs::path& home) {
        fs::create_directories(home / "Data");
        home::lay_out_home(home, home / "Data", {});
        home::EmbeddedHostOptions options;
        options.home = home;
        return options;
    }

    platform::AsioPump pump_;
    platform::SystemClock clock_;
    home::EmbeddedHost host_;
    std::vector<std::string> codes_;
};

double seconds_of(const Step& step, int round) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kUpdates; ++i) {
        step(round * kUpdates + i);
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> figures) {
    std::ranges::sort(figures);
    return figures[figures.size() / 2];
}

// Rounds of the three take turns, so that a busy machine is busy for all of them.
void device_updates(benchmark::State& state) {
    const Folder folder;
    HostTable ours(folder.path());
    BareTable bare(folder.path() / "bare.db");
    std::vector<double> our_times;
    std::vector<double> update_times;
    std::vector<double> insert_times;
    int round = 0;
    for (auto _ : state) {
        our_times.push_back(seconds_of([&](int number) { ours.update(number); }, round));
        update_times.push_back(seconds_of([&](int number) { bare.update(number); }, round));
        insert_times.push_back(seconds_of([&](int number) { bare.insert(number); }, round));
        state.SetIterationTime(our_times.back());
        ++round;
    }
    state.counters["updates/s"] = kUpdates / median(our_times);
    state.counters["bare_updates/s"] = kUpdates / median(update_times);
    state.counters["bare_inserts/s"] = kUpdates / median(insert_times);
    state.counters["ours/bare_update"] = median(our_times) / median(update_times);
    state.counters["ours/bare_insert"] = median(our_times) / median(insert_times);
}

BENCHMARK(device_updates)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(kRounds);

}  // namespace
}  // namespace bench

BENCHMARK_MAIN();
