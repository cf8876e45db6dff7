#pragma once

#include <memory>

#include "host/platform.h"
#include "host/plugin.h"

namespace plugin {

// The plug-in: the one class that a host creates. It owns everything of one instance. Made by the
// program, which ends it after `ShutdownIO` and before host and platform.
class hspi final : public host::Plugin {
  public:
    explicit hspi(const host::Platform& platform);
    hspi(const hspi&) = delete;
    hspi& operator=(const hspi&) = delete;
    ~hspi() override;

    [[nodiscard]] std::int32_t AccessLevel() override;
    [[nodiscard]] std::int32_t Capabilities() override;
    [[nodiscard]] std::string Name() override;
    [[nodiscard]] std::string Version() override;

    void RegisterCallback(host::CallbackObject& callback) override;
    std::string InitIO(std::int32_t port) override;
    void ShutdownIO() override;

    void SetIO(std::int32_t dv, const std::string& house_code, const std::string& device_code,
               std::int16_t command, std::int16_t brightness, std::int16_t data1,
               std::int16_t data2) override;
    void SelectMenu(const std::string& entry) override;
    void ButtonPress(const std::string& button) override;
    void TriggerAction(const std::string& action) override;
    [[nodiscard]] std::string ActionUIFormat(const std::string& action) override;

    void VeloraOnXapMessage(const host::XapMessage& message) override;

    [[nodiscard]] std::shared_ptr<automation::Object> object() override;
    [[nodiscard]] host::PluginStatus status() const override;
    [[nodiscard]] host::ModemEcho modem_echo() const override;
    void modem_send(const std::string& text) override;
    [[nodiscard]] std::vector<host::PhonebookLine> phonebook() const override;
    [[nodiscard]] std::string look_up_caller(const std::string& number) override;
    [[nodiscard]] host::SetupDialog* setup_dialog() override;
    [[nodiscard]] host::ServerDialog* server_dialog() override;

  private:
    struct Parts;

    std::unique_ptr<Parts> parts_;
};

}  // namespace plugin
