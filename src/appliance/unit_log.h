#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "core/velora_log.h"

namespace appliance {

// The log as one unit writes it: errors under "zynVelora <name>" with the class label in front,
// debug lines under "zynVelora Debug <name>".
class UnitLog {
  public:
    static constexpr std::string_view kClassLabel = "Velora ";

    // `name` is the unit's own, which may change.
    UnitLog(core::VeloraLog& log, const std::string& name) : log_(log), name_(name) {}

    void report(std::string_view where, const automation::RunTimeError& error) {
        log_.report_as(std::string(core::kLogType) + " " + name_,
                       std::string(kClassLabel) + std::string(where), error);
    }

    template <typename MakeText>
    void debug(MakeText&& make_text) {
        if (log_.DebugLog()) {
            log_.VeloraWriteLog(std::string(core::kDebugLogType) + " " + name_,
                                std::forward<MakeText>(make_text)());
        }
    }

    [[nodiscard]] core::VeloraLog& plain() noexcept { return log_; }

  private:
    core::VeloraLog& log_;
    const std::string& name_;
};

}  // namespace appliance
