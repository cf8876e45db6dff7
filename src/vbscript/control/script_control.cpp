#include "vbscript/control/script_control.h"

#include <vector>

#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "vbscript/syntax/syntax_errors.h"

namespace vbscript {

namespace {

constexpr std::int32_t kInvalidPropertyValue = 380;
constexpr std::int32_t kNameIsTaken = 457;
constexpr std::chrono::milliseconds kPresetTimeout{10000};
constexpr std::string_view kCompiler = "Microsoft VBScript compilation error";

using automation::code_page_to_utf16;
using automation::utf16_to_code_page;

host::ScriptFailure failure_of(const ScriptError& error) {
    return {.Number = error.number,
            .Source = utf16_to_code_page(error.source),
            .Description = utf16_to_code_page(error.message()),
            .Text = utf16_to_code_page(error.source_line),
            .Line = error.line,
            .Column = error.column};
}

host::ScriptFailure failure_of(const SyntaxError& error) {
    return {.Number = static_cast<std::int32_t>(error.number()),
            .Source = std::string(kCompiler),
            .Description = utf16_to_code_page(error.description()),
            .Text = utf16_to_code_page(error.source_line()),
            .Line = static_cast<std::int32_t>(error.line()),
            .Column = static_cast<std::int32_t>(error.column())};
}

automation::RunTimeError error_of(const host::ScriptFailure& failure) {
    return {failure.Number, failure.Description, failure.Source};
}

}  // namespace

// A module of the engine that has a name.
class ScriptControl::NamedModule final : public host::ScriptModule {
  public:
    NamedModule(ScriptControl& control, Module& module) : control_(control), module_(module) {}

    void AddCode(std::string_view text) override { control_.add_code(module_, text); }

    automation::Value Run(std::string_view procedure,
                          std::span<const automation::Value> arguments) override {
        return control_.run(module_, procedure, arguments);
    }

    automation::Value Eval(std::string_view expression) override {
        return control_.eval(module_, expression);
    }

  private:
    ScriptControl& control_;
    Module& module_;
};

ScriptControl::ScriptControl(ScriptServices& services)
    : host_(services), engine_(host_), bridge_(engine_) {
    host_.set_bridge(bridge_);
    engine_.set_time_limit(kPresetTimeout);
}

ScriptControl::~ScriptControl() = default;

template <typename Body>
auto ScriptControl::recording(Body&& body) {
    try {
        return body();
    } catch (const ScriptError& error) {
        failure_ = failure_of(error);
    } catch (const SyntaxError& error) {
        failure_ = failure_of(error);
    }
    throw error_of(failure_);
}

void ScriptControl::set_Language(std::string_view language) {
    if (!automation::equals_ignoring_case(language, "VBScript")) {
        throw automation::RunTimeError(kInvalidPropertyValue,
                                       "Invalid property value: no script language '" +
                                           std::string(language) + "', only VBScript");
    }
}

void ScriptControl::set_AllowUI(bool allowed) {
    host_.set_allow_ui(allowed);
}

void ScriptControl::set_Timeout(std::chrono::milliseconds limit) {
    if (limit.count() < 0) {
        engine_.set_time_limit(std::nullopt);
    } else {
        engine_.set_time_limit(limit);
    }
}

void ScriptControl::AddObject(std::string_view name, std::shared_ptr<automation::Object> object,
                              bool add_members) {
    engine_.add_object(code_page_to_utf16(name), bridge_.from_automation(object),
                       add_members ? Engine::Members::Global : Engine::Members::Prefixed);
}

void ScriptControl::AddCode(std::string_view text) {
    add_code(engine_.global_module(), text);
}

automation::Value ScriptControl::Run(std::string_view procedure,
                                     std::span<const automation::Value> arguments) {
    return run(engine_.global_module(), procedure, arguments);
}

automation::Value ScriptControl::Eval(std::string_view expression) {
    return eval(engine_.global_module(), expression);
}

host::ScriptModule& ScriptControl::add_module(std::string_view name) {
    std::unique_ptr<NamedModule>& module = modules_[automation::to_lower(name)];
    if (module != nullptr) {
        throw automation::RunTimeError(
            kNameIsTaken, "This key is already associated with an element of this collection: '" +
                              std::string(name) + "'");
    }
    module = std::make_unique<NamedModule>(*this, engine_.add_module(code_page_to_utf16(name)));
    return *module;
}

host::ScriptModule& ScriptControl::module(std::string_view name) {
    const auto found = modules_.find(automation::to_lower(name));
    if (found == modules_.end()) {
        throw automation::RunTimeError(
            automation::ErrorNumber::SubscriptOutOfRange,
            "Subscript out of range: no module '" + std::string(name) + "'");
    }
    return *found->second;
}

void ScriptControl::add_code(Module& module, std::string_view text) {
    recording([&] { engine_.add_code(module, code_page_to_utf16(text)); });
}

automation::Value ScriptControl::run(Module& module, std::string_view procedure,
                                     std::span<const automation::Value> arguments) {
    return recording([&] {
        std::vector<Value> values;
        for (const automation::Value& argument : arguments) {
            values.push_back(bridge_.from_automation(argument));
        }
        return bridge_.to_automation(engine_.run(module, code_page_to_utf16(procedure), values));
    });
}

automation::Value ScriptControl::eval(Module& module, std::string_view expression) {
    return recording([&] {
        return bridge_.to_automation(engine_.eval(module, code_page_to_utf16(expression)));
    });
}

}  // namespace vbscript
