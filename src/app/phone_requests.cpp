#include "app/phone_requests.h"

#include <nlohmann/json.hpp>

#include "app/request_members.h"
#include "automation/code_page.h"
#include "home/embedded_host.h"
#include "host/plugin.h"

namespace app {

using automation::code_page_to_utf8;

Json PhoneRequests::modem() const {
    const host::ModemEcho echo = plugin_.modem_echo();
    return {{"modem",
             {{"open", echo.is_open},
              {"data", code_page_to_utf8(echo.data)},
              {"status", code_page_to_utf8(echo.status)},
              {"data_written", echo.data_written},
              {"status_written", echo.status_written}}}};
}

Json PhoneRequests::modem_send(const Json& request) {
    const std::string text = text_member(request, "text");
    if (!plugin_.modem_echo().is_open) {
        throw automation::RunTimeError(automation::ErrorNumber::DeviceUnavailable,
                                       "The modem's port is not open; see CIDCommPort");
    }
    plugin_.modem_send(text);
    return {{"done", "sent"}};
}

Json PhoneRequests::phonebook() const {
    Json list = Json::array();
    for (const host::PhonebookLine& line : plugin_.phonebook()) {
        list.push_back({{"number", code_page_to_utf8(line.number)},
                        {"name", code_page_to_utf8(line.name)},
                        {"location", code_page_to_utf8(line.location)},
                        {"sound", code_page_to_utf8(line.wav)}});
    }
    return {{"phonebook", std::move(list)}};
}

Json PhoneRequests::look_up(const Json& request) {
    return {{"caller", code_page_to_utf8(plugin_.look_up_caller(text_member(request, "number")))}};
}

Json PhoneRequests::ring(const Json& request) {
    constexpr std::int64_t kFirstLine = 1;
    constexpr std::int64_t kLastLine = 99;
    const std::string number = text_member(request, "number");
    const std::string name = text_member(request, "name");
    const std::int64_t line = count_member(request, "line", kFirstLine);
    if (line < kFirstLine || line > kLastLine) {
        throw bad_request("There is no telephone line " + std::to_string(line));
    }
    host_.telephone_call(static_cast<std::int16_t>(line), number, name);
    return {{"done", "line " + std::to_string(line)}};
}

}  // namespace app
