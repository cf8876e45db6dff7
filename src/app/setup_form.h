#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "app/json.h"
#include "app/picture.h"
#include "app/setup_fields.h"
#include "app/setup_layout.h"

namespace app {

// The setup dialog on a terminal: takes keys and tells what then stands on the screen; changes stay
// here until they are stored. Knows no terminal. Owned by the sub-command.
class SetupForm {
  public:
    enum class Outcome : std::uint8_t { GoesOn, Ok, Cancel, Button };

    // What the daemon answers to "setup".
    explicit SetupForm(const Json& setup);

    // Before the first key, and whenever the window has changed its size.
    void set_window(WindowSize window);

    Outcome press(const KeyPress& press);

    [[nodiscard]] Picture picture() const;

    // Shown in the place of the help line until the next key.
    void tell(std::string text) { message_ = std::move(text); }

    // The name of the button that `Outcome::Button` means.
    [[nodiscard]] const std::string& pressed_button() const noexcept { return pressed_button_; }

    // What the daemon is to set.
    [[nodiscard]] Json changes() const;

  private:
    [[nodiscard]] const std::string& page() const { return pages_[page_]; }

    [[nodiscard]] PageLayout layout() const { return lay_out_page(fields_, page(), columns()); }

    [[nodiscard]] int columns() const noexcept { return window_.columns; }

    [[nodiscard]] int body_rows() const noexcept;
    [[nodiscard]] bool takes_focus(const FieldPlace& place) const;
    [[nodiscard]] bool is_enabled(const SetupField& field) const;

    // The places of the page that take the focus; behind them come "OK" and "Cancel".
    [[nodiscard]] std::vector<FieldPlace> stops() const;
    [[nodiscard]] SetupField* focused_field();
    void move_focus(std::ptrdiff_t steps);
    void move_line(int direction);
    void enter_stop(std::size_t stop);
    void scroll_to_focus();
    void turn_page(std::ptrdiff_t steps);
    void show_page(std::size_t page);

    Outcome press_button(const KeyPress& press);
    Outcome press_in_field(SetupField& field, const KeyPress& press);

    // Each tells whether the key was meant for what the field holds.
    bool edit(SetupField& field, const KeyPress& press);
    static bool choose(SetupField& field, const KeyPress& press);
    bool edit_text(std::string& text, const KeyPress& press);
    void insert(std::string& text, const std::string& typed);
    Outcome ask_to_cancel();

    void draw_head(Picture& picture) const;
    void draw_tabs(Picture& picture) const;
    void draw_body(Picture& picture) const;
    void draw_field(Picture& picture, const FieldPlace& place, bool has_focus) const;
    void draw_foot(Picture& picture) const;

    std::string title_;
    std::vector<std::string> pages_;
    std::vector<SetupField> fields_;
    std::vector<SetupField> stored_;
    WindowSize window_{24, 80};
    std::size_t page_ = 0;
    std::size_t stop_ = 0;
    std::size_t caret_ = 0;  // in the text of the focused field
    int top_ = 0;            // first line of the page that is shown
    bool is_leaving_ = false;
    std::string message_;
    std::string pressed_button_;
};

}  // namespace app
