#pragma once

#include <string>
#include <string_view>

#include "host/settings.h"

namespace home {

// The per-user settings as the file user_store.ini beside the house's settings: the entries of a
// title's section stand under "[title.section]". Owned by the program.
class IniUserStore : public host::UserStore {
  public:
    // The settings must outlive the store.
    explicit IniUserStore(host::Settings& settings) : settings_(settings) {}

    [[nodiscard]] std::string GetSetting(std::string_view title, std::string_view section,
                                         std::string_view key, std::string_view fallback) override;

    // Throws: RunTimeError as `Settings::SaveIniSetting`.
    void SaveSetting(std::string_view title, std::string_view section, std::string_view key,
                     std::string_view value) override;

  private:
    host::Settings& settings_;
};

}  // namespace home
