#include "unit/state_json.h"

#include <nlohmann/json.hpp>

namespace unit {
namespace {

using Json = nlohmann::ordered_json;

template <typename T>
Json value_or_null(const std::optional<T>& value) {
    return value ? Json(*value) : Json(nullptr);
}

}  // namespace

std::string state_json(const ApplianceState& state, const Fault& fault, JsonLayout layout) {
    Json json;
    json["name"] = state.name;
    json["power"] = to_text(state.power);
    json["awake"] = state.awake;
    json["backlight"] = state.backlight;
    json["top_led"] = to_text(state.top_led);
    json["mail_led"] = to_text(state.mail_led);
    json["full_screen"] = state.full_screen;
    json["sounds_volume"] = state.sounds_volume;
    json["volume"] = state.volume;
    json["last_sound"] = value_or_null(state.last_sound);
    json["browser"]["url"] = state.browser.url;
    json["browser"]["status"] = state.browser.status;
    json["browser"]["bytes"] = state.browser.bytes;
    json["playing"]["file"] = state.playing.file;
    json["playing"]["bytes"] = state.playing.bytes;
    json["playing"]["seconds"] = value_or_null(state.playing.seconds);
    json["jukebox"]["last"] = state.jukebox.last;
    json["jukebox"]["commands"] = state.jukebox.commands;
    json["client"]["subscribed"] = state.client.is_subscribed;
    json["client"]["messages"] = state.client.messages;
    json["client"]["caller"]["name"] = state.client.caller_name;
    json["client"]["caller"]["number"] = state.client.caller_number;
    json["client"]["command"] = state.client.command;
    json["fault"] = to_text(fault);
    json["requests"] = state.requests;
    const int indent = layout == JsonLayout::Indented ? 4 : -1;
    return json.dump(indent, ' ', false, Json::error_handler_t::replace);
}

}  // namespace unit
