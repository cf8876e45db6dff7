#include "platform/asio/local_line_client.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <system_error>

#include "automation/run_time_error.h"

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds kLongestPoll{60'000};

[[noreturn]] void throw_error(int error, const std::filesystem::path& path) {
    throw automation::RunTimeError(automation::ErrorNumber::DeviceIoError,
                                   std::system_category().message(error) + ": " + path.string());
}

int connected_socket(const std::filesystem::path& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string name = path.string();
    if (name.size() >= sizeof address.sun_path) {
        throw_error(ENAMETOOLONG, path);
    }
    std::copy(name.begin(), name.end(), std::begin(address.sun_path));

    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (descriptor < 0) {
        throw_error(errno, path);
    }
    if (connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        const int error = errno;
        ::close(descriptor);
        throw_error(error, path);
    }
    return descriptor;
}

}  // namespace

LocalLineClient::LocalLineClient(const std::filesystem::path& path)
    : path_(path), descriptor_(connected_socket(path)) {}

LocalLineClient::~LocalLineClient() {
    ::close(descriptor_);
}

void LocalLineClient::send_line(std::string_view line) {
    const std::string bytes = std::string(line) + '\n';
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const ssize_t sent = send(descriptor_, rest.data(), rest.size(), MSG_NOSIGNAL);
        if (sent >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(sent));
        } else if (errno != EINTR) {
            fail(errno);
        }
    }
}

std::optional<std::string> LocalLineClient::read_line(std::optional<milliseconds> timeout) {
    const Deadline deadline = timeout ? Deadline(Clock::now() + *timeout) : std::nullopt;
    std::size_t searched = 0;
    while (true) {
        const std::size_t end = received_.find('\n', searched);
        if (end != std::string::npos) {
            std::string line = received_.substr(0, end);
            received_.erase(0, end + 1);
            return line;
        }
        searched = received_.size();
        wait_until_readable(deadline);
        if (!receive()) {
            return std::nullopt;
        }
    }
}

void LocalLineClient::wait_until_readable(const Deadline& deadline) const {
    while (true) {
        milliseconds wait = kLongestPoll;
        if (deadline) {
            const auto left = std::chrono::ceil<milliseconds>(*deadline - Clock::now());
            wait = std::clamp(left, milliseconds::zero(), kLongestPoll);
        }
        pollfd poll_entry{descriptor_, POLLIN, 0};
        const int ready = poll(&poll_entry, 1, static_cast<int>(wait.count()));
        if (ready > 0) {
            return;
        }
        if (ready < 0 && errno != EINTR) {
            fail(errno);
        }
        if (deadline && Clock::now() >= *deadline) {
            fail(ETIMEDOUT);
        }
    }
}

bool LocalLineClient::receive() {
    std::array<char, std::size_t{16} * 1024> chunk;
    const ssize_t length = recv(descriptor_, chunk.data(), chunk.size(), 0);
    if (length < 0 && errno != EINTR && errno != ECONNRESET) {
        fail(errno);
    }
    if (length > 0) {
        received_.append(chunk.data(), static_cast<std::size_t>(length));
    }
    return length > 0 || (length < 0 && errno == EINTR);
}

void LocalLineClient::fail(int error) const {
    throw_error(error, path_);
}

}  // namespace platform
