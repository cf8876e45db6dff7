#include "platform/system/log_desktop.h"

#include <utility>

namespace platform {

LogDesktop::LogDesktop(Report report) : report_(std::move(report)) {}

void LogDesktop::message_box(std::string_view text) {
    report_("Message: " + std::string(text));
}

void LogDesktop::start_browser(std::string_view address) {
    report_("Browser: " + std::string(address));
}

}  // namespace platform
