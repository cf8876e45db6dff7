#include "system/terminal_process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>

namespace system_tests {

TerminalProcess::TerminalProcess(const std::vector<std::string>& arguments) {
    std::vector<std::string> words = {ZYN_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    std::string terminal = "TERM=xterm";
    std::string locale = "LC_ALL=C.UTF-8";
    const std::array<char*, 3> environment = {terminal.data(), locale.data(), nullptr};

    winsize size{};
    size.ws_row = 24;
    size.ws_col = 80;
    id_ = ::forkpty(&master_, nullptr, nullptr, &size);
    if (id_ < 0) {
        throw std::system_error(errno, std::generic_category(), "forkpty");
    }
    if (id_ == 0) {
        ::execve(ZYN_PROGRAM, pointers.data(), environment.data());
        ::_exit(127);
    }
    ::fcntl(master_, F_SETFL, O_NONBLOCK);
}

TerminalProcess::~TerminalProcess() {
    if (!has_ended_) {
        ADD_FAILURE() << "still runs at its terminal, which shows\n" << written_;
        ::kill(id_, SIGKILL);
        ::waitpid(id_, nullptr, 0);
    }
    ::close(master_);
}

void TerminalProcess::type(std::string_view keys) const {
    EXPECT_EQ(::write(master_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
}

void TerminalProcess::resize(unsigned short rows, unsigned short columns) const {
    winsize size{};
    size.ws_row = rows;
    size.ws_col = columns;
    EXPECT_EQ(::ioctl(master_, TIOCSWINSZ, &size), 0);
}

void TerminalProcess::read_screen() {
    std::array<char, 4096> bytes{};
    for (ssize_t count = 1; count > 0;) {
        count = ::read(master_, bytes.data(), bytes.size());
        written_.append(bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    }
}

bool TerminalProcess::shows(std::string_view text) {
    return eventually([&] {
        read_screen();
        const std::size_t found = written_.find(text);
        if (found != std::string::npos) {
            written_.erase(0, found + text.size());
        }
        return found != std::string::npos;
    });
}

std::optional<int> TerminalProcess::wait() {
    int status = 0;
    has_ended_ = eventually([&] {
        read_screen();
        return ::waitpid(id_, &status, WNOHANG) == id_;
    });
    if (!has_ended_) {
        return std::nullopt;
    }
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace system_tests
