#pragma once

#include <cstdint>
#include <string_view>

namespace host {

enum class Answer : std::uint8_t { No, Yes };

// The desktop of the machine, where there is one.
class Desktop {
  public:
    virtual ~Desktop() = default;

    // Shows a message to whoever sits there.
    virtual void message_box(std::string_view text) = 0;

    // Opens a page or file in a browser.
    virtual void start_browser(std::string_view address) = 0;

    // Asks whoever sits there. Where nobody does, the answer is no.
    [[nodiscard]] virtual Answer question(std::string_view /*text*/) { return Answer::No; }

    // Lets the system's shell run a script that fetches an optional component of the machine and
    // installs it. The address is the machine's to know; one that offers no download does nothing.
    virtual void download_component(std::string_view /*script*/, std::string_view /*component*/) {}
};

}  // namespace host
