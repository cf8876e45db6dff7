#include "app/control_service.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string_view>

#include "app/request_members.h"
#include "automation/code_page.h"
#include "automation/members.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"
#include "home/embedded_host.h"
#include "home/sqlite/sqlite_log.h"
#include "host/plugin.h"

namespace app {
namespace {

using automation::code_page_to_utf8;
using automation::ErrorNumber;
using automation::RunTimeError;

constexpr std::size_t kNamesToSuggest = 5;

// A program that reads slowly must not make the daemon hold the whole log in memory.
constexpr std::int64_t kLinesAtOnce = 200;
constexpr std::size_t kBytesAtOnce = std::size_t{512} * 1024;

std::vector<automation::Value> arguments_of(const Json& request) {
    const auto member = request.find("arguments");
    if (member == request.end()) {
        return {};
    }
    if (!member->is_array()) {
        throw bad_request("The request wants an array \"arguments\"");
    }
    std::vector<automation::Value> arguments;
    for (const Json& argument : *member) {
        arguments.push_back(value_of(argument));
    }
    return arguments;
}

RunTimeError unknown_operation(const automation::Object& object, const std::string& name) {
    std::string text = "There is no operation '" + name + "'";
    if (const auto* table = dynamic_cast<const automation::TableObject*>(&object)) {
        const auto names = automation::nearest_names(table->members(), name, kNamesToSuggest);
        if (!names.empty()) {
            text += "; the nearest are " + automation::join(names, ", ");
        }
    }
    return {ErrorNumber::PropertyOrMethodNotSupported, text};
}

Json json_of(const host::UnitStatus& unit) {
    return {{"name", code_page_to_utf8(unit.name)},
            {"address", code_page_to_utf8(unit.address)},
            {"queue", code_page_to_utf8(unit.queue_text)},
            {"command", code_page_to_utf8(unit.current_command)},
            {"url", code_page_to_utf8(unit.current_url)},
            {"waiting", texts_json(unit.waiting)},
            {"retries_left", unit.retries_left},
            {"timeouts", unit.timeout_count},
            {"power_cycles", unit.power_cycle_count},
            {"flags", texts_json(unit.flags)}};
}

std::string log_message(const home::LogLine& line) {
    return one_line({{"line",
                      {{"id", line.id},
                       {"time", line.time},
                       {"type", code_page_to_utf8(line.type)},
                       {"message", code_page_to_utf8(line.message)}}}});
}

std::string error_message(const RunTimeError& error) {
    return one_line(
        {{"error",
          {{"number", error.number()}, {"text", code_page_to_utf8(error.description())}}}});
}

// Counts a request for as long as it runs, however it ends.
class Running {
  public:
    explicit Running(int& count) : count_(count) { ++count_; }

    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    ~Running() { --count_; }

