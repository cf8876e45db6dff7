#include "home/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

#include "home/system_failure.h"

namespace home {

FolderLock::FolderLock(const std::filesystem::path& folder)
    : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (!folder_.is_open()) {
        if (errno == ENOENT || errno == ENOTDIR) {
            return;
        }
        throw system_failure(errno, "Cannot open", folder);
    }
    while (::flock(folder_.number(), LOCK_EX) != 0) {
        if (errno != EINTR) {
            throw system_failure(errno, "Cannot lock", folder);
        }
    }
}

}  // namespace home
