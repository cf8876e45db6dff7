#include "xap/bsc_endpoints.h"

#include <optional>
#include <vector>

#include "appliance/velora.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"
#include "core/xap_body.h"
#include "devices/host_devices.h"
#include "fleet/fleet.h"
#include "host/host_interface.h"
#include "xap/hex.h"
#include "xap/xap_message_queue.h"

namespace xap {

namespace {

using automation::guarded;

constexpr std::int32_t kEndpointsOfUnit = 9;  // the tenth device has none
constexpr std::int16_t kSetValue = 19;        // command of a device
constexpr std::int32_t kEveryNumber = -1;
constexpr char kEntryEnd = '\x01';  // of a device's lists
constexpr char kFieldEnd = '\x02';  // within their entries

constexpr std::string_view kEvent = "xapBSC.Event";
constexpr std::string_view kInfo = "xAPBSC.Info";
constexpr std::string_view kValues = "xAPBSC.Values";
constexpr std::string_view kState = "output.state";
constexpr std::string_view kFirstValue = "values.1";

std::string without_blanks(std::string_view text) {
    return automation::replace_all(text, " ", "");
}

// "velora________14": always 16 characters.
std::string numbered_level(std::string_view word, std::int32_t number) {
    constexpr std::size_t kTail = 10;
    const std::string filled = std::string(kTail, '_') + std::to_string(number);
    return std::string(word) + filled.substr(filled.size() - kTail);
}

std::int32_t number_of(std::string_view code) {
    return automation::checked_int32(automation::numeric_prefix(code.substr(1)));
}

struct ListEntry {
    std::string text;
    std::string value;
};

ListEntry entry_of(const std::string& item) {
    const std::vector<std::string> fields = automation::split(item, kFieldEnd);
    return {fields[0], fields.size() > 1 ? fields[1] : std::string()};
}

}  // namespace

struct BscEndpoints::Endpoint {
    std::int32_t number = 0;  // of the device
    std::string code;
    SubAddress address;  // its words in the case of the device table
};

// The bodies of one query's messages. What the query has seen up to now decides what goes out.
class BscEndpoints::Answer {
  public:
    [[nodiscard]] const std::string& body() const noexcept { return body_; }

    [[nodiscard]] bool may_send() const noexcept { return has_written_; }

    // The words of a device's values, the first one as pairs, the others as blocks behind it.
    void write_values(const std::string& list) {
        body_.clear();
        const std::vector<std::string> items = take_list(list);
        for (std::size_t i = 0; i < items.size(); ++i) {
            const ListEntry entry = entry_of(items[i]);
            if (!automation::is_numeric(entry.value)) {
                continue;
            }
            const std::string level = entry.value + "/" + highest_index();
            if (i == 0) {
                body_ += core::xap_body({{"Text", entry.text}, {"Level", level}});
            } else {
                begin_block("values.", i);
                body_ += "Text=" + entry.text + "\nLevel=" + level;
            }
            has_written_ = true;
        }
    }

    // The captions of a device's buttons. They are built and never sent (kept); what they do to the
    // rest of the query counts.
    void write_buttons(const std::string& list) {
        body_.clear();
        const std::vector<std::string> items = take_list(list);
        for (std::size_t i = 0; i < items.size(); ++i) {
            const std::string caption = entry_of(items[i]).value;
            if (i == 0) {
                body_ += core::xap_body({{"Text", caption}});
            } else {
                begin_block("buttons.", i);
                body_ += "Text=" + caption;
            }
            has_written_ = true;
        }
    }

    void write_state(std::string body) {
        body_ = std::move(body);
        has_written_ = true;
    }

    // Of the list that was taken apart last. Throws: RunTimeError 9 before the first one.
    [[nodiscard]] std::string highest_index() const {
        if (!highest_index_) {
            throw automation::RunTimeError(automation::ErrorNumber::SubscriptOutOfRange);
        }
        return std::to_string(*highest_index_);
    }

  private:
    // None for a text that is no list of at least two.
    std::vector<std::string> take_list(const std::string& list) {
        if (list.find(kEntryEnd) == std::string::npos) {
            return {};
        }
        std::vector<std::string> items = automation::split(list, kEntryEnd);
        highest_index_ = items.size() - 1;
        return items;
    }

    void begin_block(std::string_view name, std::size_t index) {
        body_ += "\n}\n" + std::string(name) + std::to_string(index + 1) + "\n{\n";
    }

