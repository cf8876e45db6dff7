#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/controls.h"
#include "dialogs/setup_table.h"

namespace dialogs {

// What stands in the controls of the setup dialog at a moment: a text or a truth value for each.
// All empty at first. Part of the dialog. All members that take a control throw RunTimeError 438
// for one that is not there or has no such property, and 340 for a place behind the end of its
// array.
class SetupControls {
  public:
    SetupControls();

    void clear();

    // Throws: RunTimeError 340 for a place behind the end of the array.
    static void check(const ControlRow& row, std::size_t index);

    [[nodiscard]] const std::string& Text(const ControlId& id) const;
    void set_Text(const ControlId& id, std::string_view text);

    [[nodiscard]] bool Value(const ControlId& id) const;
    void set_Value(const ControlId& id, bool value);

    // The chosen button of a group of option buttons; the size of the group when none is.
    [[nodiscard]] std::size_t chosen(std::string_view group) const;
    void choose_none(std::string_view group);

    // What the settings file has of a control with a key, and back: a text, "1" and "0" for a check
    // box, with commas for many, the number of the chosen button.
    [[nodiscard]] std::string stored_text(const ControlRow& row) const;
    void take_stored_text(const ControlRow& row, const std::string& text);

  private:
    struct Cell {
        std::string text;
        bool value = false;
    };

    using Kind = host::DialogControlKind;

    // The place in `cells_` of a control that is one of these kinds.
    struct Place {
        std::size_t row = 0;
        std::size_t index = 0;
    };

    [[nodiscard]] static Place place(const ControlId& id, Kind kind, Kind other_kind);

    [[nodiscard]] const Cell& cell(const Place& at) const { return cells_[at.row][at.index]; }

    [[nodiscard]] Cell& cell(const Place& at) { return cells_[at.row][at.index]; }

    std::vector<std::vector<Cell>> cells_;  // by row of the table and place
};

// "1" and "True" and other numbers than 0 tick a box; no other text does.
[[nodiscard]] bool is_tick(std::string_view text);

}  // namespace dialogs
