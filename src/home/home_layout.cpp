#include "home/home_layout.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>

#include "automation/code_page.h"
#include "home/file_replacer.h"
#include "home/system_failure.h"

namespace home {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 7> kFolders = {
    "Config", "HTML/VeloraTemp", "HTML/images/Velora", "HTML/includes", "Scripts", "Data", "HTML"};

void make_folder(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) {
        throw system_failure(error.value(), "Cannot make", folder);
    }
}

std::string read_whole(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(stream), {}};
    if (!stream.is_open() || stream.bad()) {
        throw system_failure(EIO, "Cannot read", file);
    }
    return content;
}

void replace_all(std::string& text, const std::string& mark, const std::string& replacement) {
    for (std::size_t at = text.find(mark); at != std::string::npos;
         at = text.find(mark, at + replacement.size())) {
        text.replace(at, mark.size(), replacement);
    }
}

bool takes_placeholders(const fs::path& relative) {
    return relative.parent_path() == "Config" &&
           automation::equals_ignoring_case(relative.extension().string(), ".ini");
}

void copy_file(const fs::path& source, const fs::path& target, const fs::path& relative,
               const Placeholders& defaults) {
    std::error_code error;
    if (fs::symlink_status(target, error).type() != fs::file_type::not_found) {
        return;
    }
    std::string content = read_whole(source);
    if (takes_placeholders(relative)) {
        for (const auto& [mark, replacement] : defaults) {
            replace_all(content, mark, replacement);
        }
    }
    FileReplacer().replace(target, content);
}

}  // namespace

void lay_out_home(const fs::path& home, const fs::path& data_dir, const Placeholders& defaults) {
    for (const std::string_view folder : kFolders) {
        make_folder(home / folder);
    }
    try {
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(data_dir)) {
            const fs::path relative = entry.path().lexically_relative(data_dir);
            if (entry.is_directory()) {
                make_folder(home / relative);
            } else if (entry.is_regular_file()) {
                copy_file(entry.path(), home / relative, relative, defaults);
            }
        }
    } catch (const fs::filesystem_error& error) {
        throw system_failure(error.code().value(), "Cannot read", error.path1());
    }
}

}  // namespace home
