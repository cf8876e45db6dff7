#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "dialogs/velora_setup.h"
#include "support/house.h"

namespace dialogs {

// The setup dialog over the settings of a house without units.
class SetupHouse : public testing::Test {
  protected:
    void setting(std::string_view key, std::string_view value,
                 std::string_view section = core::kSettingsSection) {
        host_.put_setting(section, key, value);
    }

    std::string stored(std::string_view key, std::string_view section = core::kSettingsSection) {
        return host_.GetIniSetting(section, key, "(none)", core::kSettingsFile);
    }

    void protect() {
        // The instance keeps a copy of the platform, and its switches are read at each use.
        house_.instance().platform().protection = host::Protection::hardened();
    }

    // The lines of the section "Velora Names".
    std::vector<std::string> names() {
        std::vector<std::string> lines;
        const std::string section = host_.GetINISection("Velora Names", core::kSettingsFile);
        for (std::size_t begin = 0; begin < section.size();) {
            lines.push_back(section.substr(begin, section.find('\0', begin) - begin));
            begin += lines.back().size() + 1;
        }
        return lines;
    }

    support::House house_;
    support::MemoryHost& host_ = house_.host();
    std::vector<std::string> calls_;  // into the rest of the plug-in
    VeloraSetup setup_{{house_.instance(), house_.fleet(), [this] { calls_.push_back("reload"); },
                        [this](std::string_view command) { calls_.emplace_back(command); }}};
};

}  // namespace dialogs
