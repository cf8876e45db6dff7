#include "home/home_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string>

#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "home/system_failure.h"

namespace home {
namespace {

namespace fs = std::filesystem;

// What the holder has written, up to the line's end.
std::string holder_of(const FileDescriptor& file) {
    std::array<char, 32> text{};
    const ssize_t length = ::pread(file.number(), text.data(), text.size(), 0);
    const std::string holder(text.data(), length < 0 ? 0 : static_cast<std::size_t>(length));
    return holder.substr(0, holder.find('\n'));
}

void write_holder(const FileDescriptor& file, const fs::path& path) {
    const std::string holder = std::to_string(::getpid()) + "\n";
    const bool written = ::ftruncate(file.number(), 0) == 0 &&
                         ::pwrite(file.number(), holder.data(), holder.size(), 0) ==
                             static_cast<ssize_t>(holder.size());
    if (!written) {
        throw system_failure(errno, "Cannot write", path);
    }
}

}  // namespace

HomeLock::HomeLock(const fs::path& home, std::string_view file) {
    const fs::path path = home / "Data" / file;
    file_ = FileDescriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644));
    if (!file_.is_open()) {
        throw system_failure(errno, "Cannot open", path);
    }
    if (::flock(file_.number(), LOCK_EX | LOCK_NB) == 0) {
        write_holder(file_, path);
        return;
    }
    if (errno != EWOULDBLOCK) {
        throw system_failure(errno, "Cannot lock", path);
    }
    throw automation::RunTimeError(automation::ErrorNumber::PermissionDenied,
                                   "The home " + automation::utf8_to_code_page(home.string()) +
                                       " is in use by process " + holder_of(file_));
}

}  // namespace home
