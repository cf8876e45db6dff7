#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace callerid {

// The raw traffic of the modem as text, for whoever wants to look on: the two boxes of the "Modem
// Echo Window". Each keeps its last 5000 characters. Part of the caller-ID subsystem.
class EchoWindow {
  public:
    static constexpr std::size_t kMostCharacters = 5000;  // of each box

    // Time-stamped traffic, and the codes of the port's events, one a line.
    [[nodiscard]] const std::string& CommData() const noexcept { return data_.text; }

    [[nodiscard]] const std::string& CommStatus() const noexcept { return status_.text; }

    // Characters that have ever been written to a box, by which a viewer finds what is new to it.
    [[nodiscard]] std::uint64_t data_written() const noexcept { return data_.written; }

    [[nodiscard]] std::uint64_t status_written() const noexcept { return status_.written; }

    void add_data(std::string_view text) { data_.append(text); }

    void add_status(std::string_view text) { status_.append(text); }

    // As when the window opens.
    void empty_boxes();

  private:
    struct Box {
        std::string text;
        std::uint64_t written = 0;

        void append(std::string_view more);
    };

    Box data_;
    Box status_;
};

}  // namespace callerid