  private:
    int& count_;
};

}  // namespace

ControlService::ControlService(host::Plugin& plugin, home::EmbeddedHost& host)
    : plugin_(plugin),
      log_(host.log()),
      devices_(plugin, host),
      events_(host.event_engine()),
      phone_(plugin, host),
      dialogs_(plugin),
      kinds_(make_kinds()) {}

std::vector<ControlService::Kind> ControlService::make_kinds() {
    return {
        {"call", Waits::Perhaps, [this](const Json& r) { return call(r); }},
        {"operations", Waits::Never, [this](const Json&) { return operations(); }},
        {"status", Waits::Never, [this](const Json&) { return status(); }},
        {"devices", Waits::Never, [this](const Json&) { return devices_.devices(); }},
        {"device", Waits::Never, [this](const Json& r) { return devices_.device(r); }},
        {"set", Waits::Perhaps, [this](const Json& r) { return devices_.set(r); }},
        {"x10", Waits::Perhaps, [this](const Json& r) { return devices_.x10(r); }},
        {"menu", Waits::Never, [this](const Json&) { return devices_.menu(); }},
        {"select", Waits::Perhaps, [this](const Json& r) { return devices_.select(r); }},
        {"press", Waits::Perhaps, [this](const Json& r) { return devices_.press(r); }},
        {"events", Waits::Never, [this](const Json&) { return events_.events(); }},
        {"add_event", Waits::Never, [this](const Json& r) { return events_.add(r); }},
        {"remove_event", Waits::Never, [this](const Json& r) { return events_.remove(r); }},
        {"run_event", Waits::Perhaps, [this](const Json& r) { return events_.run(r); }},
        {"enable_event", Waits::Never, [this](const Json& r) { return events_.enable(r); }},
        {"disable_event", Waits::Never, [this](const Json& r) { return events_.disable(r); }},
        {"modem", Waits::Never, [this](const Json&) { return phone_.modem(); }},
        {"modem_send", Waits::Never, [this](const Json& r) { return phone_.modem_send(r); }},
        {"phonebook", Waits::Never, [this](const Json&) { return phone_.phonebook(); }},
        {"look_up", Waits::Never, [this](const Json& r) { return phone_.look_up(r); }},
        {"ring", Waits::Perhaps, [this](const Json& r) { return phone_.ring(r); }},
        {"setup", Waits::Perhaps, [this](const Json& r) { return dialogs_.setup(r); }},
        {"setup_set", Waits::Never, [this](const Json& r) { return dialogs_.setup_set(r); }},
        {"setup_press", Waits::Perhaps, [this](const Json& r) { return dialogs_.setup_press(r); }},
        {"setup_ok", Waits::Perhaps, [this](const Json& r) { return dialogs_.setup_ok(r); }},
        {"setup_cancel", Waits::Never, [this](const Json&) { return dialogs_.setup_cancel(); }},
        {"server_open", Waits::Never, [this](const Json&) { return dialogs_.server_open(); }},
        {"server_options", Waits::Never, [this](const Json&) { return dialogs_.server_options(); }},
        {"server_debug", Waits::Never, [this](const Json& r) { return dialogs_.server_debug(r); }},
        {"server_press", Waits::Perhaps,
         [this](const Json& r) { return dialogs_.server_press(r); }},
    };
}

void ControlService::take(const std::string& line, const std::shared_ptr<AnswerSink>& sink) {
    try {
        carry_out(parsed_request(line), sink);
    } catch (const RunTimeError& error) {
        sink->send(error_message(error));
    }
}

void ControlService::carry_out(const Json& request, const std::shared_ptr<AnswerSink>& sink) {
    const std::string action = text_member(request, "do");
    if (action == "log") {
        show_log(request, sink);
    } else {
        sink->send(one_line(answer(request, action)));
    }
}

Json ControlService::answer(const Json& request, const std::string& action) {
    std::string names = "log";
    for (const Kind& kind : kinds_) {
        if (kind.name != action) {
            names += ", " + kind.name;
            continue;
        }
        if (kind.waits == Waits::Never) {
            return kind.answer(request);
        }
        if (waiting_ >= kNestedCalls) {
            throw RunTimeError(ErrorNumber::DeviceUnavailable,
                               "Too many operations wait for their end; try again later");
        }
        const Running running(waiting_);
        return kind.answer(request);
    }
    throw bad_request("Nobody can do '" + action + "'; there are " + names);
}

// --- the plug-in --------------------------------------------------------------------------------

Json ControlService::call(const Json& request) {
    const std::string operation = text_member(request, "operation");
    std::vector<automation::Value> arguments = arguments_of(request);
    const std::shared_ptr<automation::Object> object = plugin_.object();
    const std::optional<automation::MemberId> member = object->find_member(operation);
    if (!member) {
        throw unknown_operation(*object, operation);
    }
    return {{"result", json_of(object->invoke(*member, automation::Access::Call, arguments))}};
}

Json ControlService::operations() const {
    Json list = Json::array();
    const std::shared_ptr<automation::Object> object = plugin_.object();
    if (const auto* table = dynamic_cast<const automation::TableObject*>(object.get())) {
        for (const automation::Member& member : table->members()) {
            list.push_back(code_page_to_utf8(automation::usage(member)));
        }
    }
    return {{"operations", std::move(list)}};
}

Json ControlService::status() const {
    const host::PluginStatus now = plugin_.status();
    Json units = Json::array();
    for (const host::UnitStatus& unit : now.units) {
        units.push_back(json_of(unit));
    }
    Json timers = Json::array();
    for (const host::TimerStatus& timer : now.timers) {
        timers.push_back(
            {{"name", code_page_to_utf8(timer.name)}, {"interval_ms", timer.interval.count()}});
    }
    return {{"status",
             {{"role", code_page_to_utf8(now.role)},
              {"flags", texts_json(now.flags)},
              {"units", std::move(units)},
              {"timers", std::move(timers)}}}};
}

// --- the log ------------------------------------------------------------------------------------

void ControlService::show_log(const Json& request, const std::shared_ptr<AnswerSink>& sink) {
    const auto wish = request.find("follow");
    const bool follow = wish != request.end() && wish->is_boolean() && wish->get<bool>();
    std::int64_t shown = log_start(request);
    std::size_t bytes = 0;
    for (const home::LogLine& line : log_.after(shown, kLinesAtOnce)) {
        if (bytes > kBytesAtOnce) {
            break;
        }
        const std::string message = log_message(line);
        bytes += message.size();
        shown = line.id;
        sink->send(message);
    }
    const bool more = !log_.after(shown, 1).empty();
    if (follow && !more) {
        follow_log(sink);
    } else {
        sink->send(one_line({{"end", {{"after", shown}, {"more", more}}}}));
    }
}

// Numbers rise by 1, so that the newest one tells where the last few lines begin.
std::int64_t ControlService::log_start(const Json& request) {
    const std::int64_t lines = count_member(request, "lines", 0);
    const std::vector<home::LogLine> newest = log_.last(1);
    const std::int64_t end = newest.empty() ? 0 : newest.front().id;
    return count_member(request, "after", end - std::min(lines, end));
}

void ControlService::follow_log(const std::shared_ptr<AnswerSink>& sink) {
    followers_.emplace_back(
        sink, log_.follow([sink](const home::LogLine& line) { sink->send(log_message(line)); }));
}

void ControlService::drop_closed() {
    std::erase_if(followers_, [](const auto& follower) { return !follower.first->is_open(); });
}

}  // namespace app
