#include "app/server_form.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <string_view>

#include "app/echo_rows.h"
#include "automation/code_page.h"

namespace app {
namespace {

constexpr int kFewestRows = 10;
constexpr int kFewestColumns = 60;

struct Button {
    std::string_view name;
    std::string_view caption;
    bool closes;
};

constexpr std::array<Button, 6> kButtons{{
    {"TestMessageButton", "Test Message", false},
    {"TestCommandButton", "Test Command", false},
    {"AdvancedInfoButton", "Advanced Info", false},
    {"txtArray", "Clear", false},
    {"cmdArray(0)", "OK", true},
    {"cmdArray(1)", "Cancel", true},
}};

constexpr std::size_t kStops = 1 + kButtons.size();
constexpr std::size_t kOk = 4;
constexpr std::size_t kCancel = 5;

}  // namespace

void ServerForm::take(const Json& options) {
    box_ = options.at("box").get<std::string>();
    debug_ = options.at("debug").get<bool>();
}

void ServerForm::set_window(WindowSize window) {
    window_ = window;
}

std::string ServerForm::pressed_button() const {
    return std::string(kButtons.at(pressed_).name);
}

std::size_t ServerForm::box_rows() const noexcept {
    constexpr int kOtherRows = 5;
    return static_cast<std::size_t>(std::max(1, window_.rows - kOtherRows));
}

void ServerForm::scroll_up() {
    const auto width = static_cast<std::size_t>(std::max(1, window_.columns));
    const std::size_t all = last_rows(box_, width, box_.size()).size();
    const std::size_t most = all - std::min(all, box_rows());
    rows_below_ = std::min(rows_below_ + box_rows(), most);
}

ServerForm::Outcome ServerForm::press_stop() {
    if (stop_ == 0) {
        debug_ = !debug_;
        return Outcome::Debug;
    }
    pressed_ = stop_ - 1;
    return kButtons.at(pressed_).closes ? Outcome::Close : Outcome::Button;
}

ServerForm::Outcome ServerForm::press(const KeyPress& press) {
    switch (press.key) {
        case Key::Escape:
            pressed_ = kCancel;
            return Outcome::Close;
        case Key::Function:
            pressed_ = kOk;
            return press.number == 10 ? Outcome::Close : Outcome::GoesOn;
        case Key::Next:
        case Key::Right:
        case Key::Down:
            stop_ = (stop_ + 1) % kStops;
            break;
        case Key::Previous:
        case Key::Left:
        case Key::Up:
            stop_ = (stop_ + kStops - 1) % kStops;
            break;
        case Key::PageUp:
            scroll_up();
            break;
        case Key::PageDown:
            rows_below_ -= std::min(rows_below_, box_rows());
            break;
        case Key::Enter:
            return press_stop();
        case Key::Character:
            return press.character == " " ? press_stop() : Outcome::GoesOn;
        default:
            break;
    }
    return Outcome::GoesOn;
}

Picture ServerForm::picture() const {
    Picture picture;
    if (window_.rows < kFewestRows || window_.columns < kFewestColumns) {
        picture.add(0, 0, "The window is too small.");
        return picture;
    }
    picture.add(0, 1, "Velora Server", Look::Title);
    picture.rules = {1, window_.rows - 3};
    const std::vector<std::string> rows =
        last_rows(box_, static_cast<std::size_t>(window_.columns), box_rows() + rows_below_);
    for (std::size_t i = 0; i < std::min(rows.size(), box_rows()); ++i) {
        picture.add(static_cast<int>(i) + 2, 0, automation::utf8_to_code_page(rows[i]));
    }
    const int row = window_.rows - 2;
    const auto look_of = [this](std::size_t stop) {
        return stop == stop_ ? Look::Focus : Look::Plain;
    };
    picture.add(row, 1, debug_ ? "[x] Debug" : "[ ] Debug", look_of(0));
    int column = 12;
    for (std::size_t i = 0; i < kButtons.size(); ++i) {
        const std::string text = std::string("[").append(kButtons[i].caption).append("]");
        picture.add(row, column, text, look_of(i + 1));
        column += static_cast<int>(text.size()) + 1;
    }
    picture.add(window_.rows - 1, 1,
                "Tab/arrows move   Space presses   PgUp/PgDn scroll   F10 OK   "
                "Esc Cancel");
    return picture;
}

}  // namespace app
