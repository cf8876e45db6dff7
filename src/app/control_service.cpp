#include "app/control_service.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string_view>

#include "automation/code_page.h"
#include "automation/members.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"
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

RunTimeError bad_request(const std::string& text) {
    return {ErrorNumber::InvalidProcedureCall, text};
}

Json parsed(const std::string& line) {
    Json request = Json::parse(line, nullptr, false);
    if (!request.is_object()) {
        throw bad_request("The request is no JSON object in one line");
    }
    return request;
}

// Texts of a request are told in errors, which are in the code page like all the others.
std::string text_member(const Json& request, const char* name) {
    const auto member = request.find(name);
    if (member == request.end() || !member->is_string()) {
        throw bad_request("The request wants a text \"" + std::string(name) + "\"");
    }
    return automation::utf8_to_code_page(member->get<std::string>());
}

std::int64_t count_member(const Json& request, const char* name, std::int64_t fallback) {
    const auto member = request.find(name);
    if (member == request.end()) {
        return fallback;
    }
    if (!member->is_number_integer() || member->get<double>() < 0) {
        throw bad_request("The request wants a whole number \"" + std::string(name) +
                          "\", 0 or more");
    }
    return member->get<std::int64_t>();
}

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

Json texts(const std::vector<std::string>& code_page_texts) {
    Json array = Json::array();
    for (const std::string& text : code_page_texts) {
        array.push_back(code_page_to_utf8(text));
    }
    return array;
}

Json json_of(const host::UnitStatus& unit) {
    return {{"name", code_page_to_utf8(unit.name)},
            {"address", code_page_to_utf8(unit.address)},
            {"queue", code_page_to_utf8(unit.queue_text)},
            {"command", code_page_to_utf8(unit.current_command)},
            {"url", code_page_to_utf8(unit.current_url)},
            {"waiting", texts(unit.waiting)},
            {"retries_left", unit.retries_left},
            {"timeouts", unit.timeout_count},
            {"power_cycles", unit.power_cycle_count},
            {"flags", texts(unit.flags)}};
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

// Counts a call for as long as it runs, however it ends.
class RunningCall {
  public:
    explicit RunningCall(int& count) : count_(count) { ++count_; }

    RunningCall(const RunningCall&) = delete;
    RunningCall& operator=(const RunningCall&) = delete;

    ~RunningCall() { --count_; }

  private:
    int& count_;
};

}  // namespace

void ControlService::take(const std::string& line, const std::shared_ptr<AnswerSink>& sink) {
    try {
        carry_out(parsed(line), sink);
    } catch (const RunTimeError& error) {
        sink->send(error_message(error));
    }
}

void ControlService::carry_out(const Json& request, const std::shared_ptr<AnswerSink>& sink) {
    const std::string action = text_member(request, "do");
    if (action == "call") {
        sink->send(one_line({{"result", call(request)}}));
    } else if (action == "operations") {
        sink->send(one_line({{"operations", operations()}}));
    } else if (action == "status") {
        sink->send(one_line({{"status", status()}}));
    } else if (action == "log") {
        show_log(request, sink);
    } else {
        throw bad_request("Nobody can do '" + action +
                          "'; there are call, operations, status and log");
    }
}

// --- the plug-in --------------------------------------------------------------------------------

Json ControlService::call(const Json& request) {
    const std::string operation = text_member(request, "operation");
    std::vector<automation::Value> arguments = arguments_of(request);
    if (calls_ >= kNestedCalls) {
        throw RunTimeError(ErrorNumber::DeviceUnavailable,
                           "Too many operations wait for their end; try again later");
    }
    const std::shared_ptr<automation::Object> object = plugin_.object();
    const std::optional<automation::MemberId> member = object->find_member(operation);
    if (!member) {
        throw unknown_operation(*object, operation);
    }
    const RunningCall running(calls_);
    return json_of(object->invoke(*member, automation::Access::Call, arguments));
}

Json ControlService::operations() const {
    Json list = Json::array();
    const std::shared_ptr<automation::Object> object = plugin_.object();
    if (const auto* table = dynamic_cast<const automation::TableObject*>(object.get())) {
        for (const automation::Member& member : table->members()) {
            list.push_back(code_page_to_utf8(automation::usage(member)));
        }
    }
    return list;
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
    return {{"role", code_page_to_utf8(now.role)},
            {"flags", texts(now.flags)},
            {"units", std::move(units)},
            {"timers", std::move(timers)}};
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
