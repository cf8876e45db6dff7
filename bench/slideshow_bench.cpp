// The slideshow's parts that a person may have to wait for: the list of 100,000 pictures beside
// `find` on the same folders, one page of the list, and an ASP page of 200 kB as script.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "automation/members.h"
#include "bench_house.h"
#include "plugin/subsystems.h"
#include "slideshow/file_list.h"
#include "slideshow/picture_page.h"

namespace bench {
namespace {

namespace fs = std::filesystem;

constexpr int kFolders = 100;
constexpr int kPicturesInFolder = 1000;
constexpr int kPictures = kFolders * kPicturesInFolder;
constexpr std::size_t kPageBytes = 200'000;

// A request of a browser that is no unit.
class Visit final : public automation::TableObject {
  public:
    [[nodiscard]] std::string ServerVariables(const std::string& name) const {
        return name == "REMOTE_ADDR" ? "127.0.0.99" : "";
    }

    [[nodiscard]] std::string nothing(const std::string& /*name*/) const { return {}; }

    [[nodiscard]] std::string type_name() const override { return "Request"; }

    [[nodiscard]] std::span<const automation::Member> members() const override {
        using automation::method;
        static constexpr auto kMembers = std::to_array<automation::Member>({
            method<&Visit::ServerVariables>("ServerVariables", "name"),
            method<&Visit::nothing>("Form", "name"),
            method<&Visit::nothing>("QueryString", "name"),
        });
        return kMembers;
    }
};

// A home with many pictures below HTML, all of them empty files, and the plug-in's parts on it.
class PictureHouse {
  public:
    PictureHouse() {
        parts_.instance.attach(machine_.host(), &machine_.host());
        parts_.instance.application_path = machine_.host().GetAppPath();
        parts_.instance.settings.jpg = true;
        parts_.instance.settings.ImagePath = core::html_root(parts_.instance);
        parts_.instance.settings.TempPath = core::html_root(parts_.instance) + "\\VeloraTemp";
    }

    void add_pictures() {
        for (int folder = 0; folder < kFolders; ++folder) {
            const fs::path path = pictures_on_disk() / ("album" + std::to_string(folder));
            fs::create_directories(path);
            for (int number = 0; number < kPicturesInFolder; ++number) {
                std::ofstream(path / ("IMG_" + std::to_string(10000 + number) + ".JPG"));
            }
        }
    }

    void build_list() {
        slideshow::PictureList& list = parts_.slideshow.lists().SlideshowFiles;
        list = {};
        slideshow::BuildFileList(parts_.instance, parts_.instance.settings.ImagePath + "\\many",
                                 parts_.instance.settings.ImagePath, list);
        if (list.FileNames.size() != kPictures) {
            throw std::runtime_error("not all pictures are in the list");
        }
    }

    [[nodiscard]] fs::path html() const { return machine_.home() / "HTML"; }

    [[nodiscard]] fs::path pictures_on_disk() const { return html() / "many"; }

    [[nodiscard]] plugin::Subsystems& parts() noexcept { return parts_; }

  private:
    BenchMachine machine_{"127.0.0.31"};
    plugin::Subsystems parts_{machine_.platform()};
};

template <typename Work>
double seconds_of(Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void picture_list(benchmark::State& state) {
    PictureHouse house;
    house.add_pictures();
    const std::string find =
        "find " + house.pictures_on_disk().string() + " -iname '*.jpg' > /dev/null";
    double ours = 1e9;
    double find_time = 1e9;
    for (auto _ : state) {
        ours = std::min(ours, seconds_of([&] { house.build_list(); }));
        find_time = std::min(find_time, seconds_of([&] {
                                 if (std::system(find.c_str()) != 0) {
                                     throw std::runtime_error("find fails");
                                 }
                             }));
    }
    state.counters["ours_s"] = ours;
    state.counters["find_s"] = find_time;
    state.counters["ours/find"] = ours / find_time;
}

// The page of a picture whose size is known, for a unit: nothing is read or copied.
void picture_page(benchmark::State& state) {
    PictureHouse house;
    slideshow::ShownPicture picture{.file = "\\many\\album1\\IMG_10001.JPG",
                                    .server = "http://127.0.0.1:8088",
                                    .base = house.parts().instance.settings.ImagePath,
                                    .width = 400,
                                    .height = 200,
                                    .dwell = "20",
                                    .client = media::SlideClient::Velora};
    for (auto _ : state) {
        benchmark::DoNotOptimize(slideshow::BuildSlideshow(house.parts().instance, picture));
    }
}

// A whole answer for a browser that is no unit: the picture is chosen out of 100,000 and copied.
void slideshow_answer(benchmark::State& state) {
    PictureHouse house;
    house.add_pictures();
    house.build_list();
    const auto visit = std::make_shared<Visit>();
    for (auto _ : state) {
        if (house.parts().slideshow_asp.VeloraSlideshow_ASP(visit, nullptr).empty()) {
            throw std::runtime_error("no page");
        }
    }
}

std::string large_page() {
    std::string page = "<HTML>\r\n<HEAD><TITLE>Large</TITLE></HEAD>\r\n<BODY>\r\n";
    for (int number = 0; page.size() < kPageBytes; ++number) {
        page += "<p class=\"row\">Row " + std::to_string(number) +
                "</p>\r\n<%\r\nIf Hour(Now) > 12 Then Response.Write \"<b>\" & " +
                std::to_string(number) + " & \"</b>\"\r\n%>\r\n";
    }
    return page + "</BODY></HTML>\r\n";
}

// As script source, beside one search through the text for the marks that the source replaces.
void page_conversion(benchmark::State& state) {
    PictureHouse house;
    const std::string page = large_page();
    std::ofstream(house.html() / "large.asp", std::ios::binary) << page;
    double ours = 1e9;
    double search = 1e9;
    for (auto _ : state) {
        ours = std::min(ours, seconds_of([&] {
                            const std::string source =
                                house.parts().convert_asp.page_source("large.asp", "20");
                            benchmark::DoNotOptimize(source);
                        }));
        search = std::min(search, seconds_of([&] {
                              std::size_t marks = 0;
                              for (const char* mark : {"<%", "%>", "\r\n", "Response.Write"}) {
                                  for (std::size_t at = page.find(mark); at != std::string::npos;
                                       at = page.find(mark, at + 1)) {
                                      ++marks;
                                  }
                              }
                              benchmark::DoNotOptimize(marks);
                          }));
    }
    state.counters["ours_s"] = ours;
    state.counters["search_s"] = search;
    state.counters["ours/search"] = ours / search;
}

BENCHMARK(picture_list)->Iterations(7)->Unit(benchmark::kMillisecond);
BENCHMARK(picture_page)->Unit(benchmark::kMicrosecond);
BENCHMARK(slideshow_answer)->Iterations(2000)->Unit(benchmark::kMicrosecond);
BENCHMARK(page_conversion)->Iterations(20)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bench

BENCHMARK_MAIN();
