#include "webserver/debug_log.h"

#include "automation/date.h"
#include "automation/run_time_error.h"
#include "host/clock.h"

namespace webserver {

void TCPDebugLog::open() {
    stream_.reset();
    stream_ = instance_.platform().files.create_text_file(
        instance_.application_path + "\\Data\\zynVelora\\zynVelora_TCPServerDebug.txt");
}

void TCPDebugLog::TCPDebugWrite(std::string_view text) {
    if (!stream_) {
        throw automation::RunTimeError(automation::ErrorNumber::ObjectVariableNotSet);
    }
    const std::string now = automation::general_date(instance_.platform().clock.now());
    stream_->WriteLine(now + " | " + std::string(text));
}

}  // namespace webserver
