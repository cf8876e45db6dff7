#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>

namespace platform {

// The modem's end of a serial line that has no wire: what is written here another program reads
// from `device`, byte for byte, and the other way. Owned by whoever plays the modem; its end hangs
// up.
class PseudoTerminal {
  public:
    // Throws: RunTimeError 68 when the system gives none.
    PseudoTerminal();
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    // Such as "/dev/pts/3".
    [[nodiscard]] const std::filesystem::path& device() const noexcept { return device_; }

    // Whether a program has opened the device.
    [[nodiscard]] bool is_opened() const;

    // Throws: RunTimeError 57 when the line is full or gone.
    void send(std::string_view bytes) const;

    // What the other program has written, "" when nothing comes within the time.
    [[nodiscard]] std::string receive(std::chrono::milliseconds limit) const;

    // As when the modem is pulled out.
    void hang_up() noexcept;

  private:
    int master_;
    std::filesystem::path device_;
};

}  // namespace platform
