#pragma once

#include "vbscript/control/script_services.h"
#include "vbscript/machine/engine_host.h"

namespace vbscript {

class AutomationBridge;

// The program as one engine sees it. Owned by the engine's owner.
class ControlHost final : public EngineHost {
  public:
    // `services` must outlive the host.
    explicit ControlHost(ScriptServices& services) : services_(services) {}

    // The way of the program's objects into the engine, there before any script runs.
    void set_bridge(AutomationBridge& bridge) noexcept { bridge_ = &bridge; }

    // While it is off, messages are lost and questions get no answer.
    void set_allow_ui(bool allowed) noexcept { allow_ui_ = allowed; }

    [[nodiscard]] Date now() override;
    [[nodiscard]] std::chrono::milliseconds uptime() override;
    [[nodiscard]] Ref<Object> create_object(Context& context,
                                            std::u16string_view class_name) override;
    [[nodiscard]] Ref<Object> create_builtin_class(Context& context,
                                                   std::u16string_view class_name) override;
    std::int32_t message_box(std::u16string_view prompt, std::int32_t buttons,
                             std::u16string_view title) override;

    // Nobody is there to answer: the initial text, with the question as a message.
    std::u16string input_box(std::u16string_view prompt, std::u16string_view title,
                             std::u16string_view initial) override;

  private:
    [[nodiscard]] std::shared_ptr<automation::Object> lend(std::u16string_view class_name) const;
    void show(std::u16string_view prompt, std::u16string_view title);

    ScriptServices& services_;
    AutomationBridge* bridge_ = nullptr;
    bool allow_ui_ = true;
};

}  // namespace vbscript
