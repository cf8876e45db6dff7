#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "automation/members.h"
#include "automation/run_time_error.h"
#include "host/host_interface.h"
#include "host/plugin.h"

// A plug-in without a house behind it: a few operations of each kind, and whatever a test hooks in.
class FakePlugin : public host::Plugin {
  public:
    [[nodiscard]] std::int32_t AccessLevel() override { return 1; }

    [[nodiscard]] std::int32_t Capabilities() override { return 4; }

    [[nodiscard]] std::string Name() override { return "fake"; }

    [[nodiscard]] std::string Version() override { return "1"; }

    void RegisterCallback(host::CallbackObject& callback) override {
        calls.emplace_back("RegisterCallback");
        hs = callback.GetHSIface();
    }

    std::string InitIO(std::int32_t /*port*/) override {
        calls.emplace_back("InitIO");
        on_init();
        return {};
    }

    void ShutdownIO() override {
        calls.emplace_back("ShutdownIO");
        on_shutdown();
    }

    void SetIO(std::int32_t /*dv*/, const std::string& house_code, const std::string& device_code,
               std::int16_t command, std::int16_t brightness, std::int16_t /*data1*/,
               std::int16_t /*data2*/) override {
        calls.push_back("SetIO " + house_code + " " + device_code + " " + std::to_string(command) +
                        " " + std::to_string(brightness));
    }

    void SelectMenu(const std::string& entry) override { calls.push_back("SelectMenu " + entry); }

    void ButtonPress(const std::string& button) override {
        calls.push_back("ButtonPress " + button);
    }

    void TriggerAction(const std::string& action) override {
        calls.push_back("TriggerAction " + action);
    }

    [[nodiscard]] std::string ActionUIFormat(const std::string& /*action*/) override { return {}; }

    [[nodiscard]] std::shared_ptr<automation::Object> object() override { return operations_; }

    [[nodiscard]] host::PluginStatus status() const override { return present; }

    [[nodiscard]] host::SetupDialog* setup_dialog() override { return setup; }

    [[nodiscard]] host::ServerDialog* server_dialog() override { return server; }

    host::SetupDialog* setup = nullptr;
    host::ServerDialog* server = nullptr;
    std::vector<std::string> calls;
    host::HostInterface* hs = nullptr;  // once registered
    host::PluginStatus present{.role = "normal", .flags = {}, .units = {}, .timers = {}};
    std::function<void()> on_init = [] {};
    std::function<void()> on_shutdown = [] {};
    std::function<void()> on_wait = [] {};  // during the operation VeloraWait

  private:
    class Operations : public automation::TableObject {
      public:
        explicit Operations(FakePlugin& plugin) : plugin_(plugin) {}

        [[nodiscard]] std::string type_name() const override { return "fake"; }

        [[nodiscard]] std::span<const automation::Member> members() const override {
            using automation::method;
            static constexpr auto kMembers = std::to_array<automation::Member>({
                method<&Operations::speak>("VeloraSpeak", "whichVeloras, text"),
                method<&Operations::volume>("VeloraVolume", "which, [percent]"),
                method<&Operations::tag>("VeloraTag"),
                method<&Operations::is_speaking>("VeloraIsSpeaking", "which"),
                method<&Operations::nothing>("VeloraNothing"),
                method<&Operations::fail>("VeloraFail"),
                method<&Operations::wait>("VeloraWait"),
            });
            return kMembers;
        }

      private:
        std::string speak(const std::string& which, const std::string& text) {
            return which + " says " + text;
        }

        std::int32_t volume(const std::string& /*which*/, std::optional<std::int16_t> percent) {
            return percent.value_or(-1);
        }

        float tag() { return 1.705547F; }

        bool is_speaking(bool which) { return which; }

        void nothing() {}

        void fail() {
            throw automation::RunTimeError(automation::ErrorNumber::DiskFull,
                                           "Disk full: C:\\\xFC");
        }

        std::string wait() {
            const auto hook = plugin_.on_wait;  // it may put another one in its place
            hook();
            return "waited";
        }

        FakePlugin& plugin_;
    };

    std::shared_ptr<Operations> operations_ = std::make_shared<Operations>(*this);
};
