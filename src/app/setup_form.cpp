#include "app/setup_form.h"

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "automation/code_page.h"
#include "automation/strings.h"

namespace app {
namespace {

constexpr std::size_t kLongestText = 400;
constexpr int kFunctionKeyOk = 10;

std::vector<std::string> texts_of(const Json& array) {
    std::vector<std::string> texts;
    for (const Json& entry : array) {
        texts.push_back(automation::utf8_to_code_page(entry.get<std::string>()));
    }
    return texts;
}

bool is_blank(const KeyPress& press) {
    return press.key == Key::Character && press.character == " ";
}

}  // namespace

SetupForm::SetupForm(const Json& setup)
    : title_("Velora Setup   " + automation::join(texts_of(setup.at("labels")), "   ")),
      pages_(texts_of(setup.at("pages"))),
      fields_(setup_fields(setup)),
      stored_(fields_) {
    const auto shown = std::ranges::find(
        pages_, automation::utf8_to_code_page(setup.at("page").get<std::string>()));
    show_page(shown == pages_.end() ? 0 : static_cast<std::size_t>(shown - pages_.begin()));
}

void SetupForm::set_window(WindowSize window) {
    window_ = window;
    scroll_to_focus();
}

Json SetupForm::changes() const {
    return changes_between(stored_, fields_);
}

// --- focus --------------------------------------------------------------------------------------

bool SetupForm::is_enabled(const SetupField& field) const {
    const auto options = std::ranges::find(fields_, field.enabled_by, &SetupField::name);
    return field.enabled_by.empty() || options == fields_.end() || options->chosen == 0;
}

bool SetupForm::takes_focus(const FieldPlace& place) const {
    const SetupField& field = fields_[place.field];
    return field.kind != FieldKind::Label && is_enabled(field);
}

std::vector<FieldPlace> SetupForm::stops() const {
    std::vector<FieldPlace> places = layout().places;
    std::erase_if(places, [this](const FieldPlace& place) { return !takes_focus(place); });
    return places;
}

SetupField* SetupForm::focused_field() {
    const std::vector<FieldPlace> places = stops();
    return stop_ < places.size() ? &fields_[places[stop_].field] : nullptr;
}

void SetupForm::enter_stop(std::size_t stop) {
    stop_ = stop;
    const SetupField* const field = focused_field();
    caret_ = field == nullptr ? 0 : field->text.size();
    scroll_to_focus();
}

void SetupForm::move_focus(std::ptrdiff_t steps) {
    constexpr std::ptrdiff_t kButtons = 2;
    const auto count = static_cast<std::ptrdiff_t>(stops().size()) + kButtons;
    enter_stop(
        static_cast<std::size_t>((static_cast<std::ptrdiff_t>(stop_) + steps + count) % count));
}

// To the nearest field of the next line that has one; below the last line are the buttons.
void SetupForm::move_line(int direction) {
    const std::vector<FieldPlace> places = stops();
    if (stop_ >= places.size()) {
        enter_stop(direction > 0 || places.empty() ? places.size() : places.size() - 1);
        return;
    }
    const FieldPlace from = places[stop_];
    const auto distance = [&](const FieldPlace& place) {
        constexpr int kLine = 1000;
        return std::abs(place.line - from.line) * kLine + std::abs(place.column - from.column);
    };
    std::size_t best = places.size();
    for (std::size_t i = 0; i < places.size(); ++i) {
        const bool is_ahead = (places[i].line - from.line) * direction > 0;
        if (is_ahead && (best == places.size() || distance(places[i]) < distance(places[best]))) {
            best = i;
        }
    }
    if (best < places.size() || direction > 0) {
        enter_stop(best);
    }
}

void SetupForm::scroll_to_focus() {
    const std::vector<FieldPlace> places = stops();
    const int most = std::max(0, layout().lines - body_rows());
    top_ = std::min(top_, most);
    if (stop_ < places.size()) {
        const int line = places[stop_].line;
        top_ = std::clamp(top_, std::max(0, line - body_rows() + 1), line);
        // The titles above the first fields come along.
        top_ = stop_ == 0 ? 0 : top_;
    }
}

void SetupForm::show_page(std::size_t page) {
    page_ = page;
    top_ = 0;
    enter_stop(0);
}

void SetupForm::turn_page(std::ptrdiff_t steps) {
    const auto count = static_cast<std::ptrdiff_t>(pages_.size());
    show_page(
        static_cast<std::size_t>((static_cast<std::ptrdiff_t>(page_) + steps + count) % count));
}

// --- keys ---------------------------------------------------------------------------------------

SetupForm::Outcome SetupForm::ask_to_cancel() {
    if (is_leaving_ || changes().empty()) {
        return Outcome::Cancel;
    }
    is_leaving_ = true;
    tell("Your changes will be lost. Esc once more cancels, any other key goes on.");
    return Outcome::GoesOn;
}

SetupForm::Outcome SetupForm::press(const KeyPress& press) {
    if (press.key == Key::None) {
        return Outcome::GoesOn;
    }
    message_.clear();
    if (press.key == Key::Escape) {
        return ask_to_cancel();
    }
    is_leaving_ = false;
    if (press.key == Key::Function) {
        const auto page = static_cast<std::size_t>(press.number - 1);
        if (press.number == kFunctionKeyOk) {
            return Outcome::Ok;
        }
        if (page < pages_.size()) {
            show_page(page);
        }
        return Outcome::GoesOn;
    }
    if (press.key == Key::PageUp || press.key == Key::PageDown) {
        turn_page(press.key == Key::PageDown ? 1 : -1);
        return Outcome::GoesOn;
    }
    SetupField* const field = focused_field();
    return field == nullptr ? press_button(press) : press_in_field(*field, press);
}

SetupForm::Outcome SetupForm::press_button(const KeyPress& press) {
    if (press.key == Key::Enter || is_blank(press)) {
        return stop_ == stops().size() ? Outcome::Ok : ask_to_cancel();
    }
    if (press.key == Key::Up) {
        move_line(-1);
    } else if (press.key == Key::Next || press.key == Key::Right) {
        move_focus(1);
    } else if (press.key == Key::Previous || press.key == Key::Left) {
        move_focus(-1);
    }
    return Outcome::GoesOn;
}

SetupForm::Outcome SetupForm::press_in_field(SetupField& field, const KeyPress& press) {
    if (edit(field, press)) {
        return Outcome::GoesOn;
    }
    if (field.kind == FieldKind::Button && (press.key == Key::Enter || is_blank(press))) {
        pressed_button_ = field.name;
        return Outcome::Button;
    }
    switch (press.key) {
        case Key::Enter:
        case Key::Next:
        case Key::Right:
            move_focus(1);
            break;
        case Key::Previous:
        case Key::Left:
            move_focus(-1);
            break;
        case Key::Up:
        case Key::Down:
            move_line(press.key == Key::Down ? 1 : -1);
            break;
        default:
            break;
    }
    return Outcome::GoesOn;
}

bool SetupForm::edit(SetupField& field, const KeyPress& press) {
    switch (field.kind) {
        case FieldKind::Check:
            field.value = field.value != is_blank(press);
            return is_blank(press);
        case FieldKind::Choice:
            return choose(field, press);
        case FieldKind::Text:
            return edit_text(field.text, press);
        case FieldKind::Label:
        case FieldKind::Button:
            break;
    }
    return false;
}

bool SetupForm::choose(SetupField& field, const KeyPress& press) {
    const std::size_t count = field.choices.size();
    const bool goes_back = press.key == Key::Left;
    if (press.key != Key::Right && !goes_back && !is_blank(press)) {
        return false;
    }
    if (field.chosen >= count) {  // none was
        field.chosen = goes_back ? count - 1 : 0;
    } else {
        field.chosen = (field.chosen + (goes_back ? count - 1 : 1)) % count;
    }
    return true;
}

bool SetupForm::edit_text(std::string& text, const KeyPress& press) {
    switch (press.key) {
        case Key::Character:
            insert(text, automation::utf8_to_code_page(press.character));
            return true;
        case Key::Left:
            caret_ -= caret_ > 0 ? 1 : 0;
            return true;
        case Key::Right:
            caret_ += caret_ < text.size() ? 1 : 0;
            return true;
        case Key::Home:
            caret_ = 0;
            return true;
        case Key::End:
            caret_ = text.size();
            return true;
        case Key::Backspace:
            text.erase(caret_ - std::min<std::size_t>(caret_, 1), caret_ > 0 ? 1 : 0);
            caret_ -= caret_ > 0 ? 1 : 0;
            return true;
        case Key::Delete:
            text.erase(caret_, 1);
            return true;
        default:
            return false;
    }
}

void SetupForm::insert(std::string& text, const std::string& typed) {
    if (text.size() + typed.size() <= kLongestText) {
        text.insert(caret_, typed);
        caret_ += typed.size();
    }
}

}  // namespace app
