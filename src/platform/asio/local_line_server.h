#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace platform {

class AsioPump;
class LocalLineTransfer;

// Names one connection of a LocalLineServer. A value that may be kept at will: once the connection
// is over, its members do nothing.
class LineConnection {
  public:
    static constexpr std::size_t kMebibyte = std::size_t{1024} * 1024;
    static constexpr std::size_t kLongestLine = kMebibyte;      // a longer one ends the connection
    static constexpr std::size_t kUnreadBytes = 4 * kMebibyte;  // so does a peer that reads no more

    explicit LineConnection(const std::shared_ptr<LocalLineTransfer>& transfer)
        : transfer_(transfer) {}

    [[nodiscard]] bool is_open() const;

    // Adds the line's end. Requires: no line feed in `line`.
    void send_line(std::string_view line) const;

    // Ends the connection as soon as all lines are sent. No further line comes from it.
    void close() const;

    friend bool operator==(const LineConnection& left, const LineConnection& right) {
        return !left.transfer_.owner_before(right.transfer_) &&
               !right.transfer_.owner_before(left.transfer_);
    }

  private:
    std::weak_ptr<LocalLineTransfer> transfer_;
};

// Both run as events of the pump and may pump; then other lines arrive meanwhile.
struct LineEvents {
    std::function<void(const LineConnection&, const std::string& line)> on_line;
    std::function<void(const LineConnection&)> on_closed;  // once, whoever ended the connection
};

// Serves lines of text, ended by a line feed, to programs of the same user on a Unix stream socket
// with mode 0600. Owned by the program. Its end drops all connections without an event and removes
// the socket file.
class LocalLineServer {
  public:
    // Replaces the file that a dead server has left behind.
    // Throws: RunTimeError 10048 "Address in use: <path>" when a server lives there or the file is
    // no socket; 57 when the path is too long or not accessible.
    LocalLineServer(AsioPump& pump, const std::filesystem::path& path, LineEvents events);
    LocalLineServer(const LocalLineServer&) = delete;
    LocalLineServer& operator=(const LocalLineServer&) = delete;
    ~LocalLineServer();

  private:
    class Acceptor;

    std::unique_ptr<Acceptor> acceptor_;
};

}  // namespace platform
