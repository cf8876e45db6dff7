#include "pages/user_script.h"

#include <chrono>
#include <utility>

#include "automation/guarded.h"
#include "core/instance.h"
#include "host/files.h"
#include "host/pump.h"
#include "host/script_control.h"

namespace pages {

namespace {

constexpr std::string_view kFile = "zynVelora.txt";
constexpr std::string_view kMain = "Main";  // the module and the procedure
constexpr std::chrono::milliseconds kTimeout{10000};
constexpr std::chrono::milliseconds kNextTick{5};
constexpr std::chrono::milliseconds kWhileRunning{60000};

}  // namespace

UserScript::UserScript(core::Instance& instance, ScriptQueueTimer timer)
    : instance_(instance), timer_(std::move(timer)) {}

void UserScript::load() {
    unload();
    if (!instance_.platform().files.FileExists(instance_.application_path + "\\Scripts\\" +
                                               std::string(kFile))) {
        return;
    }
    const std::shared_ptr<host::ScriptControl> engine =
        instance_.platform().script_controls.create();
    engine->set_Language("VBScript");
    engine->set_Timeout(kTimeout);
    script_ = std::make_shared<Script>(instance_, engine);
    script_->Add(kFile, kMain);
}

void UserScript::unload() noexcept {
    script_.reset();
}

void UserScript::add(std::string_view argument) {
    messages_.emplace_back(argument);
    host::Timer* timer = timer_();
    if (timer != nullptr && !timer->enabled()) {
        timer->set_interval(kNextTick);
        timer->set_enabled(true);
    }
}

void UserScript::ScriptQueueTimer_Timer() {
    automation::guarded(instance_.log, "ScriptQueueTimer_Timer", [&] {
        while (!messages_.empty()) {
            if (host::Timer* timer = timer_()) {
                timer->set_interval(kWhileRunning);
            }
            const std::string argument = std::exchange(messages_.front(), {});
            messages_.pop_front();
            if (const std::shared_ptr<Script> script = script_) {
                script->Run(kMain, argument);
            }
        }
        if (host::Timer* timer = timer_()) {
            timer->set_enabled(false);
        }
    });
}

}  // namespace pages
