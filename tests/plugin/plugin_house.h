#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/convert.h"
#include "automation/object.h"
#include "automation/value.h"
#include "plugin/hspi.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"

namespace plugin {

using namespace std::chrono_literals;

// The whole plug-in in a host of its own, with three units: kitchen, hall and bedroom, each with a
// power switch (A1, A2, A3) that is on.
class PluginHouse {
  public:
    PluginHouse() {
        machine.files.put_folder("C:\\HomeSeer\\HTML");
        setting("HomeseerIP", "10.0.0.2");
        setting("ServerPort", "8080");
        setting("CommandRetries", "2");
        host.put_setting("Settings", "svrport", "80", "settings.ini");
        add_unit("10.0.0.21/kitchen", "Kitchen,,A1,B1");
        add_unit("10.0.0.22/hall", "Hall,,A2,B2");
        add_unit("10.0.0.23/bedroom", "Bedroom,,A3,B3");
        for (const char* code : {"A1", "A2", "A3"}) {
            host.ExecX10(code, "on");
        }
        host.forget();
    }

    void setting(std::string_view key, std::string_view value) {
        host.put_setting("Velora Utilities", key, value);
    }

    void add_unit(std::string_view key, std::string_view value) {
        host.put_setting("Velora Names", key, value);
    }

    // Registers and starts the plug-in.
    void start() {
        plugin = std::make_unique<hspi>(machine.platform());
        plugin->RegisterCallback(host);
        plugin->InitIO(0);
    }

    automation::Value call(std::string_view operation, std::vector<automation::Value> arguments) {
        return plugin->object()->call(operation, arguments);
    }

    std::string text(std::string_view operation, std::vector<automation::Value> arguments) {
        return automation::to_text(call(operation, std::move(arguments)));
    }

    void run_for(std::chrono::milliseconds duration) { machine.pump.run_for(duration); }

    // What all units have been asked for since `forget`: "hall GET /led.shtml?t1".
    [[nodiscard]] std::vector<std::string> requests() const { return machine.trace.without_time(); }

    void forget() {
        machine.trace.clear();
        host.forget();
    }

    support::FakeMachine machine;
    support::MemoryHost host;
    std::unique_ptr<hspi> plugin;
};

}  // namespace plugin
