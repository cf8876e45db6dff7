// A photograph of 12 megapixels made small, from file to file: by the resizing component, and by
// ImageMagick's convert in the same run, turn by turn. Without convert there is nothing to measure
// against, and the benchmark is skipped.

#include <benchmark/benchmark.h>
#include <gd.h>
#include <sys/resource.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#include "platform/gd/gd_image_resizer.h"
#include "platform/system/disk_files.h"

namespace bench {
namespace {

namespace fs = std::filesystem;

constexpr int kWidth = 4000;
constexpr int kHeight = 3000;
constexpr int kRounds = 7;
constexpr const char* kMissing =
    "skipped: ImageMagick's convert is missing; apt-get install imagemagick";

struct GdDelete {
    void operator()(gdImage* image) const { gdImageDestroy(image); }

    void operator()(char* bytes) const { gdFree(bytes); }
};

// Soft colours with the grain of a sensor, so that the file is about as large as a camera's.
void write_photograph(const fs::path& file) {
    const std::unique_ptr<gdImage, GdDelete> image(gdImageCreateTrueColor(kWidth, kHeight));
    std::minstd_rand grain(1);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const int noise = static_cast<int>(grain() % 16);
            image->tpixels[y][x] = gdTrueColor(x * 239 / kWidth + noise, y * 239 / kHeight + noise,
                                               (x + y) * 239 / (kWidth + kHeight) + noise);
        }
    }
    constexpr int kQuality = 90;
    int size = 0;
    auto* const bytes = gdImageJpegPtr(image.get(), &size, kQuality);
    const std::unique_ptr<char, GdDelete> owner(static_cast<char*>(bytes));
    std::ofstream(file, std::ios::binary).write(owner.get(), size);
}

class TemporaryPicture {
  public:
    TemporaryPicture() {
        std::string name = (fs::temp_directory_path() / "zynvelora_bench_XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::system_error(errno, std::generic_category(), name);
        }
        folder_ = name;
        write_photograph(picture());
    }

    TemporaryPicture(const TemporaryPicture&) = delete;
    TemporaryPicture& operator=(const TemporaryPicture&) = delete;

    ~TemporaryPicture() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

    [[nodiscard]] fs::path picture() const { return folder_ / "picture.jpg"; }

    [[nodiscard]] fs::path copy(const std::string& name) const { return folder_ / name; }

  private:
    fs::path folder_;
};

void resize_by_component(const TemporaryPicture& temporary, std::int64_t width) {
    platform::DiskFiles files;
    const std::unique_ptr<host::ImageResize> component = platform::GdImageResizer(files).create();
    component->LoadFromFile(temporary.picture().string());
    component->set_Width(static_cast<double>(width));
    component->DoResize();
    component->SaveToFile(temporary.copy("ours.jpg").string());
}

bool resize_by_convert(const TemporaryPicture& temporary, std::int64_t width) {
    const std::string command = "convert '" + temporary.picture().string() + "' -resize " +
                                std::to_string(width) + "x -quality 85 '" +
                                temporary.copy("convert.jpg").string() + "'";
    return std::system(command.c_str()) == 0;
}

double seconds_of(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

// Of this process, or of all that it has started and waited for.
double processor_seconds(int who) {
    rusage usage{};
    ::getrusage(who, &usage);
    return seconds_of(usage.ru_utime) + seconds_of(usage.ru_stime);
}

// What several runs took: on the clock, and of the processors, which other programs on the machine
// leave alone.
struct Times {
    std::vector<double> clock;
    std::vector<double> processor;

    template <typename Work>
    void measure(int who, Work&& work) {
        const double before = processor_seconds(who);
        const auto start = std::chrono::steady_clock::now();
        work();
        clock.push_back(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        processor.push_back(processor_seconds(who) - before);
    }
};

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void picture_resize(benchmark::State& state) {
    if (std::system("convert -version >/dev/null 2>&1") != 0) {
        state.SkipWithError(kMissing);
        return;
    }
    static const TemporaryPicture temporary;
    Times ours;
    Times theirs;
    for (auto _ : state) {
        bool has_worked = false;
        ours.measure(RUSAGE_SELF, [&] { resize_by_component(temporary, state.range(0)); });
        theirs.measure(RUSAGE_CHILDREN,
                       [&] { has_worked = resize_by_convert(temporary, state.range(0)); });
        if (!has_worked) {
            state.SkipWithError("convert has failed");
            return;
        }
        state.SetIterationTime(ours.clock.back());
    }
    state.counters["ours_s"] = median(ours.clock);
    state.counters["convert_s"] = median(theirs.clock);
    state.counters["ours/convert"] = median(ours.clock) / median(theirs.clock);
    state.counters["cpu_ours/convert"] = median(ours.processor) / median(theirs.processor);
}

// What 100000 and 2000000 pixels for `MaxPixels` make of this picture.
BENCHMARK(picture_resize)
    ->Arg(33)
    ->Arg(667)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(kRounds);

}  // namespace
}  // namespace bench

BENCHMARK_MAIN();
