#include "home/ini/ini_files.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <system_error>
#include <utility>

#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "home/folder_lock.h"
#include "home/ini/ini_document.h"
#include "home/ini/ini_lines.h"
#include "home/system_failure.h"

namespace home {
namespace {

namespace fs = std::filesystem;
using automation::ErrorNumber;
using automation::RunTimeError;

// A binary file under the name of a settings file must not flood the log.
constexpr std::size_t kReportedProblems = 20;

constexpr std::string_view kLineBreakers("\r\n\0", 3);

// What of a file on disk changes when somebody writes it. All zero for a file that is not there.
struct Stamp {
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;
    int error = 0;  // of the question itself

    friend bool operator==(const Stamp&, const Stamp&) = default;
};

Stamp stamp_of(const fs::path& path) {
    struct stat status {};

    if (::stat(path.c_str(), &status) != 0) {
        return {.error = errno};
    }
    return {status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec, 0};
}

struct Bytes {
    std::string content;
    std::string failure;  // why there is no content; empty when there is
};

bool is_utf16(std::string_view content) {
    return content.starts_with("\xFF\xFE") || content.starts_with("\xFE\xFF");
}

Bytes read_file(const fs::path& path, const Stamp& stamp) {
    if (stamp.error == ENOENT || stamp.error == ENOTDIR) {
        return {};
    }
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream content;
    // An empty file makes the inserting stream fail, hence the size.
    if (stamp.error != 0 || !stream || (stamp.size > 0 && !(content << stream.rdbuf()))) {
        return {.content = {}, .failure = "cannot be read"};
    }
    if (is_utf16(content.view())) {
        return {.content = {}, .failure = "is UTF-16 text, which is not read; save it as UTF-8"};
    }
    return {.content = content.str(), .failure = {}};
}

void check_texts(std::string_view section, std::string_view key, std::string_view value) {
    const bool breaks_line = section.find_first_of(kLineBreakers) != std::string_view::npos ||
                             key.find_first_of(kLineBreakers) != std::string_view::npos ||
                             value.find_first_of(kLineBreakers) != std::string_view::npos;
    const bool key_reads_otherwise = key.empty() ||
                                     std::string_view("[;# \t").find(key.front()) != key.npos ||
                                     key.find('=') != key.npos;
    if (breaks_line || key_reads_otherwise || section.find(']') != section.npos) {
        throw RunTimeError(ErrorNumber::InvalidProcedureCall,
                           "No setting can be stored as [" + std::string(section) + "] " +
                               std::string(key) + "=" + std::string(value));
    }
}

// The name of the folder's file that equals `name` without regard to case, else `name`.
fs::path spelled_as_on_disk(const fs::path& folder, const std::string& name) {
    if (fs::path exact = folder / name; stamp_of(exact).error == 0) {
        return exact;
    }
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        const std::string other = entry.path().filename().string();
        if (automation::equals_ignoring_case(automation::utf8_to_code_page(other),
                                             automation::utf8_to_code_page(name))) {
            return entry.path();
        }
    }
    return folder / name;
}

}  // namespace

struct IniFiles::File {
    Stamp stamp;
    std::string failure;
    IniLines lines;
    IniDocument document;

    File(const Stamp& read_at, Bytes bytes)
        : stamp(read_at),
          failure(std::move(bytes.failure)),
          lines(bytes.content),
          document(lines.settings_text()) {}
};

IniFiles::IniFiles(fs::path folder, ProblemListener on_problem,
                   std::unique_ptr<FileReplacer> replacer)
    : folder_(std::move(folder)),
      on_problem_(std::move(on_problem)),
      replacer_(std::move(replacer)) {}

IniFiles::~IniFiles() = default;

std::string IniFiles::GetIniSetting(std::string_view section, std::string_view key,
                                    std::string_view fallback, std::string_view file) {
    const fs::path path = path_of(file);
    if (path.empty()) {
        return std::string(fallback);
    }
    return current(path)->document.value(section, key).value_or(std::string(fallback));
}

void IniFiles::SaveIniSetting(std::string_view section, std::string_view key,
                              std::string_view value, std::string_view file) {
    check_texts(section, key, value);
    change(file, [&](IniLines& lines) { lines.set(section, key, value); });
}

void IniFiles::SaveINISection(std::string_view section, const host::SettingsEntries& entries,
                              std::string_view file) {
    check_texts(section, "key", "");
    for (const auto& [key, value] : entries) {
        check_texts(section, key, value);
    }
    change(file, [&](IniLines& lines) { lines.replace_section(section, entries); });
}

void IniFiles::change(std::string_view file, const Change& change) {
    const fs::path path = path_of(file);
    if (path.empty()) {
        throw RunTimeError(ErrorNumber::BadFileName,
                           "No name of a settings file: '" + std::string(file) + "'");
    }
    const FolderLock lock(folder_);
    const std::shared_ptr<const File> old = current(path);
    if (!old->failure.empty()) {
        // Writing would lose what only we cannot read.
        throw RunTimeError(ErrorNumber::DeviceIoError, std::string(file) + " " + old->failure);
    }
    IniLines lines = old->lines;
    change(lines);
    const std::string content = lines.content();
    if (content == old->lines.content()) {
        return;
    }
    replacer_->replace(path, content);
    files_[path] = std::make_shared<File>(stamp_of(path), Bytes{content, {}});
}

std::string IniFiles::GetINISection(std::string_view section, std::string_view file) {
    const fs::path path = path_of(file);
    if (path.empty()) {
        return {};
    }
    std::string text;
    for (const auto& [key, value] : current(path)->document.entries(section)) {
        text.append(key).append("=").append(value).append(1, '\0');
    }
    return text;
}

// Empty for what is no name of a file in the folder.
fs::path IniFiles::path_of(std::string_view file) const {
    if (file.empty() || file.find_first_of(std::string_view("/\\\0", 3)) != file.npos ||
        file == "." || file == "..") {
        return {};
    }
    return spelled_as_on_disk(folder_, automation::code_page_to_utf8(file));
}

std::shared_ptr<const IniFiles::File> IniFiles::current(const fs::path& path) {
    const Stamp stamp = stamp_of(path);
    if (const auto known = files_.find(path);
        known != files_.end() && known->second->stamp == stamp) {
        return known->second;
    }
    // A file that changes while it is read has another stamp the next time and is read again.
    auto file = std::make_shared<const File>(stamp, read_file(path, stamp));
    files_[path] = file;
    report_problems(path, *file);
    return file;
}

void IniFiles::report_problems(const fs::path& path, const File& file) const {
    const std::string name = automation::utf8_to_code_page(path.filename().string());
    if (!file.failure.empty()) {
        on_problem_(name + " " + file.failure);
    }
    const std::vector<IniProblem>& problems = file.lines.problems();
    for (std::size_t i = 0; i < problems.size(); ++i) {
        if (i == kReportedProblems) {
            on_problem_(name + ": " + std::to_string(problems.size() - i) +
                        " more lines like that");
            return;
        }
        on_problem_(name + ", line " + std::to_string(problems[i].line) + ": " + problems[i].text);
    }
}

}  // namespace home
