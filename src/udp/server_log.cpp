#include "udp/server_log.h"

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/date.h"
#include "automation/run_time_error.h"
#include "core/instance.h"
#include "host/clock.h"
#include "host/settings.h"
#include "udp/client_list.h"

namespace udp {

namespace {

constexpr std::string_view kDebug = "Debug";

std::string_view class_word(StatusLog::Level level) {
    switch (level) {
        case StatusLog::Level::Debug:
            return "zynVelora Debug";
        case StatusLog::Level::Warning:
            return "zynVelora VeloraServer Warning";
        case StatusLog::Level::Error:
            return "zynVelora VeloraServer Error";
        case StatusLog::Level::Info:
            break;
    }
    return "zynVelora VeloraServer Info";
}

}  // namespace

bool StatusLog::is_debugging() const {
    const std::string text =
        instance_.platform().user_store.GetSetting(kStoreTitle, kStoreOptions, kDebug, "False");
    return automation::equals_ignoring_case(text, "True") || automation::numeric_prefix(text) != 0;
}

void StatusLog::set_debugging(bool enabled) {
    instance_.platform().user_store.SaveSetting(kStoreTitle, kStoreOptions, kDebug,
                                                automation::text_of(enabled));
}

void StatusLog::ServerLog(std::string_view text, Level level) {
    try {
        if (level == Level::Debug && !is_debugging()) {
            return;
        }
        const std::string_view word = class_word(level);
        append(automation::general_date(instance_.platform().clock.now())
                   .append("~!~")
                   .append(word)
                   .append("~!~")
                   .append(text)
                   .append("\r\n"));
        if (copies_) {
            instance_.log.VeloraWriteLog(word, text);
        }
    } catch (const automation::RunTimeError&) {  // a log must not end what it tells of
        return;
    }
}

void StatusLog::append(std::string_view text) {
    status_box_ += text;
    if (status_box_.size() > kMostCharacters) {
        status_box_.erase(0, status_box_.size() - kMostCharacters);
    }
}

}  // namespace udp
