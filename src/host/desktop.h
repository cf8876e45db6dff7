#pragma once

#include <string_view>

namespace host {

// The desktop of the machine, where there is one.
class Desktop {
  public:
    virtual ~Desktop() = default;

    // Shows a message to whoever sits there.
    virtual void message_box(std::string_view text) = 0;

    // Opens a page or file in a browser.
    virtual void start_browser(std::string_view address) = 0;
};

}  // namespace host
