#pragma once

#include <functional>
#include <string>

#include "host/desktop.h"

namespace platform {

// The desktop of a machine without a screen: tells what would be shown, as one line in code page
// 1252, to whoever made it.
class LogDesktop final : public host::Desktop {
  public:
    using Report = std::function<void(const std::string& line)>;

    explicit LogDesktop(Report report);
    void message_box(std::string_view text) override;       // "Message: <text>"
    void start_browser(std::string_view address) override;  // "Browser: <address>"

  private:
    Report report_;
};

}  // namespace platform
