#include "webserver/request.h"

#include <algorithm>
#include <array>

#include "automation/code_page.h"
#include "automation/guarded.h"
#include "core/velora_log.h"
#include "webserver/debug_log.h"
#include "webserver/request_text.h"

namespace webserver {

using automation::ErrorNumber;
using automation::RunTimeError;

namespace {

// A body of one or two characters does not count as one.
constexpr std::size_t kShortestBody = 3;

// What `GetContent` drops: the blank line and, as kept, one character of the body.
constexpr std::size_t kDroppedFromContent = kHeaderEnd.size() + 1;

std::string key_value_line(const std::string& key, const std::string& value) {
    std::string line("KeyValue ");
    line.append(key).append(" = ").append(value);
    return line;
}

// Position counted from 1, 0 for npos.
std::size_t position(std::size_t index) {
    return index == std::string_view::npos ? 0 : index + 1;
}

// "HTTP" from `start` on, in any case.
std::size_t find_protocol(std::string_view packet, std::size_t start) {
    const auto found = automation::find_ignoring_case(packet.substr(start), "HTTP");
    return found == std::string_view::npos ? found : start + found;
}

}  // namespace

Request::Request(core::VeloraLog& log, TCPDebugLog& debug_log, std::string listener_address,
                 FormReading form_reading)
    : log_(log),
      debug_log_(debug_log),
      listener_address_(std::move(listener_address)),
      form_reading_(form_reading) {}

void Request::ParsePage(const std::string& sData) {
    Landmarks found;
    try {
        parse_packet(sData, found);
    } catch (const RunTimeError& error) {
        log_.report("ParsePage i=" + std::to_string(found.blank) +
                        ",j=" + std::to_string(found.http) +
                        ",len=" + std::to_string(sData.size()) + ", Data=" + sData,
                    error);
        return;
    }
    if (found.http > 0) {
        collect_headers();
    }
}

void Request::parse_packet(std::string_view packet, Landmarks& found) {
    const auto blank = packet.find(' ');
    found.blank = position(blank);
    if (blank == std::string_view::npos) {
        return;
    }
    method_ = packet.substr(0, blank);
    const auto http = find_protocol(packet, blank);
    found.http = position(http);
    if (http == std::string_view::npos) {
        return;
    }
    if (http < blank + 2) {  // no room for the blank that is taken to stand before "HTTP"
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    }
    parse_target(packet.substr(blank + 1, http - blank - 2));
    parse_header_and_body(packet, http);
}

// The decoding comes first, so that coded delimiters work as delimiters.
void Request::parse_target(std::string_view coded_target) {
    page_ = Decode(std::string(coded_target));
    const auto question_mark = page_.find('?');
    if (question_mark == std::string::npos) {
        query_text_.clear();
        return;
    }
    query_text_ = page_.substr(question_mark);
    debug_log_.debug([] { return "AddQuery "; });
    KeyValue(std::string_view(query_text_).substr(1), query_);
    page_.erase(question_mark);
}

void Request::parse_header_and_body(std::string_view packet, std::size_t http) {
    payload_.clear();
    const auto header_end = packet.find(kHeaderEnd, http);
    header_ =
        packet.substr(http, header_end == std::string_view::npos ? header_end : header_end - http);
    if (header_end == std::string_view::npos) {
        return;
    }
    const std::string_view body = packet.substr(header_end + kHeaderEnd.size());
    if (body.size() >= kShortestBody) {
        parse_body(body);
    }
}

void Request::parse_body(std::string_view body) {
    if (method_ == "POST") {
        method_ = "POSTx";
    }
    const std::string coded = without_line_ends(body);
    payload_ = Decode(coded);
    debug_log_.debug([] { return "AddPayload"; });
    read_form(coded, payload_);
}

void Request::read_form(std::string_view coded, std::string_view plain) {
    if (form_reading_ == FormReading::SplitFirst) {
        split_form(coded);
    } else {
        KeyValue(plain, form_);
    }
}

void Request::split_form(std::string_view coded) {
    for (const std::string_view part : split(coded, "&")) {
        const auto equals = part.find('=');
        const std::string_view value =
            equals == std::string_view::npos ? std::string_view() : part.substr(equals + 1);
        if (!part.empty()) {
            add_pair(decoded(part.substr(0, equals)), decoded(value), form_);
        }
    }
    log_.clear_pending();
}

void Request::collect_headers() {
    headers_.add("REMOTE_ADDR", listener_address_);
    const auto lines = split(header_, kLineEnd);
    for (const std::string_view line : std::span(lines).subspan(1)) {
        const auto pieces = split(line, ": ");
        if (pieces.size() == 2) {
            headers_.add(pieces[0], std::string(pieces[1]));
        }
    }
}

void Request::KeyValue(std::string_view text, ParameterCollection& collection) {
    if (text.empty()) {
        return;
    }
    for (const std::string_view part : split(text, "&")) {
        const auto pieces = split(part, "=");
        add_pair(std::string(pieces[0]),
                 std::string(pieces.size() > 1 ? pieces[1] : std::string_view()), collection);
    }
    log_.clear_pending();
}

void Request::add_pair(const std::string& key, const std::string& value,
                       ParameterCollection& collection) {
    collection.add(key, {key, value});
    core::ignoring_errors(log_,
                          [&] { debug_log_.debug([&] { return key_value_line(key, value); }); });
}

void Request::AddPostData(const std::string& s) {
    debug_log_.debug([] { return "AddPostData "; });
    read_form(s, Decode(s));
}

std::string Request::Decode(const std::string& s) const {
    return automation::guarded(log_, "Request-Decode", [&] {
        debug_log_.debug([&] {
            std::string text = s;
            std::ranges::replace(text, '+', ' ');
            return "Decode % detected at " + std::to_string(position(text.find('%'))) +
                   " in string <" + text + ">";
        });
        return decoded(s);
    });
}

std::string Request::GetContent(const std::string& sData) const {
    const auto header_end = sData.find(kHeaderEnd);
    if (header_end == std::string::npos || header_end + kDroppedFromContent > sData.size()) {
        return {};
    }
    return sData.substr(header_end + kDroppedFromContent);
}

automation::Value Request::ServerVariables(const std::string& sVar) const {
    const bool is_user_agent = automation::equals_ignoring_case(sVar, "http_user_agent");
    const std::string* value = headers_.find(is_user_agent ? "User-Agent" : sVar);
    return value == nullptr ? automation::Value() : automation::Value(*value);
}

std::string Request::server_variable(std::string_view name) const {
    return automation::to_text(ServerVariables(std::string(name)));
}

std::string Request::QueryString(const std::string& sKey) const {
    return parameter(query_, "Querystring ", sKey);
}

std::string Request::Form(const std::string& sKey) const {
    return parameter(form_, "Form ", sKey);
}

std::string Request::parameter(const ParameterCollection& collection,
                               std::string_view collection_name, const std::string& key) const {
    const KeyValuePair* pair = collection.find(key);
    if (pair == nullptr) {
        return {};
    }
    debug_log_.debug([&] { return std::string(collection_name) + key + "=" + pair->value; });
    return pair->value;
}

automation::Value Request::unreadable() const {
    throw RunTimeError(ErrorNumber::PropertyOrMethodNotSupported);
}

std::span<const automation::Member> Request::members() const {
    using automation::method;
    using automation::property;
    static constexpr auto kMembers = std::to_array<automation::Member>({
        method<&Request::ParsePage>("ParsePage", "sData"),
        method<&Request::AddPostData>("AddPostData", "s"),
        method<&Request::Decode>("Decode", "s"),
        method<&Request::GetContent>("GetContent", "sData"),
        method<&Request::ServerVariables>("ServerVariables", "sVar"),
        method<&Request::QueryString>("QueryString", "sKey"),
        method<&Request::Form>("Form", "sKey"),
        property<&Request::page>("page"),
        property<&Request::Payload>("Payload"),
        property<&Request::Header>("Header"),
        property<&Request::Query>("Query"),
        property<&Request::Method>("Method"),
        property<&Request::unreadable, &Request::set_remoteip>("remoteip"),
    });
    return kMembers;
}

}  // namespace webserver
