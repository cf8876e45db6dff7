#include "app/dialog_requests.h"

#include <array>
#include <nlohmann/json.hpp>

#include "app/request_members.h"
#include "automation/code_page.h"
#include "host/dialogs.h"
#include "host/plugin.h"

namespace app {
namespace {

using automation::code_page_to_utf8;
using automation::ErrorNumber;
using automation::RunTimeError;

// By the number of the kind.
constexpr std::array<const char*, 5> kKinds{"text", "check", "option", "label", "button"};

Json json_of(const host::DialogControl& control) {
    return {{"page", code_page_to_utf8(control.page)},
            {"name", code_page_to_utf8(control.name)},
            {"index", control.index},
            {"count", control.count},
            {"kind", kKinds.at(static_cast<std::size_t>(control.kind))},
            {"setting", code_page_to_utf8(control.setting)},
            {"group", code_page_to_utf8(control.group)},
            {"caption", code_page_to_utf8(control.caption)},
            {"text", code_page_to_utf8(control.text)},
            {"value", control.value},
            {"enabled", control.is_enabled},
            {"enabled_by", code_page_to_utf8(control.enabled_by)},
            {"choices", texts_json(control.choices)}};
}

void set_control(host::SetupDialog& dialog, const Json& change) {
    const std::string name = text_member(change, "name");
    const auto index = static_cast<std::size_t>(count_member(change, "index", 0));
    dialog.set(name, index, text_member(change, "text"));
}

template <typename Dialog>
Dialog& existing(Dialog* dialog) {
    if (dialog == nullptr) {
        throw RunTimeError(ErrorNumber::PropertyOrMethodNotSupported,
                           "The plug-in has no dialogs here");
    }
    return *dialog;
}

}  // namespace

host::SetupDialog& DialogRequests::setup_dialog() const {
    return existing(plugin_.setup_dialog());
}

host::ServerDialog& DialogRequests::server_dialog() const {
    return existing(plugin_.server_dialog());
}

Json DialogRequests::setup(const Json& request) {
    host::SetupDialog& dialog = setup_dialog();
    if (request.contains("page")) {
        dialog.show_page(text_member(request, "page"));
    }
    dialog.open();
    Json controls = Json::array();
    for (const host::DialogControl& control : dialog.controls()) {
        controls.push_back(json_of(control));
    }
    return {{"setup",
             {{"labels", texts_json(dialog.labels())},
              {"pages", texts_json(dialog.pages())},
              {"page", code_page_to_utf8(dialog.shown_page())},
              {"controls", std::move(controls)}}}};
}

Json DialogRequests::setup_set(const Json& request) {
    set_control(setup_dialog(), request);
    return {{"done", "set"}};
}

Json DialogRequests::setup_press(const Json& request) {
    const std::string button = text_member(request, "button");
    setup_dialog().press(button);
    return {{"done", code_page_to_utf8(button)}};
}

Json DialogRequests::setup_ok(const Json& request) {
    host::SetupDialog& dialog = setup_dialog();
    if (const auto changes = request.find("controls"); changes != request.end()) {
        if (!changes->is_array()) {
            throw bad_request("The request wants an array \"controls\"");
        }
        for (const Json& change : *changes) {
            set_control(dialog, change);
        }
    }
    if (!dialog.ok()) {
        throw RunTimeError(ErrorNumber::DeviceIoError,
                           "Not all settings could be stored; the log tells why");
    }
    return {{"done", "saved"}};
}

Json DialogRequests::setup_cancel() {
    setup_dialog().cancel();
    return {{"done", "cancelled"}};
}

Json DialogRequests::server_open() {
    server_dialog().open();
    return server_options();
}

Json DialogRequests::server_options() const {
    const host::ServerDialog& dialog = server_dialog();
    return {{"server_options",
             {{"open", dialog.is_open()},
              {"box", code_page_to_utf8(dialog.status_box())},
              {"debug", dialog.debug_box()},
              {"buttons", texts_json(dialog.buttons())}}}};
}

Json DialogRequests::server_debug(const Json& request) {
    const auto value = request.find("value");
    if (value == request.end() || !value->is_boolean()) {
        throw bad_request("The request wants \"value\", true or false");
    }
    server_dialog().set_debug_box(value->get<bool>());
    return server_options();
}

Json DialogRequests::server_press(const Json& request) {
    server_dialog().press(text_member(request, "button"));
    return server_options();
}

}  // namespace app
