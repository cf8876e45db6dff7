#include "core/velora_log.h"

#include "host/log.h"

namespace core {

void VeloraLog::VeloraWriteLog(std::string_view type, std::string_view message) {
    if (target_ == nullptr) {
        return;
    }
    std::string line(message);
    if (pending_) {
        line += " Line " + std::to_string(pending_->line()) + " " + pending_->description();
        pending_.reset();
    }
    target_->Writelog(type, line);
}

void VeloraLog::report_as(std::string_view type, std::string_view where,
                          const automation::RunTimeError& error) {
    leave_pending(error);
    VeloraWriteLog(type, where);
}

}  // namespace core
