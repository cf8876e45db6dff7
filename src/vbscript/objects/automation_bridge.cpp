#include "vbscript/objects/automation_bridge.h"

#include "automation/code_page.h"
#include "vbscript/objects/bridge_table.h"

namespace vbscript {

AutomationBridge::AutomationBridge(Context& context)
    : table_(std::make_shared<BridgeTable>(context)) {}

AutomationBridge::~AutomationBridge() {
    table_->close();
}

automation::Value AutomationBridge::to_automation(const Value& value) {
    return table_->to_automation(value);
}

Value AutomationBridge::from_automation(const automation::Value& value) {
    return table_->from_automation(value);
}

std::shared_ptr<automation::Object> AutomationBridge::to_automation(const Ref<Object>& object) {
    return table_->hand_out(object);
}

Ref<Object> AutomationBridge::from_automation(const std::shared_ptr<automation::Object>& object) {
    return table_->lend(object);
}

ScriptError to_script_error(const automation::RunTimeError& error,
                            std::u16string_view usual_source) {
    return {error.number(), automation::code_page_to_utf16(error.description()),
            error.source().empty() ? std::u16string(usual_source)
                                   : automation::code_page_to_utf16(error.source())};
}

automation::RunTimeError to_run_time_error(const ScriptError& error) {
    return {error.number, automation::utf16_to_code_page(error.message()),
            automation::utf16_to_code_page(error.source)};
}

}  // namespace vbscript
