#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

// A program's blocking connection to a LocalLineServer. For command-line programs, not for the
// pump's thread.
class LocalLineClient {
  public:
    // Throws: RunTimeError 57 "<reason>: <path>" when no server answers there.
    explicit LocalLineClient(const std::filesystem::path& path);
    LocalLineClient(const LocalLineClient&) = delete;
    LocalLineClient& operator=(const LocalLineClient&) = delete;
    ~LocalLineClient();

    // Adds the line's end. Throws: RunTimeError 57 when the server has gone.
    void send_line(std::string_view line);

    // The next line without its end; nothing when the server has closed the connection. Without a
    // timeout it waits as long as it takes. Throws: RunTimeError 57 when the time is over.
    [[nodiscard]] std::optional<std::string> read_line(
        std::optional<std::chrono::milliseconds> timeout = std::nullopt);

  private:
    using Deadline = std::optional<std::chrono::steady_clock::time_point>;

    [[noreturn]] void fail(int error) const;
    void wait_until_readable(const Deadline& deadline) const;
    [[nodiscard]] bool receive();

    std::filesystem::path path_;
    int descriptor_;
    std::string received_;  // behind the lines read so far
};

}  // namespace platform
