#include "platform/system/disk_streams.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <system_error>

#include "platform/system/disk_path.h"
#include "platform/system/file_error.h"

namespace platform {
namespace {

constexpr mode_t kNewFileMode = 0666;

std::filesystem::path required_disk_path(std::string_view path) {
    std::optional<std::filesystem::path> on_disk = disk_path(path);
    if (!on_disk) {
        throw file_error(std::make_error_code(std::errc::no_such_file_or_directory), path, on_disk);
    }
    return *std::move(on_disk);
}

int flags_of(DiskTextStream::Start start) {
    return O_WRONLY | O_CREAT | O_APPEND | (start == DiskTextStream::Start::Empty ? O_TRUNC : 0);
}

}  // namespace

// Without blocking, so that the name of a pipe cannot stop the pump; files are not affected.
OpenFile::OpenFile(std::string_view path, int flags)
    : path_(path),
      on_disk_(required_disk_path(path)),
      descriptor_(::open(on_disk_.c_str(), flags | O_CLOEXEC | O_NONBLOCK, kNewFileMode)) {
    if (descriptor_ < 0) {
        throw last_file_error(path_, on_disk_);
    }
}

OpenFile::~OpenFile() {
    ::close(descriptor_);
}

void OpenFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written < 0) {
            throw last_file_error(path_, on_disk_);
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

std::string OpenFile::read(std::int64_t offset, std::size_t count) const {
    const std::int64_t left = std::max<std::int64_t>(size() - offset, 0);
    std::string bytes(std::min(count, static_cast<std::size_t>(left)), '\0');
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t got = ::pread(descriptor_, bytes.data() + filled, bytes.size() - filled,
                                    offset + static_cast<off_t>(filled));
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            throw last_file_error(path_, on_disk_);
        }
        if (got == 0) {
            break;
        }
        filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    return bytes;
}

std::int64_t OpenFile::size() const {
    struct stat status {};

    if (::fstat(descriptor_, &status) != 0) {
        throw last_file_error(path_, on_disk_);
    }
    return status.st_size;
}

void OpenFile::empty() noexcept {
    // What cannot be emptied stays as it is: the error that led here is the one to tell.
    [[maybe_unused]] const int result = ::ftruncate(descriptor_, 0);
}

DiskTextStream::DiskTextStream(std::string_view path, Start start) : file_(path, flags_of(start)) {}

void DiskTextStream::Write(std::string_view text) {
    file_.write(text);
}

void DiskTextStream::WriteLine(std::string_view line) {
    // One write for the whole line, so that another reader never sees a line without its end.
    file_.write(std::string(line) + "\r\n");
}

DiskByteStream::DiskByteStream(std::string_view path) : file_(path, O_RDONLY) {}

std::string DiskByteStream::read(std::size_t count) {
    std::string bytes = file_.read(offset_, count);
    offset_ += static_cast<std::int64_t>(bytes.size());
    return bytes;
}

bool DiskByteStream::at_end() {
    return offset_ >= file_.size();
}

}  // namespace platform
