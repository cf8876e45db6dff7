#include "platform/system/pseudo_terminal.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

#include "automation/run_time_error.h"

namespace platform {
namespace {

using automation::ErrorNumber;
using automation::RunTimeError;

[[noreturn]] void fail(ErrorNumber number, const char* what) {
    throw RunTimeError(number, what + std::string(": ") + std::generic_category().message(errno));
}

std::string name_of(int master) {
    std::array<char, 64> name{};
    if (::grantpt(master) != 0 || ::unlockpt(master) != 0 ||
        ::ptsname_r(master, name.data(), name.size()) != 0) {
        fail(ErrorNumber::DeviceUnavailable, "No pseudo terminal");
    }
    return name.data();
}

// No echo and no change of line ends. Once opened and closed, the device also tells whether it is
// open.
void make_raw(const std::filesystem::path& device) {
    const int slave = ::open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios mode{};
    if (slave < 0 || ::tcgetattr(slave, &mode) != 0) {
        fail(ErrorNumber::DeviceUnavailable, "No pseudo terminal");
    }
    ::cfmakeraw(&mode);
    ::tcsetattr(slave, TCSANOW, &mode);
    ::close(slave);
}

short poll_events(int master, std::chrono::milliseconds limit) {
    pollfd entry{.fd = master, .events = POLLIN, .revents = 0};
    ::poll(&entry, 1, static_cast<int>(limit.count()));
    return entry.revents;
}

}  // namespace

PseudoTerminal::PseudoTerminal() : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    if (master_ < 0) {
        fail(ErrorNumber::DeviceUnavailable, "No pseudo terminal");
    }
    device_ = name_of(master_);
    make_raw(device_);
    ::fcntl(master_, F_SETFL, O_NONBLOCK);
}

PseudoTerminal::~PseudoTerminal() {
    hang_up();
}

bool PseudoTerminal::is_opened() const {
    return (poll_events(master_, std::chrono::milliseconds(0)) & POLLHUP) == 0;
}

void PseudoTerminal::send(std::string_view bytes) const {
    if (::write(master_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
        fail(ErrorNumber::DeviceIoError, "The line does not take more");
    }
}

std::string PseudoTerminal::receive(std::chrono::milliseconds limit) const {
    if ((poll_events(master_, limit) & POLLIN) == 0) {
        return {};
    }
    std::array<char, 4096> piece{};
    const ssize_t size = ::read(master_, piece.data(), piece.size());
    return {piece.data(), static_cast<std::size_t>(size > 0 ? size : 0)};
}

void PseudoTerminal::hang_up() noexcept {
    if (master_ >= 0) {
        ::close(master_);
        master_ = -1;
    }
}

}  // namespace platform
