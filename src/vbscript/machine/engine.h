#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vbscript/machine/engine_host.h"
#include "vbscript/value/context.h"
#include "vbscript/value/script_error.h"

namespace vbscript {

class Module;

// What a caller may want to know of a Sub or Function of a module.
struct ProcedureDescription {
    std::u16string name;
    std::size_t parameters = 0;
    bool has_return_value = false;
};

// One script engine: its modules, their code and variables, and the machine that runs them. Used
// by one thread. Every call that runs script may call back into the program through objects and
// the host, and these may call the engine again; so a call "may run script".
//
// Code errors are SyntaxError, errors of running code ScriptError; both carry line, column and the
// source line. Exceptions of other kinds that objects throw pass through the script unchanged, and
// no `On Error` of a script sees them.
class Engine final : public Context {
  public:
    // `host` outlives the engine.
    explicit Engine(EngineHost& host);

    // Releases all variables, last wishes of objects included, then breaks what is left of the
    // script's own objects. Objects of scripts that the program still holds stay as empty shells.
    ~Engine() override;

    // The module that is always there; its names are seen by all others.
    [[nodiscard]] Module& global_module() noexcept;

    // A name space of its own. Lives as long as the engine. An existing name gives its module.
    Module& add_module(std::u16string_view name);

    // Without regard to case; null when there is none.
    [[nodiscard]] Module* find_module(std::u16string_view name) noexcept;

    // Compiles a script into a module and runs what stands outside of its procedures. Procedures
    // and classes of a name that the module already has replace it. May run script.
    // Throws: SyntaxError, with the module as it was; ScriptError, after the statements before it.
    void add_code(Module& module, std::u16string_view source);

    // Calls a Sub or Function; Empty from a Sub. Parameters by reference leave their new value in
    // `arguments`. May run script.
    // Throws: ScriptError, among them 5 for no such procedure, 450 for a wrong count of arguments.
    Value run(Module& module, std::u16string_view procedure, std::span<Value> arguments);

    // The value of one expression. May run script. Throws: SyntaxError, ScriptError.
    [[nodiscard]] Value eval(Module& module, std::u16string_view expression);

    // Runs statements as if they stood at the end of the module's code. May run script.
    // Throws: SyntaxError, ScriptError.
    void execute(Module& module, std::u16string_view statements);

    // Makes an object known to all modules by name, behind the names of the scripts themselves.
    // With `global_members` its members can be called without a prefix as well; they extend the
    // library: names of scripts and of the language come first.
    enum class Members : std::uint8_t { Prefixed, Global };
    void add_object(std::u16string_view name, Ref<Object> object, Members members);

    // Absent when the module has no such procedure of its own.
    [[nodiscard]] std::optional<ProcedureDescription> find_procedure(
        const Module& module, std::u16string_view name) const;

    // In the order of their definition.
    [[nodiscard]] std::vector<ProcedureDescription> procedures(const Module& module) const;

    // An object whose members are the procedures and global variables of a module.
    [[nodiscard]] Ref<Object> code_object(Module& module);

    // How long one outermost call may run; none or 0: without limit.
    void set_time_limit(std::optional<std::chrono::milliseconds> limit) noexcept;

    // Whether a script is running, so that the program stands inside a call from it.
    [[nodiscard]] bool is_running() const noexcept;

    // The `Err` object.
    [[nodiscard]] Ref<Object> error_object() noexcept;

    // Context
    [[nodiscard]] const Locale& locale() const noexcept override;
    void set_locale(std::int32_t identifier) override;
    [[nodiscard]] RandomSequence& random() noexcept override;
    [[nodiscard]] Date now() override;
    Ref<Object> create_object(std::u16string_view class_name) override;
    Ref<Object> create_builtin_class(std::u16string_view class_name) override;
    Ref<Object> procedure_reference(std::u16string_view name) override;
    std::int32_t message_box(std::u16string_view prompt, std::int32_t buttons,
                             std::u16string_view title) override;
    std::u16string input_box(std::u16string_view prompt, std::u16string_view title,
                             std::u16string_view initial) override;
    void check_time() override;

  private:
    EngineHost& host_;
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace vbscript
