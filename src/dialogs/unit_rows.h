#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/setup_table.h"
#include "host/settings.h"

namespace core {
class Instance;
}

namespace dialogs {

class SetupControls;

// The nine rows of units in the setup dialog, and the lines of the section "Velora Names" that they
// show. Lines that no row shows, since there are more than nine or since they name no unit, stay as
// they are. Part of the dialog.
class UnitRows {
  public:
    explicit UnitRows(core::Instance& instance) : instance_(instance) {}

    // Fills the rows from the settings.
    void load(SetupControls& controls);

    // Writes a line for each row with an address and a name, and removes those of all other lines
    // that were shown; in one write. Throws as the host's settings do, and nothing has changed.
    void save(const SetupControls& controls);

  private:
    struct Shown {
        std::string key;        // of its line, as in the file; "" for a row without one
        std::string address;    // as it was shown
        std::string slideshow;  // as in the line
    };

    void show(SetupControls& controls, std::size_t row, std::string_view line);
    [[nodiscard]] host::SettingsEntries lines_of_rows(const SetupControls& controls);
    [[nodiscard]] std::string key_of(const SetupControls& controls, std::size_t row) const;
    [[nodiscard]] std::string computer_of(const SetupControls& controls, std::size_t row) const;
    [[nodiscard]] std::string value_of(const SetupControls& controls, std::size_t row) const;
    [[nodiscard]] std::string slideshow_of(const SetupControls& controls, std::size_t row) const;
    [[nodiscard]] bool is_shown(std::string_view key) const;
    [[nodiscard]] std::vector<std::string> stored_lines() const;

    core::Instance& instance_;
    std::array<Shown, kUnitRows> shown_;
};

}  // namespace dialogs
