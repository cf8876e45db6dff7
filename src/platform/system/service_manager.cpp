#include "platform/system/service_manager.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "automation/whole_number.h"

namespace platform {

void ServiceManager::tell(std::string_view state) const noexcept {
    sockaddr_un place{};
    if (socket_.empty() || socket_.size() >= sizeof place.sun_path) {
        return;
    }
    place.sun_family = AF_UNIX;
    std::ranges::copy(socket_, std::begin(place.sun_path));
    if (socket_.front() == '@') {
        place.sun_path[0] = '\0';
    }
    const int descriptor = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (descriptor < 0) {
        return;
    }
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + socket_.size());
    // A manager that does not listen is none of the program's business.
    (void)::sendto(descriptor, state.data(), state.size(), MSG_NOSIGNAL | MSG_DONTWAIT,
                   reinterpret_cast<const sockaddr*>(&place), length);
    ::close(descriptor);
}

std::optional<std::chrono::milliseconds> ServiceManager::alive_interval(const char* microseconds,
                                                                        const char* process_id) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    const auto number = [](const char* text) {
        return text == nullptr ? std::nullopt
                               : automation::whole_number<std::int64_t>(text, 1, kMost);
    };
    const auto time = number(microseconds);
    const auto process = number(process_id);
    if (!time || (process_id != nullptr && process != std::int64_t{::getpid()})) {
        return std::nullopt;
    }
    const auto half =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::microseconds(*time) / 2);
    return std::max(half, std::chrono::milliseconds(1));
}

}  // namespace platform
