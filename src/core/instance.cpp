#include "core/instance.h"

#include <algorithm>
#include <array>

#include "automation/convert.h"
#include "automation/date.h"
#include "automation/run_time_error.h"
#include "host/clock.h"
#include "host/files.h"
#include "host/host_interface.h"

namespace core {

using automation::ErrorNumber;
using automation::RunTimeError;

host::HostInterface& Instance::hs() const {
    if (hs_ == nullptr) {
        throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    }
    return *hs_;
}

host::CallbackObject& Instance::callback() const {
    if (callback_ == nullptr) {
        throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    }
    return *callback_;
}

void Instance::attach(host::CallbackObject& callback, host::HostInterface* hs) noexcept {
    callback_ = &callback;
    hs_ = hs;
    log.attach(hs);
}

std::string without_quotes(std::string text) {
    std::erase(text, '"');
    return text;
}

std::string read_setting(const Instance& instance, std::string_view section, std::string_view key,
                         std::string_view fallback) {
    return without_quotes(instance.hs().GetIniSetting(section, key, fallback, kSettingsFile));
}

std::string MakeTag(Instance& instance) {
    return automation::text_of(instance.platform().random.next() + 1.0F);
}

std::string html_root(const Instance& instance) {
    return instance.application_path + "\\HTML";
}

void StartupLog(Instance& instance, std::string_view step, std::string_view detail) {
    host::Files& files = instance.platform().files;
    const std::string data = instance.application_path + "\\Data";
    for (const std::string& folder : {data, data + "\\zynVelora"}) {
        if (!files.FolderExists(folder)) {
            files.CreateFolder(folder);
        }
    }
    const std::string now = automation::general_date(instance.platform().clock.now());
    files.open_for_appending(data + "\\zynVelora\\StartupLog.txt")
        ->WriteLine(now + " | " + std::string(step) + " | " + std::string(detail));
}

}  // namespace core
