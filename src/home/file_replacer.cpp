#include "home/file_replacer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "home/file_descriptor.h"
#include "home/system_failure.h"

namespace home {
namespace {

namespace fs = std::filesystem;

constexpr unsigned int kNewFilePermissions = 0644;
constexpr unsigned int kPermissionBits = 07777;

unsigned int permissions_of(const fs::path& file) {
    struct stat status {};

    if (::stat(file.c_str(), &status) != 0) {
        return kNewFilePermissions;
    }
    return status.st_mode & kPermissionBits;
}

// Removes a half-made file unless the change was carried through.
class Leftover {
  public:
    explicit Leftover(fs::path file) : file_(std::move(file)) {}

    Leftover(const Leftover&) = delete;
    Leftover& operator=(const Leftover&) = delete;

    ~Leftover() {
        std::error_code ignored;
        if (!file_.empty()) {
            fs::remove(file_, ignored);
        }
    }

    void keep() noexcept { file_.clear(); }

  private:
    fs::path file_;
};

}  // namespace

void FileReplacer::replace(const fs::path& file, std::string_view content) {
    std::error_code error;
    const fs::path target = fs::weakly_canonical(file, error);
    if (error) {
        throw system_failure(error.value(), "Cannot write", file);
    }
    const fs::path fresh = target.parent_path() / ("." + target.filename().string() + ".new");
    Leftover leftover(fresh);
    write_new(fresh, content, permissions_of(target));
    if (rename(fresh, target) != 0) {
        throw system_failure(errno, "Cannot write", target);
    }
    leftover.keep();
    sync_folder(target.parent_path());
}

void FileReplacer::write_new(const fs::path& file, std::string_view content,
                             unsigned int permissions) {
    const FileDescriptor opened(open_new(file, permissions));
    if (!opened.is_open()) {
        throw system_failure(errno, "Cannot write", file);
    }
    while (!content.empty()) {
        const std::ptrdiff_t written = write(opened.number(), content);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written < 0) {
            throw system_failure(errno, "Cannot write", file);
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    if (sync(opened.number()) != 0) {
        throw system_failure(errno, "Cannot write", file);
    }
}

void FileReplacer::sync_folder(const fs::path& folder) {
    const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.is_open() || sync(opened.number()) != 0) {
        throw system_failure(errno, "Cannot write", folder);
    }
}

int FileReplacer::open_new(const fs::path& file, unsigned int permissions) {
    // A leftover of a killed program may stand there with other permissions.
    ::unlink(file.c_str());
    const int descriptor =
        ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions);
    if (descriptor >= 0 && permissions != kNewFilePermissions) {
        // The umask may have taken bits that the old file had.
        ::fchmod(descriptor, permissions);
    }
    return descriptor;
}

std::ptrdiff_t FileReplacer::write(int descriptor, std::string_view content) {
    return ::write(descriptor, content.data(), content.size());
}

int FileReplacer::sync(int descriptor) {
    return ::fsync(descriptor);
}

int FileReplacer::rename(const fs::path& from, const fs::path& to) {
    return std::rename(from.c_str(), to.c_str());
}

}  // namespace home
