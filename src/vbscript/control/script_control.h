#pragma once

#include <map>
#include <memory>
#include <string>

#include "host/script_control.h"
#include "vbscript/control/control_host.h"
#include "vbscript/control/script_services.h"
#include "vbscript/machine/engine.h"
#include "vbscript/objects/automation_bridge.h"

namespace vbscript {

// A script engine behind the platform's interface of script controls: texts of code page 1252,
// late-bound objects of the program, and the record of the latest failure. Owned by whoever made
// it.
class ScriptControl final : public host::ScriptControl {
  public:
    // `services` must outlive the control.
    explicit ScriptControl(ScriptServices& services);
    ~ScriptControl() override;

    void set_Language(std::string_view language) override;
    void set_AllowUI(bool allowed) override;
    void set_Timeout(std::chrono::milliseconds limit) override;
    void AddObject(std::string_view name, std::shared_ptr<automation::Object> object,
                   bool add_members) override;

    void AddCode(std::string_view text) override;
    automation::Value Run(std::string_view procedure,
                          std::span<const automation::Value> arguments) override;
    automation::Value Eval(std::string_view expression) override;

    host::ScriptModule& add_module(std::string_view name) override;
    [[nodiscard]] host::ScriptModule& module(std::string_view name) override;

    [[nodiscard]] const host::ScriptFailure& Error() const noexcept override { return failure_; }

    void Clear() noexcept override { failure_ = {}; }

  private:
    class NamedModule;

    // Runs `body` on the engine; what it throws is recorded and thrown on as a RunTimeError.
    template <typename Body>
    auto recording(Body&& body);

    void add_code(Module& module, std::string_view text);
    automation::Value run(Module& module, std::string_view procedure,
                          std::span<const automation::Value> arguments);
    automation::Value eval(Module& module, std::string_view expression);

    ControlHost host_;
    Engine engine_;
    AutomationBridge bridge_;
    host::ScriptFailure failure_;
    std::map<std::string, std::unique_ptr<NamedModule>> modules_;  // by name in small letters
};

// Makes script controls for the plug-in. Owned by the program.
class ScriptControls final : public host::ScriptControls {
  public:
    explicit ScriptControls(ScriptServices& services) : services_(services) {}

    [[nodiscard]] std::unique_ptr<host::ScriptControl> create() override {
        return std::make_unique<ScriptControl>(services_);
    }

  private:
    ScriptServices& services_;
};

}  // namespace vbscript
