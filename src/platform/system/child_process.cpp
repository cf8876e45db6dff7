#include "platform/system/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

// The header of glibc 2.36 does not say by itself that it is C.
extern "C" {
#include <sys/pidfd.h>
}

namespace platform {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// The files of a child: no input, and its output where ours goes.
class ChildFiles {
  public:
    ChildFiles() {
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    }

    ChildFiles(const ChildFiles&) = delete;
    ChildFiles& operator=(const ChildFiles&) = delete;

    ~ChildFiles() { ::posix_spawn_file_actions_destroy(&actions_); }

    [[nodiscard]] const posix_spawn_file_actions_t& actions() const { return actions_; }

  private:
    posix_spawn_file_actions_t actions_{};
};

// Whether the child behind `descriptor` ends within `limit`.
bool ends_within(int descriptor, milliseconds limit) {
    const steady_clock::time_point deadline = steady_clock::now() + limit;
    pollfd watched{.fd = descriptor, .events = POLLIN, .revents = 0};
    while (true) {
        const auto left = std::chrono::ceil<milliseconds>(deadline - steady_clock::now()).count();
        const int result = ::poll(&watched, 1, left > 0 ? static_cast<int>(left) : 0);
        if (result >= 0 || errno != EINTR) {
            return result > 0;
        }
    }
}

}  // namespace

ChildEnd run_child(std::vector<std::string> words, milliseconds limit) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);

    const ChildFiles files;
    pid_t child = 0;
    if (::posix_spawnp(&child, arguments[0], &files.actions(), nullptr, arguments.data(),
                       ::environ) != 0) {
        return ChildEnd::NotStarted;
    }
    const int descriptor = ::pidfd_open(child, 0);
    const bool ended = descriptor >= 0 && ends_within(descriptor, limit);
    if (descriptor >= 0) {
        ::close(descriptor);
    }
    if (!ended) {
        ::kill(child, SIGKILL);
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (!ended) {
        return ChildEnd::TimedOut;
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? ChildEnd::Success : ChildEnd::Failure;
}

}  // namespace platform
