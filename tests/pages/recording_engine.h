#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "host/script_control.h"

namespace pages {

// What an engine of tests has been given and asked, and what it is to answer. Owned by the test,
// before all engines.
struct EngineRecord {
    std::vector<std::string> code;   // each text that was added
    std::vector<std::string> calls;  // "name(first, second)", objects as their class
    std::map<std::string, automation::Value, std::less<>> results;  // by procedure, else Empty
    std::map<std::string, std::function<void()>, std::less<>> on_run;
    std::string broken_code;  // a text that holds this is a syntax error; none for ""
    int engines = 0;
};

// An engine that runs nothing and notes everything.
class RecordingControl final : public host::ScriptControl {
  public:
    explicit RecordingControl(EngineRecord& record) : record_(record) { ++record_.engines; }

    void AddCode(std::string_view text) override {
        if (!record_.broken_code.empty() && text.find(record_.broken_code) != text.npos) {
            throw automation::RunTimeError(1002, "Syntax error");
        }
        record_.code.emplace_back(text);
    }

    automation::Value Run(std::string_view procedure,
                          std::span<const automation::Value> arguments) override {
        std::string call = std::string(procedure) + "(";
        for (const automation::Value& argument : arguments) {
            call += (call.ends_with('(') ? "" : ", ") + shown(argument);
        }
        record_.calls.push_back(call + ")");
        if (const auto action = record_.on_run.find(procedure); action != record_.on_run.end()) {
            action->second();
        }
        const auto result = record_.results.find(procedure);
        return result == record_.results.end() ? automation::Value() : result->second;
    }

    automation::Value Eval(std::string_view /*expression*/) override { return {}; }

    void set_Language(std::string_view /*language*/) override {}

    void set_AllowUI(bool /*allowed*/) override {}

    void set_Timeout(std::chrono::milliseconds /*limit*/) override {}

    void AddObject(std::string_view /*name*/, std::shared_ptr<automation::Object> /*object*/,
                   bool /*add_members*/) override {}

    host::ScriptModule& add_module(std::string_view /*name*/) override { return *this; }

    [[nodiscard]] host::ScriptModule& module(std::string_view /*name*/) override { return *this; }

    [[nodiscard]] const host::ScriptFailure& Error() const noexcept override { return failure_; }

    void Clear() noexcept override { failure_ = {}; }

  private:
    static std::string shown(const automation::Value& value) {
        return value.kind() == automation::Kind::Object ? automation::type_name(value)
                                                        : automation::to_text(value);
    }

    EngineRecord& record_;
    host::ScriptFailure failure_;
};

class RecordingControls final : public host::ScriptControls {
  public:
    explicit RecordingControls(EngineRecord& record) : record_(record) {}

    [[nodiscard]] std::unique_ptr<host::ScriptControl> create() override {
        return std::make_unique<RecordingControl>(record_);
    }

  private:
    EngineRecord& record_;
};

}  // namespace pages
