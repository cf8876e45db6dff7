#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vbscript {

// A folder of its own for one test, gone with everything in it when the test ends.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "vbscript-XXXXXX").native();
        if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder");
        path_ = pattern;
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }

    void write(std::string_view name, std::string_view content) const {
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name, std::ios::binary) << content;
    }

    [[nodiscard]] std::string read(std::string_view name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "no file";
    }

  private:
    std::filesystem::path path_;
};

}  // namespace vbscript
