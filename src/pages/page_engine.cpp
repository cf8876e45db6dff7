#include "pages/page_engine.h"

#include <chrono>
#include <string_view>

#include "automation/convert.h"
#include "automation/guarded.h"
#include "core/instance.h"
#include "host/host_interface.h"
#include "host/script_control.h"

namespace pages {

namespace {

constexpr std::string_view kStub =
    "Dim Request, Response\r\n"
    "sub setObjects(pRequest,pResponse)\r\n"
    "Set Request = pRequest\r\n"
    "Set Response = pResponse\r\n"
    "End sub\r\n";

// Milliseconds. The setting has neither section nor file, so the default always holds.
std::chrono::milliseconds script_timeout(core::Instance& instance) {
    const std::string text = instance.hs().GetIniSetting("", "ScriptTimeout", "60000", "");
    return std::chrono::milliseconds(automation::checked_int32(automation::numeric_prefix(text)));
}

}  // namespace

PageEngine::PageEngine(core::Instance& instance) : instance_(instance) {}

PageEngine::~PageEngine() = default;

void PageEngine::HTMLInit() {
    automation::guarded(instance_.log, "HTMLInit: ", [&] {
        engine_ = instance_.platform().script_controls.create();
        engine_->set_Language("VBScript");
        engine_->set_AllowUI(true);
        engine_->AddObject("hs", instance_.hs().object(), true);
        engine_->set_Timeout(script_timeout(instance_));
        engine_->AddCode(kStub);
    });
}

}  // namespace pages
