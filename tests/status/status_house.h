#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/members.h"
#include "dialogs/velora_setup.h"
#include "pages/headers/host_page.h"
#include "pages/html_includes.h"
#include "pages/page_engine.h"
#include "pages/user_script.h"
#include "status/status_asp.h"
#include "status/status_state.h"
#include "support/house.h"
#include "xap/bsc_endpoints.h"
#include "xap/filters.h"
#include "xap/xap_message_queue.h"

namespace status {

using Fields = std::map<std::string, std::string, std::less<>>;

// A posted form, by the embedded server.
class StatusRequest final : public automation::TableObject {
  public:
    Fields form;
    std::string browser = "Mozilla";

    [[nodiscard]] std::string ServerVariables(const std::string& name) const {
        return name == "HTTP_USER_AGENT" ? browser : name == "REMOTE_ADDR" ? "10.0.0.5" : "";
    }

    [[nodiscard]] std::string Form(const std::string& name) const {
        const auto field = form.find(name);
        return field == form.end() ? "" : field->second;
    }

    [[nodiscard]] std::string type_name() const override { return "Request"; }

    [[nodiscard]] std::span<const automation::Member> members() const override;
};

// Takes the commands of devices and does nothing else: "[,12,19,1".
class RecordingCommands final : public appliance::DeviceCommandTarget {
  public:
    std::vector<std::string> commands;

    void SetVeloraIO(const std::string& house_code, const std::string& device_code,
                     std::int16_t command, std::int16_t brightness) override {
        commands.push_back(house_code + "," + device_code + "," + std::to_string(command) + "," +
                           std::to_string(brightness));
    }
};

// A house with the status page and the setup dialog, without the plug-in's entry class: the units
// hall with the devices A1 and B1, of which the host knows the first, and den.
class StatusHouse : public testing::Test {
  protected:
    StatusHouse();

    std::string visit() { return page.StatusPage(std::make_shared<StatusRequest>(), nullptr); }

    // The page that answers a post of these fields and of the hidden ones that each form has.
    std::string post(const Fields& fields);

    void setting(std::string_view key, std::string_view value,
                 std::string_view section = core::kSettingsSection) {
        house.host().put_setting(section, key, value);
    }

    std::string stored(std::string_view key, std::string_view section = core::kSettingsSection) {
        return house.host().GetIniSetting(section, key, "(none)", core::kSettingsFile);
    }

    void protect() { house.instance().platform().protection = host::Protection::hardened(); }

    // Lines of the log, and what has gone to devices, power line and network, since the last call.
    std::vector<std::string> deeds();

    [[nodiscard]] PageText new_page() { return {house.instance(), looks}; }

    support::House house;
    RecordingCommands commands;
    int reloads = 0;
    pages::HostPage host_page{house.instance(), nullptr};
    pages::PageEngine engine{house.instance()};
    pages::HTMLIncludes looks{house.instance(), engine, host_page};
    pages::UserScript user_script{house.instance(), [] { return nullptr; }};
    xap::Filters filters{house.instance(), [](std::string_view) {}};
    xap::XapMessageQueue queue{house.instance(), [] { return nullptr; }};
    xap::BscEndpoints endpoints{
        {house.instance(), house.fleet(), house.host_devices(), commands, queue}};
    dialogs::VeloraSetup setup{
        {house.instance(), house.fleet(), [this] { ++reloads; }, [](std::string_view) {}}};
    StatusState state;
    StatusAsp page{{house.instance(), house.fleet(), house.host_devices(), commands, host_page,
                    looks, user_script, filters, endpoints, setup, state}};
};

}  // namespace status
