#include "vbscript/machine/engine.h"

#include <utility>

#include "vbscript/machine/code_object.h"
#include "vbscript/machine/machine.h"
#include "vbscript/machine/procedure_reference.h"
#include "vbscript/syntax/parser.h"
#include "vbscript/value/locale.h"
#include "vbscript/value/random.h"

namespace vbscript {

struct Engine::Parts {
    Parts(Engine& engine, EngineHost& host) : machine(symbols, engine, host) {}

    Symbols symbols;
    Machine machine;
    RandomSequence random;
    const Locale* locale = &locales().front();
};

namespace {

ProcedureDescription describe(const Procedure& procedure) {
    return {.name = std::u16string(procedure.tree->name.spelled),
            .parameters = procedure.tree->parameters.size(),
            .has_return_value = procedure.has_result()};
}

}  // namespace

Engine::Engine(EngineHost& host) : host_(host), parts_(std::make_unique<Parts>(*this, host)) {
    const Ref<Object> error = error_object();
    parts_->symbols.add_object(u"Err", error, false);
}

Engine::~Engine() {
    parts_->symbols.release_variables();
    parts_->machine.end();
    parts_->symbols.release_objects();
    parts_->symbols.release_code();
}

Module& Engine::global_module() noexcept {
    return parts_->symbols.global_module();
}

Module& Engine::add_module(std::u16string_view name) {
    return parts_->symbols.add_module(name);
}

Module* Engine::find_module(std::u16string_view name) noexcept {
    return parts_->symbols.find_module(name);
}

void Engine::add_code(Module& module, std::u16string_view source) {
    parts_->machine.run_program(module, std::make_shared<const Program>(parse(source)));
}

Value Engine::run(Module& module, std::u16string_view procedure, std::span<Value> arguments) {
    const NameId name = parts_->symbols.names().intern(procedure);
    const ModuleName* const found = parts_->symbols.find(module, name);
    const auto* known = found != nullptr ? std::get_if<Ref<Procedure>>(found) : nullptr;
    if (known == nullptr) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall, procedure);
    }
    if ((*known)->tree->parameters.size() != arguments.size()) {
        throw ScriptError(ErrorNumber::WrongNumberOfArguments, (*known)->tree->name.spelled);
    }
    return parts_->machine.call(**known, nullptr, arguments);
}

Value Engine::eval(Module& module, std::u16string_view expression) {
    return parts_->machine.run_expression(
        module, std::make_shared<const Program>(parse_expression(expression)));
}

void Engine::execute(Module& module, std::u16string_view statements) {
    add_code(module, statements);
}

void Engine::add_object(std::u16string_view name, Ref<Object> object, Members members) {
    parts_->symbols.add_object(name, std::move(object), members == Members::Global);
}

std::optional<ProcedureDescription> Engine::find_procedure(const Module& module,
                                                           std::u16string_view name) const {
    const ModuleName* const found = module.find(parts_->symbols.names().intern(name));
    const auto* known = found != nullptr ? std::get_if<Ref<Procedure>>(found) : nullptr;
    if (known == nullptr) {
        return std::nullopt;
    }
    return describe(**known);
}

std::vector<ProcedureDescription> Engine::procedures(const Module& module) const {
    std::vector<ProcedureDescription> all;
    for (const NameId name : module.order()) {
        if (const auto* known = std::get_if<Ref<Procedure>>(module.find(name))) {
            all.push_back(describe(**known));
        }
    }
    return all;
}

Ref<Object> Engine::code_object(Module& module) {
    return make<CodeObject>(module, parts_->machine.link());
}

void Engine::set_time_limit(std::optional<std::chrono::milliseconds> limit) noexcept {
    parts_->machine.set_time_limit(limit);
}

bool Engine::is_running() const noexcept {
    return parts_->machine.is_running();
}

Ref<Object> Engine::error_object() noexcept {
    return Ref<Object>(&parts_->machine.error());
}

const Locale& Engine::locale() const noexcept {
    return *parts_->locale;
}

void Engine::set_locale(std::int32_t identifier) {
    const Locale* const found = find_locale(identifier);
    if (found == nullptr) {
        throw ScriptError(ErrorNumber::LocaleSettingNotSupported);
    }
    parts_->locale = found;
}

RandomSequence& Engine::random() noexcept {
    return parts_->random;
}

Date Engine::now() {
    return host_.now();
}

Ref<Object> Engine::create_object(std::u16string_view class_name) {
    return host_.create_object(*this, class_name);
}

Ref<Object> Engine::create_builtin_class(std::u16string_view class_name) {
    return host_.create_builtin_class(*this, class_name);
}

Ref<Object> Engine::procedure_reference(std::u16string_view name) {
    Symbols& symbols = parts_->symbols;
    const ModuleName* const found =
        symbols.find(parts_->machine.running_module(), symbols.names().intern(name));
    const auto* known = found != nullptr ? std::get_if<Ref<Procedure>>(found) : nullptr;
    if (known == nullptr) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    return make<ProcedureReference>(**known, parts_->machine.link());
}

std::int32_t Engine::message_box(std::u16string_view prompt, std::int32_t buttons,
                                 std::u16string_view title) {
    return host_.message_box(prompt, buttons, title);
}

std::u16string Engine::input_box(std::u16string_view prompt, std::u16string_view title,
                                 std::u16string_view initial) {
    return host_.input_box(prompt, title, initial);
}

void Engine::check_time() {
    parts_->machine.check_time();
}

}  // namespace vbscript
