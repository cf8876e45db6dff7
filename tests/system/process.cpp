#include "system/process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string_view>
#include <system_error>
#include <thread>

namespace system_tests {

namespace {

using namespace std::chrono_literals;

constexpr auto kPause = 5ms;  // between two looks

constexpr int kOutputFlags = O_WRONLY | O_CREAT | O_TRUNC;
constexpr mode_t kOutputMode = 0644;

class FileActions {
  public:
    explicit FileActions(const std::string& output) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, (output + ".out").c_str(),
                                         kOutputFlags, kOutputMode);
        posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, (output + ".err").c_str(),
                                         kOutputFlags, kOutputMode);
    }

    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }

    [[nodiscard]] const posix_spawn_file_actions_t* get() const { return &actions_; }

  private:
    posix_spawn_file_actions_t actions_{};
};

Environment full_environment(const Environment& additions) {
    Environment all = additions;
    for (char** entry = ::environ; *entry != nullptr; ++entry) {
        const std::string_view variable(*entry);
        if (!variable.starts_with("ZYNVELORA_")) {
            all.emplace_back(variable);
        }
    }
    return all;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    for (std::string& text : texts) {
        result.push_back(text.data());
    }
    result.push_back(nullptr);
    return result;
}

}  // namespace

bool eventually(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

std::string content_of(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

Process::Process(const std::vector<std::string>& arguments, const std::filesystem::path& output,
                 const Environment& environment)
    : output_(output.string()) {
    std::vector<std::string> words = {ZYN_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    for (const std::string& word : arguments) {
        command_line_ += " " + word;
    }
    Environment variables = full_environment(environment);
    const FileActions actions(output_);
    const int error = ::posix_spawn(&id_, ZYN_PROGRAM, actions.get(), nullptr,
                                    pointers(words).data(), pointers(variables).data());
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), ZYN_PROGRAM);
    }
}

Process::~Process() {
    if (is_waited_for_) {
        return;
    }
    const std::optional<int> exit_code = stop();
    EXPECT_EQ(exit_code, 0) << command_line_;
    if (!exit_code) {
        kill();
    }
    if (testing::Test::HasFailure()) {
        std::cerr << "---" << command_line_ << "\n" << out() << err();
    }
}

bool Process::is_running() {
    int status = 0;
    if (!exit_code_ && ::waitpid(id_, &status, WNOHANG) == id_) {
        exit_code_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    return !exit_code_;
}

// A process that has been waited for is no more: its id may be another's.
void Process::send_signal(int signal) const {
    if (!exit_code_) {
        ::kill(id_, signal);
    }
}

void Process::kill() {
    send_signal(SIGKILL);
    EXPECT_TRUE(wait());
}

std::optional<int> Process::wait(std::chrono::milliseconds limit) {
    is_waited_for_ = eventually([this] { return !is_running(); }, limit);
    return exit_code_;
}

std::optional<int> Process::stop(std::chrono::milliseconds limit) {
    send_signal(SIGTERM);
    return wait(limit);
}

}  // namespace system_tests
