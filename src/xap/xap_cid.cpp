#include "xap/xap_cid.h"

#include <string_view>

#include "automation/date.h"
#include "automation/guarded.h"
#include "core/instance.h"
#include "core/xap_body.h"
#include "host/clock.h"
#include "host/xap_message.h"
#include "xap/xap_message_queue.h"

namespace xap {

namespace {

constexpr std::string_view kClass = "CID.Incoming";

std::string digits_of(std::string number) {
    std::erase_if(number,
                  [](char c) { return std::string_view(")(- ").find(c) != std::string::npos; });
    return number;
}

}  // namespace

void XapCid::XapCID(const std::string& given_name, const std::string& name,
                    const std::string& number) {
    automation::guarded(instance_.log, "XapCID ", [&] {
        instance_.XapCIDSent = true;
        const automation::DateTime now = instance_.platform().clock.now();
        // The number's own availability is not looked at.
        const std::string_view availability =
            given_name == host::kXapUnknown ? "Withheld" : "Available";
        queue_.send_at_once(
            {.MsgTarget = "",
             .MsgUID = "00",
             .MsgClass = std::string(kClass),
             .MsgSection = std::string(kClass),
             .MsgData = core::xap_body({{"Type", "Voice"},
                                        {"DateTime", automation::compact_date_time(now)},
                                        {"Phone", digits_of(number)},
                                        {"RNNumber", availability},
                                        {"Formatted_Date", automation::long_date(now)},
                                        {"Formatted_Time", automation::long_time(now)},
                                        {"Name", name},
                                        {"RNName", availability}}),
             .MsgSubAddress = ""});
    });
}

}  // namespace xap
