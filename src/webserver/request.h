#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "automation/keyed_collection.h"
#include "automation/members.h"
#include "webserver/key_value_pair.h"

namespace core {
class VeloraLog;
}

namespace webserver {

class TCPDebugLog;

using ParameterCollection = automation::KeyedCollection<KeyValuePair>;

// What comes first with the fields of a form. Once decoded, a "&" or "=" of a value cuts it.
enum class FormReading : std::uint8_t { DecodedFirst, SplitFirst };

// One HTTP request, as its first packet tells it; scripts see it too. Made by the dispatcher for
// one turn; a script that keeps it may use it as long as the server stands. The parser is
// tolerant: what it cannot find stays empty, and no failure of it is ever told to the client.
// No member pumps.
class Request final : public automation::TableObject {
  public:
    // `listener_address` is the peer's address as the listener knows it, the REMOTE_ADDR of all
    // requests. Both logs outlive the request.
    Request(core::VeloraLog& log, TCPDebugLog& debug_log, std::string listener_address,
            FormReading form_reading = FormReading::DecodedFirst);

    // --- what the dispatcher does ---------------------------------------------------------------

    // Takes the first packet apart. A failure is reported and leaves what has been found so far.
    void ParsePage(const std::string& sData);

    // Adds a later packet of a POST to the form. Throws: RunTimeError of the debug log.
    void AddPostData(const std::string& s);

    void set_remoteip(std::string address) { remote_ip_ = std::move(address); }

    // The other end of the request's own connection; scripts and pages have REMOTE_ADDR alone.
    [[nodiscard]] const std::string& remoteip() const noexcept { return remote_ip_; }

    // --- what pages ask -------------------------------------------------------------------------

    // A header line by name, "http_user_agent" for "User-Agent"; Empty when it is not there.
    [[nodiscard]] automation::Value ServerVariables(const std::string& sVar) const;

    // The same as text, "" when it is not there.
    [[nodiscard]] std::string server_variable(std::string_view name) const;

    // A parameter by key without regard to case, "" when it is not there.
    [[nodiscard]] std::string QueryString(const std::string& sKey) const;
    [[nodiscard]] std::string Form(const std::string& sKey) const;

    [[nodiscard]] const ParameterCollection& QueryStringCol() const noexcept { return query_; }

    [[nodiscard]] const ParameterCollection& FormCol() const noexcept { return form_; }

    [[nodiscard]] const std::string& page() const noexcept { return page_; }

    [[nodiscard]] const std::string& Payload() const noexcept { return payload_; }

    [[nodiscard]] const std::string& Header() const noexcept { return header_; }

    // With its leading "?", or "".
    [[nodiscard]] const std::string& Query() const noexcept { return query_text_; }

    // "GET", "POST", ...; a POST with its body in the first packet is a "POSTx".
    [[nodiscard]] const std::string& Method() const noexcept { return method_; }

    // --- text tools -----------------------------------------------------------------------------

    // Undoes the coding of form values; "" after a reported failure.
    [[nodiscard]] std::string Decode(const std::string& s) const;

    // The body of a packet without its first character (kept), "" when there is no blank line.
    [[nodiscard]] std::string GetContent(const std::string& sData) const;

    [[nodiscard]] std::string type_name() const override { return "Request"; }

    [[nodiscard]] std::span<const automation::Member> members() const override;

  private:
    // Positions in a packet, counted from 1; 0 where there is none.
    struct Landmarks {
        std::size_t blank = 0;
        std::size_t http = 0;
    };

    void parse_packet(std::string_view packet, Landmarks& found);
    void parse_target(std::string_view coded_target);
    void parse_header_and_body(std::string_view packet, std::size_t http);
    void parse_body(std::string_view body);
    void collect_headers();
    void KeyValue(std::string_view text, ParameterCollection& collection);
    void add_pair(const std::string& key, const std::string& value,
                  ParameterCollection& collection);
    void read_form(std::string_view coded, std::string_view plain);
    void split_form(std::string_view coded);
    [[nodiscard]] std::string parameter(const ParameterCollection& collection,
                                        std::string_view collection_name,
                                        const std::string& key) const;
    [[nodiscard]] automation::Value unreadable() const;

    core::VeloraLog& log_;
    TCPDebugLog& debug_log_;
    std::string listener_address_;
    FormReading form_reading_;

    ParameterCollection query_;
    ParameterCollection form_;
    automation::KeyedCollection<std::string> headers_;
    std::string query_text_;
    std::string page_;
    std::string payload_;
    std::string header_;
    std::string method_;
    std::string remote_ip_;
};

}  // namespace webserver
