#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "core/instance.h"
#include "host/files.h"

namespace webserver {

// The trace of the web server in a text file of its own, under the setting `TCPDebug`. Part of
// the server; written by everything that handles a request.
class TCPDebugLog {
  public:
    explicit TCPDebugLog(core::Instance& instance) : instance_(instance) {}

    [[nodiscard]] bool TCPDebug() const noexcept { return instance_.settings.TCPDebug; }

    // Replaces Data\zynVelora\zynVelora_TCPServerDebug.txt by a new file and keeps it open.
    // Throws: RunTimeError of the file service.
    void open();

    void close() noexcept { stream_.reset(); }

    // Writes "<now> | <text>", whether or not `TCPDebug` is on.
    // Throws: RunTimeError 91 while closed, and those of the file.
    void TCPDebugWrite(std::string_view text);

    // Writes the line that `make_text` builds, which runs only while `TCPDebug` is on.
    template <typename MakeText>
    void debug(MakeText&& make_text) {
        if (TCPDebug()) {
            TCPDebugWrite(std::forward<MakeText>(make_text)());
        }
    }

  private:
    core::Instance& instance_;
    std::unique_ptr<host::TextStream> stream_;
};

}  // namespace webserver
