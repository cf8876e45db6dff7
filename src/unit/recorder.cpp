#include "unit/recorder.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace unit {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSoundDirectory = "sounds";

void write_whole(const fs::path& file, std::string_view bytes, std::ios::openmode mode) {
    std::ofstream stream(file, std::ios::binary | mode);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) {
        throw std::runtime_error("cannot write " + file.string());
    }
}

void replace_file(const fs::path& file, std::string_view bytes) {
    fs::path temporary = file;
    temporary += ".new";
    write_whole(temporary, bytes, std::ios::trunc);
    fs::rename(temporary, file);
}

// The number of the newest sound of earlier runs.
std::size_t highest_number(const fs::path& directory) {
    std::size_t highest = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
        const std::string name = entry.path().filename().string();
        std::size_t number = 0;
        std::from_chars(name.data(), name.data() + name.size(), number);
        highest = std::max(highest, number);
    }
    return highest;
}

std::string utc_now() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
    const auto seconds = static_cast<std::time_t>(milliseconds / 1000);
    std::tm parts{};
    gmtime_r(&seconds, &parts);
    char date[32];
    std::strftime(date, sizeof date, "%Y-%m-%dT%H:%M:%S", &parts);
    char fraction[16];
    std::snprintf(fraction, sizeof fraction, ".%03dZ", static_cast<int>(milliseconds % 1000));
    return std::string(date) + fraction;
}

std::string printable(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, '?');
    return line;
}

}  // namespace

Recorder::Recorder(fs::path state_directory) : directory_(std::move(state_directory)) {
    fs::create_directories(directory_ / kSoundDirectory);
    last_sound_ = highest_number(directory_ / kSoundDirectory);
}

void Recorder::write_state(std::string_view json) const {
    replace_file(directory_ / "state.json", std::string(json) + "\n");
}

void Recorder::write_page(std::string_view body) const {
    replace_file(directory_ / "page.html", body);
}

void Recorder::log_request(std::string_view method, std::string_view target,
                           std::string_view answered) const {
    const std::string line = utc_now() + "\t" + printable(method) + "\t" + printable(target) +
                             "\t" + printable(answered) + "\n";
    write_whole(directory_ / "requests.log", line, std::ios::app);
}

std::string Recorder::add_sound(std::string_view name, std::string_view bytes) {
    const fs::path file =
        fs::path(kSoundDirectory) / (std::to_string(last_sound_ + 1) + "-" + std::string(name));
    replace_file(directory_ / file, bytes);
    ++last_sound_;
    return file.string();
}

}  // namespace unit
