#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace core {
class Instance;
}

namespace udp {

// The link's own log: the last lines in a status box, which a viewer can read, and the same in the
// host's log. Part of the link.
class StatusLog {
  public:
    enum class Level : std::uint8_t { Info = 0, Debug = 1, Warning = 2, Error = 3 };

    static constexpr std::size_t kMostCharacters = 65'536;  // of the status box

    explicit StatusLog(core::Instance& instance) : instance_(instance) {}

    // From now on all lines go to the host's log, too.
    void copy_to_host() noexcept { copies_ = true; }

    // Debug lines only while the flag "Debug" of the per-user store is on. Its own errors are
    // swallowed.
    void ServerLog(std::string_view text, Level level);

    [[nodiscard]] bool is_debugging() const;
    void set_debugging(bool enabled);

    // "11/24/2026 4:03:03 PM~!~zynVelora Debug~!~text", lines ended by CR LF, the newest last.
    [[nodiscard]] const std::string& status_box() const noexcept { return status_box_; }

    void append(std::string_view text);

    void empty_box() { status_box_.clear(); }

  private:
    core::Instance& instance_;
    std::string status_box_;
    bool copies_ = false;
};

}  // namespace udp
