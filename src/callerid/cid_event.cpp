#include "callerid/cid_event.h"

#include <memory>

#include "automation/code_page.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "core/instance.h"
#include "core/numbered_reports.h"
#include "host/host_interface.h"

namespace callerid {

namespace {

constexpr std::string_view kScript = "&hs.Plugin(\"zynVelora\").VeloraSendHspCID(\"\")";

// Flags of the event for the two generations of the host.
constexpr std::int32_t kMiscV2 = 49152;
constexpr std::int32_t kMiscV1 = 16384;

bool is_named(const host::HostEvent* event, const std::string& lower_case_name) {
    return event != nullptr && automation::to_lower(event->fields().name) == lower_case_name;
}

}  // namespace

void CidEvent::CreateCIDEvent(const std::string& group, std::int16_t line) {
    core::NumberedReports reports(instance_.log);
    automation::guarded(reports, "CreateCIDEVent ", [&] {
        if (FindEvent(kName)) {
            return;
        }
        host::HostInterface& hs = instance_.hs();
        const std::shared_ptr<host::HostEvent> event =
            instance_.HostIsV2 ? hs.NewEventEx(kName) : hs.GetEvent(hs.NewEvent(kName));
        if (event == nullptr) {
            throw automation::RunTimeError(automation::ErrorNumber::ObjectVariableNotSet);
        }
        host::EventFields fields = event->fields();
        fields.scripts = kScript;
        fields.ev_abs_time = host::kSetOffByTelephone;
        fields.phone_line = line;
        fields.phone_event = host::kCallComesIn;
        fields.Group = group;
        fields.misc = instance_.HostIsV2 ? kMiscV2 : kMiscV1;
        event->set_fields(fields);
    });
}

bool CidEvent::FindEvent(std::string_view name) const {
    core::NumberedReports reports(instance_.log);
    return automation::guarded(reports, "FindEvent ", [&] {
        const std::string wanted = automation::to_lower(name);
        return instance_.HostIsV2 ? find_by_enumerator(wanted) : find_by_number(wanted);
    });
}

// A walk under which the number of events changes begins anew.
bool CidEvent::find_by_enumerator(const std::string& name) const {
    auto walk = instance_.hs().GetEventEnumerator();
    while (!walk->Finished()) {
        const std::shared_ptr<host::HostEvent> event = walk->GetNext();
        if (walk->CountChanged()) {
            walk = instance_.hs().GetEventEnumerator();
            continue;
        }
        if (is_named(event.get(), name)) {
            return true;
        }
    }
    return false;
}

bool CidEvent::find_by_number(const std::string& name) const {
    for (std::int32_t number = 1; number <= instance_.hs().EventCount(); ++number) {
        if (is_named(instance_.hs().GetEvent(number).get(), name)) {
            return true;
        }
    }
    return false;
}

}  // namespace callerid
