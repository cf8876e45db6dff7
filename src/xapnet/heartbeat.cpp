#include "xapnet/heartbeat.h"

#include "automation/code_page.h"
#include "automation/whole_number.h"
#include "xapnet/outgoing.h"
#include "xapnet/uid.h"
#include "xapnet/wire_text.h"

namespace xapnet {

namespace {

constexpr std::string_view kAlive = "xap-hbeat.alive";
constexpr std::string_view kStopped = "xap-hbeat.stopped";
constexpr std::string_view kStop = "xap-hbeat.stop";
constexpr std::string_view kNodeItself = "00";
constexpr std::int32_t kHighestPort = 65'535;

std::optional<std::int32_t> number_in(const Block& header, std::string_view key,
                                      std::int32_t highest) {
    const std::string* text = header.find(key);
    return text == nullptr ? std::nullopt : automation::whole_number(*text, 1, highest);
}

std::optional<HeartbeatState> state_of(std::string_view message_class) {
    if (automation::equals_ignoring_case(message_class, kAlive)) {
        return HeartbeatState::Alive;
    }
    if (automation::equals_ignoring_case(message_class, kStopped) ||
        automation::equals_ignoring_case(message_class, kStop)) {
        return HeartbeatState::Stopped;
    }
    return std::nullopt;
}

}  // namespace

std::optional<Heartbeat> heartbeat_of(const Message& message) {
    const std::optional<HeartbeatState> state = state_of(message.message_class);
    if (!state) {
        return std::nullopt;
    }
    const Block header{std::string(kHeartbeatHeader), message.other};
    Heartbeat heartbeat;
    heartbeat.state = *state;
    if (const auto seconds = number_in(header, "interval", kLongestInterval.count())) {
        heartbeat.interval = std::chrono::seconds(*seconds);
    }
    heartbeat.port = number_in(header, "port", kHighestPort).value_or(0);
    if (const std::string* text = header.find("pid")) {
        heartbeat.process_id = *text;
    }
    return heartbeat;
}

std::string heartbeat_datagram(const Sender& sender, const Heartbeat& heartbeat) {
    Message message;
    message.kind = MessageKind::Heartbeat;
    message.uid = make_uid(sender.unit_id, kNodeItself).value_or("");
    message.message_class = heartbeat.state == HeartbeatState::Alive ? kAlive : kStopped;
    message.source = sender.source;
    message.other = {{"interval", std::to_string(heartbeat.interval.count())}};
    if (heartbeat.port != 0) {
        message.other.push_back({"port", std::to_string(heartbeat.port)});
    }
    if (!heartbeat.process_id.empty()) {
        message.other.push_back({"pid", heartbeat.process_id});
    }
    return wire_from_text(text_of(message));
}

}  // namespace xapnet
