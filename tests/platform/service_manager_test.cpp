#include "platform/system/service_manager.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <string>

#include "home/temporary_folder.h"

namespace platform {
namespace {

using namespace std::chrono_literals;

// A service manager that hears what its service tells.
class Listener {
  public:
    explicit Listener(const std::string& name)
        : socket_(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
        sockaddr_un place{};
        place.sun_family = AF_UNIX;
        std::memcpy(place.sun_path, name.data(), name.size());
        if (name.front() == '@') {
            place.sun_path[0] = '\0';
        }
        EXPECT_EQ(::bind(socket_, reinterpret_cast<const sockaddr*>(&place),
                         static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size())),
                  0);
    }

    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    ~Listener() { ::close(socket_); }

    // "" when nothing was told.
    [[nodiscard]] std::string next() const {
        std::array<char, 64> text{};
        const ssize_t length = ::recv(socket_, text.data(), text.size(), 0);
        return {text.data(), length < 0 ? 0 : static_cast<std::size_t>(length)};
    }

  private:
    int socket_;
};

TEST(ServiceManager, IsToldByAPathAndByAnAbstractName) {
    const TemporaryFolder folder;
    const std::string abstract = "@zynvelora_test_" + std::to_string(::getpid());
    for (const std::string& name : {(folder.path() / "notify").string(), abstract}) {
        const Listener listener(name);
        const ServiceManager manager(name.c_str());
        manager.is_ready();
        manager.is_alive();
        manager.is_stopping();
        EXPECT_EQ(listener.next(), "READY=1") << name;
        EXPECT_EQ(listener.next(), "WATCHDOG=1") << name;
        EXPECT_EQ(listener.next(), "STOPPING=1") << name;
    }
}

TEST(ServiceManager, WithoutOneNothingHappens) {
    ServiceManager(nullptr).is_ready();
    ServiceManager("").is_ready();
    ServiceManager("/nowhere/at/all").is_ready();
    ServiceManager(std::string(500, 'x').c_str()).is_ready();
}

TEST(ServiceManager, WantsASignOfLifeInHalfTheTime) {
    const std::string own = std::to_string(::getpid());
    EXPECT_EQ(ServiceManager::alive_interval("30000000", own.c_str()), 15s);
    EXPECT_EQ(ServiceManager::alive_interval("30000000", nullptr), 15s);
    EXPECT_EQ(ServiceManager::alive_interval("1", nullptr), 1ms);
    EXPECT_EQ(ServiceManager::alive_interval("30000000", "1"), std::nullopt);
    EXPECT_EQ(ServiceManager::alive_interval(nullptr, own.c_str()), std::nullopt);
    EXPECT_EQ(ServiceManager::alive_interval("soon", own.c_str()), std::nullopt);
}

}  // namespace
}  // namespace platform
