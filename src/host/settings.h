#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

// Keys with their values, in the order of the file.
using SettingsEntries = std::vector<std::pair<std::string, std::string>>;

// Settings files of the host: INI text, one file each program part, named without a folder
// ("settings.ini"). Names of sections and keys compare without regard to case. Texts are in code
// page 1252.
class Settings {
  public:
    virtual ~Settings() = default;

    // The stored text, quotes included if the file has them, or `fallback` when file, section or
    // key is not there.
    [[nodiscard]] virtual std::string GetIniSetting(std::string_view section, std::string_view key,
                                                    std::string_view fallback,
                                                    std::string_view file) = 0;

    // Writes one key; everything else of the file stays, comments and order too. On disk whole or
    // not at all. Throws: RunTimeError 70 or 61 with the file's name.
    virtual void SaveIniSetting(std::string_view section, std::string_view key,
                                std::string_view value, std::string_view file) = 0;

    // All entries of a section as "key=value", each ended by a NUL character; empty when absent.
    [[nodiscard]] virtual std::string GetINISection(std::string_view section,
                                                    std::string_view file) = 0;

    // Makes these the only entries of a section, in one write; its comments stay. None clear it.
    // Throws as `SaveIniSetting`, and then nothing has changed.
    virtual void SaveINISection(std::string_view section, const SettingsEntries& entries,
                                std::string_view file) = 0;
};

// The per-user store of the platform: section, key, text. It keeps what belongs to the program
// and not to the house.
class UserStore {
  public:
    virtual ~UserStore() = default;

    [[nodiscard]] virtual std::string GetSetting(std::string_view title, std::string_view section,
                                                 std::string_view key,
                                                 std::string_view fallback) = 0;
    virtual void SaveSetting(std::string_view title, std::string_view section, std::string_view key,
                             std::string_view value) = 0;
};

}  // namespace host
