#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "automation/value.h"

namespace host {

// The latest failure of a script engine: in the code of a script or while it ran.
struct ScriptFailure {
    std::int32_t Number = 0;  // 0: none since the last `Clear`
    std::string Source;
    std::string Description;
    std::string Text;  // the line of the script
    std::int32_t Line = 0;
    std::int32_t Column = 0;
};

// A namespace of its own within an engine: its procedures see one another first, then those of
// the engine. Lives as long as its engine.
class ScriptModule {
  public:
    ScriptModule() = default;
    ScriptModule(const ScriptModule&) = delete;
    ScriptModule& operator=(const ScriptModule&) = delete;
    virtual ~ScriptModule() = default;

    // Adds procedures and classes, and runs what stands outside of them. May pump.
    // Throws: RunTimeError with the number of a syntax or run-time error.
    virtual void AddCode(std::string_view text) = 0;

    // Runs a procedure; "" and the like for one without a result. May pump.
    // Throws: RunTimeError of the script, 35 for a procedure that is not there.
    virtual automation::Value Run(std::string_view procedure,
                                  std::span<const automation::Value> arguments) = 0;

    // The value of an expression. Throws: as `Run`.
    virtual automation::Value Eval(std::string_view expression) = 0;
};

// One script engine, the platform's "MSScriptControl.ScriptControl". Its own `AddCode` and `Run`
// work on the engine's global names. Owned by whoever made it. Texts are in code page 1252.
class ScriptControl : public ScriptModule {
  public:
    // Throws: RunTimeError 380 for a language other than "VBScript".
    virtual void set_Language(std::string_view language) = 0;

    // Whether scripts may show messages.
    virtual void set_AllowUI(bool allowed) = 0;

    // Time for one `AddCode` or `Run`, without end for a negative one. The control is made with
    // 10 s.
    virtual void set_Timeout(std::chrono::milliseconds limit) = 0;

    // Makes an object known by a name, and with `add_members` its members without one, too.
    virtual void AddObject(std::string_view name, std::shared_ptr<automation::Object> object,
                           bool add_members) = 0;

    // The modules of the engine. Throws: RunTimeError 457 for a name that is taken, 9 for one that
    // is not there.
    virtual ScriptModule& add_module(std::string_view name) = 0;
    [[nodiscard]] virtual ScriptModule& module(std::string_view name) = 0;

    [[nodiscard]] virtual const ScriptFailure& Error() const noexcept = 0;
    virtual void Clear() noexcept = 0;  // of the error
};

class ScriptControls {
  public:
    virtual ~ScriptControls() = default;

    // Throws: RunTimeError 429 when none can be made.
    [[nodiscard]] virtual std::unique_ptr<ScriptControl> create() = 0;
};

}  // namespace host
