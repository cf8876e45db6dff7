#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace system_tests {

// Real processes on a machine that has other things to do as well.
constexpr std::chrono::seconds kPatience{15};

// True as soon as the condition is; false when the time is over.
[[nodiscard]] bool eventually(const std::function<bool()>& condition,
                              std::chrono::milliseconds limit = kPatience);

// The whole file, "" when it is not there.
[[nodiscard]] std::string content_of(const std::filesystem::path& file);

using Environment = std::vector<std::string>;  // "NAME=value"

// One run of the program, its output kept in two files. Whoever owns it ends it: the destructor
// asks it to stop. When it does not, or ends with another exit code than 0 that nobody has waited
// for, the test has failed.
class Process {
  public:
    // Starts it with its output in `output` + ".out" and ".err". `environment` is added to that of
    // the tests, from which the program's own variables are taken out.
    Process(const std::vector<std::string>& arguments, const std::filesystem::path& output,
            const Environment& environment = {});
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    [[nodiscard]] pid_t id() const noexcept { return id_; }

    [[nodiscard]] bool is_running();

    void send_signal(int signal) const;

    // SIGKILL, and waits for the end.
    void kill();

    // Its exit code, or minus the signal that has ended it; nothing when it still runs after
    // `limit`.
    [[nodiscard]] std::optional<int> wait(std::chrono::milliseconds limit = kPatience);

    // SIGTERM and `wait`.
    std::optional<int> stop(std::chrono::milliseconds limit = kPatience);

    [[nodiscard]] std::string out() const { return content_of(output_ + ".out"); }

    [[nodiscard]] std::string err() const { return content_of(output_ + ".err"); }

  private:
    std::string output_;
    std::string command_line_;
    pid_t id_ = 0;
    std::optional<int> exit_code_;
    bool is_waited_for_ = false;
};

}  // namespace system_tests
