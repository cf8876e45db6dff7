#pragma once

#include <memory>
#include <string>

#include "automation/run_time_error.h"
#include "automation/value.h"
#include "vbscript/value/context.h"
#include "vbscript/value/script_error.h"

namespace vbscript {

class BridgeTable;

// The way between the program's late-bound values and those of one engine. Objects cross as
// wrappers that keep identity: an object that crosses twice is one object on the other side, and
// one that comes back is the object itself. Arrays are copied, as assignments in scripts copy them.
// Owned by its engine; the program may hold objects of the engine for longer, they then answer
// every call with error 462.
class AutomationBridge {
  public:
    // `context` outlives the bridge.
    explicit AutomationBridge(Context& context);
    AutomationBridge(const AutomationBridge&) = delete;
    AutomationBridge& operator=(const AutomationBridge&) = delete;

    // Lets go of the engine's objects that the program holds; their ends may run script.
    ~AutomationBridge();

    // Both throw ScriptError 28 for arrays within arrays without an end.
    [[nodiscard]] automation::Value to_automation(const Value& value);
    [[nodiscard]] Value from_automation(const automation::Value& value);

    // A null pointer is Nothing, both ways.
    [[nodiscard]] std::shared_ptr<automation::Object> to_automation(const Ref<Object>& object);
    [[nodiscard]] Ref<Object> from_automation(const std::shared_ptr<automation::Object>& object);

  private:
    std::shared_ptr<BridgeTable> table_;
};

// The same error on the other side. An error that does not tell its source gets `usual_source`.
[[nodiscard]] ScriptError to_script_error(const automation::RunTimeError& error,
                                          std::u16string_view usual_source = {});
[[nodiscard]] automation::RunTimeError to_run_time_error(const ScriptError& error);

}  // namespace vbscript
