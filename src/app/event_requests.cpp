#include "app/event_requests.h"

#include <nlohmann/json.hpp>

#include "app/request_members.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "home/events/event_engine.h"
#include "home/events/notation.h"

namespace app {
namespace {

using automation::code_page_to_utf8;

Json json_of(const home::Event& event) {
    const home::EventDefinition& definition = event.definition;
    std::vector<std::string> actions;
    for (const home::Action& action : definition.actions) {
        actions.push_back(home::text_of(action));
    }
    return {{"name", code_page_to_utf8(definition.name)},
            {"enabled", definition.enabled},
            {"when", code_page_to_utf8(home::text_of(definition.trigger))},
            {"actions", texts_json(actions)},
            {"runs", event.runs},
            {"last_run", moment_json(event.last_run)}};
}

}  // namespace

Json EventRequests::events() const {
    Json list = Json::array();
    for (const home::Event& event : engine_.events()) {
        list.push_back(json_of(event));
    }
    return {{"events", std::move(list)}};
}

Json EventRequests::add(const Json& request) {
    home::EventDefinition definition{.name = automation::trim(text_member(request, "name")),
                                     .trigger = home::parse_trigger(text_member(request, "when")),
                                     .actions = {}};
    for (const std::string& line : texts_member(request, "actions")) {
        definition.actions.push_back(home::parse_action(line));
    }
    const std::string name = definition.name;
    engine_.add(std::move(definition));
    return {{"event", json_of(engine_.event(name))}};
}

Json EventRequests::remove(const Json& request) {
    engine_.remove(text_member(request, "name"));
    return {{"done", "removed"}};
}

Json EventRequests::run(const Json& request) {
    const std::string name = text_member(request, "name");
    engine_.run(name);
    return {{"done", "run"}};
}

Json EventRequests::enable(const Json& request) {
    const std::string name = text_member(request, "name");
    engine_.enable(name);
    return {{"event", json_of(engine_.event(name))}};
}

Json EventRequests::disable(const Json& request) {
    const std::string name = text_member(request, "name");
    engine_.disable(name);
    return {{"event", json_of(engine_.event(name))}};
}

}  // namespace app
