#include "app/device_requests.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "app/request_members.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "home/device_values.h"
#include "home/embedded_host.h"
#include "home/nearest.h"
#include "host/plugin.h"
#include "platform/gumbo/html_text.h"

namespace app {
namespace {

using automation::code_page_to_utf8;
using automation::equals_ignoring_case;
using home::DeviceRecord;

std::string word_of(const DeviceRecord& device) {
    const auto choices = home::choices_of(device.fields);
    const auto choice = std::ranges::find(choices, device.value, &home::DeviceChoice::number);
    if (choice != choices.end()) {
        return choice->word;
    }
    return device.status == host::kStatusOn ? "on" : device.status == host::kStatusOff ? "off" : "";
}

// The device's string without its mark-up, as one line.
std::string shown_text(const DeviceRecord& device) {
    std::string text = platform::body_inner_text(device.text, platform::PageCharset::Detect);
    std::erase(text, '\r');
    std::ranges::replace(text, '\n', ' ');
    return automation::trim(text);
}

Json summary(const DeviceRecord& device) {
    return {{"code", code_page_to_utf8(device.code())},
            {"name", code_page_to_utf8(device.fields.name)},
            {"location", code_page_to_utf8(device.fields.location)},
            {"value", device.value},
            {"word", code_page_to_utf8(word_of(device))},
            {"text", code_page_to_utf8(shown_text(device))},
            {"last_change", moment_json(device.last_change)}};
}

Json details(const DeviceRecord& device) {
    Json json = summary(device);
    json["string"] = code_page_to_utf8(device.text);
    json["values"] = Json::array();
    for (const home::DeviceChoice& choice : home::choices_of(device.fields)) {
        json["values"].push_back(
            {{"number", choice.number}, {"word", code_page_to_utf8(choice.word)}});
    }
    json["buttons"] = Json::array();
    for (const home::DeviceButton& button : home::buttons_of(device.fields)) {
        json["buttons"].push_back(code_page_to_utf8(button.caption));
    }
    return {{"device", std::move(json)}};
}

// Throws: RunTimeError 5 with the nearest codes.
DeviceRecord existing_device(home::EmbeddedHost& host, const std::string& code) {
    const std::string wanted = automation::to_upper(automation::trim(code));
    if (const auto device = host.devices().find(wanted)) {
        return *device;
    }
    std::vector<std::string> codes;
    for (const DeviceRecord& device : host.devices().snapshot()) {
        codes.push_back(device.code());
    }
    throw bad_request("there is no device '" + wanted + "'" + home::nearest_text(codes, wanted));
}

// The caption as the device has it. Throws: RunTimeError 5 with the nearest ones.
std::string existing_button(home::EmbeddedHost& host, const std::string& caption) {
    std::vector<std::string> captions;
    for (const DeviceRecord& device : host.devices().snapshot()) {
        for (const home::DeviceButton& button : home::buttons_of(device.fields)) {
            if (equals_ignoring_case(button.caption, caption)) {
                return button.caption;
            }
            captions.push_back(button.caption);
        }
    }
    throw bad_request("there is no button '" + caption + "'" +
                      home::nearest_text(captions, caption));
}

Json done(const std::string& what) {
    return {{"done", code_page_to_utf8(what)}};
}

}  // namespace

Json DeviceRequests::devices() const {
    Json list = Json::array();
    for (const DeviceRecord& device : host_.devices().snapshot()) {
        list.push_back(summary(device));
    }
    return {{"devices", std::move(list)}};
}

Json DeviceRequests::device(const Json& request) const {
    return details(existing_device(host_, text_member(request, "code")));
}

Json DeviceRequests::set(const Json& request) {
    const std::string code = text_member(request, "code");
    host_.set_device(code, text_member(request, "value"));
    return details(existing_device(host_, code));
}

Json DeviceRequests::x10(const Json& request) {
    const std::string code = text_member(request, "code");
    const std::string command = automation::to_lower(text_member(request, "command"));
    const std::string origin = text_member(request, "origin");
    if (command != "on" && command != "off") {
        throw bad_request("'" + command + "' is no command; there are on and off");
    }
    if (origin == "received") {
        host_.x10_line().receive(code, command);
    } else if (origin == "sent") {
        host_.x10_line().ExecX10(code, command);
    } else {
        throw bad_request("'" + origin + "' is no origin; there are received and sent");
    }
    return done(code + " " + command);
}

Json DeviceRequests::menu() const {
    std::vector<std::string> labels;
    for (const home::MenuEntry& entry : host_.menu()) {
        labels.push_back(entry.label);
    }
    return {{"menu", texts_json(labels)}};
}

Json DeviceRequests::select(const Json& request) {
    const std::string label = host_.menu_entry(text_member(request, "entry")).label;
    plugin_.SelectMenu(label);
    return done(label);
}

Json DeviceRequests::press(const Json& request) {
    const std::string caption = existing_button(host_, text_member(request, "button"));
    plugin_.ButtonPress(caption);
    return done(caption);
}

}  // namespace app