    std::string body_;
    bool has_written_ = false;
    std::optional<std::size_t> highest_index_;
};

// --- which endpoints there are ------------------------------------------------------------------

BscEndpoints::Endpoint BscEndpoints::endpoint(std::string_view unit_name, std::string_view base,
                                              std::int32_t sub_device) const {
    Endpoint endpoint;
    endpoint.number = number_of(base) + sub_device;
    endpoint.code = std::string(base.substr(0, 1)) + std::to_string(endpoint.number);
    const std::string type =
        without_blanks(devices::kSubDevices[static_cast<std::size_t>(sub_device)].name);
    endpoint.address = {std::string(unit_name) + "_" + type,
                        numbered_level("velora", endpoint.number), type};
    return endpoint;
}

// Units in the order of the table, their devices in their own. Works on a copy of the table, since
// a visit may pump.
void BscEndpoints::for_each_match(const std::string& target,
                                  const std::function<Walk(const Endpoint&)>& visit) {
    const auto pattern = EndpointPattern::of(target);
    if (!pattern || services_.fleet.is_empty()) {
        return;
    }
    const std::vector<fleet::Appliance> table = services_.fleet.table();
    for (const fleet::Appliance& appliance : table) {
        if (appliance.VeloraDC.empty()) {
            continue;
        }
        for (std::int32_t k = 0; k < kEndpointsOfUnit; ++k) {
            const Endpoint found = endpoint(appliance.VeloraName, appliance.VeloraDC, k);
            SubAddress compared = found.address;
            for (std::string& level : compared) {
                level = automation::to_lower(level);
            }
            if (pattern->matches(compared) && visit(found) == Walk::End) {
                return;
            }
        }
    }
}

// --- query --------------------------------------------------------------------------------------

void BscEndpoints::BSCQuery(const std::string& target) {
    guarded(services_.instance.log, "BSCQuery ", [&] {
        Answer answer;
        for_each_match(target, [&](const Endpoint& endpoint) {
            if (services_.host_devices.hsDeviceExists(endpoint.code) > host::kNoDevice) {
                answer_for(endpoint, answer);
            }
            return Walk::GoOn;
        });
    });
}

void BscEndpoints::answer_for(const Endpoint& endpoint, Answer& answer) {
    const auto device = services_.host_devices.device_with(endpoint.code);
    if (device == nullptr) {
        return;
    }
    SubAddress address = endpoint.address;
    for (std::string& level : address) {
        level = automation::to_lower(level);
    }
    const auto send = [&](std::string_view message_class, std::string_view section) {
        services_.queue.send_in_turn(
            {.MsgTarget = "",
             .MsgUID = ToHex(services_.instance.log, automation::checked_int16(endpoint.number)),
             .MsgClass = std::string(message_class),
             .MsgSection = std::string(section),
             .MsgData = answer.body(),
             .MsgSubAddress = joined(address)});
    };
    const host::DeviceFields fields = device->fields();
    answer.write_values(fields.values);
    if (answer.may_send()) {
        send(kValues, kFirstValue);
    }
    answer.write_buttons(fields.buttons);
    answer.write_state(state_body(endpoint.code, answer.highest_index()));
    send(kInfo, kState);
}

std::string BscEndpoints::state_body(std::string_view code, std::string_view divisor) const {
    host::HostInterface& hs = services_.instance.hs();
    const std::string level = (std::to_string(hs.DeviceValue(code)) + "/").append(divisor);
    return core::xap_body({{"State", hs.DeviceStatus(code) == host::kStatusOn ? "ON" : "OFF"},
                           {"DisplayText", hs.DeviceString(code)},
                           {"Level", level}});
}

// --- command ------------------------------------------------------------------------------------

void BscEndpoints::BSCCmd(const std::string& target, const std::string& id,
                          const std::string& /*state*/, const std::string& level) {
    guarded(services_.instance.log, "BSCCmd ", [&] {
        const std::int32_t wanted = id == "*" ? kEveryNumber : FromHex(id);
        for_each_match(target, [&](const Endpoint& endpoint) {
            if (wanted == kEveryNumber || wanted == endpoint.number) {
                services_.device_commands.SetVeloraIO(
                    endpoint.code.substr(0, 1), std::to_string(endpoint.number), kSetValue,
                    automation::checked_int16(automation::numeric_prefix(level)));
            }
            return wanted == kEveryNumber ? Walk::GoOn : Walk::End;
        });
    });
}

// --- events -------------------------------------------------------------------------------------

void BscEndpoints::SendXapBSC(std::string_view code) {
    if (!services_.instance.XapHosted) {
        return;
    }
    guarded(services_.instance.log, "SendXapBSC ", [&] {
        if (code == services_.instance.settings.CIDDeviceCode) {
            send_caller_event(code);
            return;
        }
        constexpr std::int32_t kBlock = 10;
        const std::int32_t before = number_of(code) - 1;
        if (before < 0) {
            return;
        }
        const std::string base =
            std::string(code.substr(0, 1)) + std::to_string(before / kBlock * kBlock + 1);
        for (const fleet::Appliance& appliance : services_.fleet.table()) {
            if (appliance.VeloraDC == base) {
                send_event(endpoint(appliance.VeloraName, base, before % kBlock));
                return;
            }
        }
    });
}

void BscEndpoints::send_caller_event(std::string_view code) {
    send_event({.number = number_of(code),
                .code = std::string(code),
                .address = {"Modem_Switch", "Velora_CID____91", "Switch"}});
}

void BscEndpoints::send_event(const Endpoint& endpoint) {
    services_.queue.send_at_once(
        {.MsgTarget = "",
         .MsgUID = ToHex(services_.instance.log, automation::checked_int16(endpoint.number)),
         .MsgClass = std::string(kEvent),
         .MsgSection = std::string(kState),
         .MsgData = state_body(endpoint.code, "1"),
         .MsgSubAddress = joined(endpoint.address)});
}

}  // namespace xap
