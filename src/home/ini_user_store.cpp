#include "home/ini_user_store.h"

namespace home {
namespace {

constexpr std::string_view kFile = "user_store.ini";

std::string section_name(std::string_view title, std::string_view section) {
    return std::string(title) + "." + std::string(section);
}

}  // namespace

std::string IniUserStore::GetSetting(std::string_view title, std::string_view section,
                                     std::string_view key, std::string_view fallback) {
    return settings_.GetIniSetting(section_name(title, section), key, fallback, kFile);
}

void IniUserStore::SaveSetting(std::string_view title, std::string_view section,
                               std::string_view key, std::string_view value) {
    settings_.SaveIniSetting(section_name(title, section), key, value, kFile);
}

}  // namespace home
