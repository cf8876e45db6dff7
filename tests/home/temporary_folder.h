#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

// A folder of one test, removed with all that lies in it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = testing::TempDir() + "home_XXXXXX";
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::filesystem::filesystem_error(
                "mkdtemp", name, std::error_code(errno, std::generic_category()));
        }
        path_ = name;
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

    [[nodiscard]] std::string read(const std::filesystem::path& name) const {
        std::ifstream stream(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    void write(const std::filesystem::path& name, const std::string& content) const {
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name, std::ios::binary) << content;
    }

  private:
    std::filesystem::path path_;
};
