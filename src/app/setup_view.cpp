#include <algorithm>
#include <array>

#include "app/setup_form.h"

// How the setup form is drawn: title, tabs, the page, buttons, help.
namespace app {
namespace {

constexpr int kHeadRows = 3;
constexpr int kFootRows = 3;
constexpr int kFewestRows = 12;
constexpr int kFewestColumns = 60;
constexpr std::array<std::string_view, 2> kButtons{"[ OK ]", "[ Cancel ]"};

// From the longest to what fits a narrow window.
constexpr std::array<std::string_view, 2> kHelp{
    "Tab/arrows move   Space changes   PgUp/PgDn or F1-F8 page   F10 OK   Esc Cancel",
    "Tab  Space  PgUp/PgDn page  F10 OK  Esc Cancel",
};

std::string first_word(const std::string& title) {
    return title.substr(0, title.find(' '));
}

// The part of a text around the caret that has room, filled up with blanks.
std::string window_of(const std::string& text, std::size_t begin, int width) {
    std::string part = text.substr(std::min(begin, text.size()), static_cast<std::size_t>(width));
    part.resize(static_cast<std::size_t>(width), ' ');
    return part;
}

std::size_t window_begin(std::size_t caret, int width) {
    const auto room = static_cast<std::size_t>(width);
    return caret < room ? 0 : caret - room + 1;
}

}  // namespace

int SetupForm::body_rows() const noexcept {
    return std::max(1, window_.rows - kHeadRows - kFootRows);
}

Picture SetupForm::picture() const {
    Picture picture;
    if (window_.rows < kFewestRows || window_.columns < kFewestColumns) {
        picture.add(0, 0, "The window is too small.");
        return picture;
    }
    draw_head(picture);
    draw_tabs(picture);
    draw_body(picture);
    draw_foot(picture);
    return picture;
}

void SetupForm::draw_head(Picture& picture) const {
    picture.add(0, 1, title_, Look::Title);
    picture.rules = {kHeadRows - 1, window_.rows - kFootRows};
}

// With little room, the other pages show their first words only.
void SetupForm::draw_tabs(Picture& picture) const {
    int whole = 1;
    for (const std::string& title : pages_) {
        whole += static_cast<int>(title.size()) + 3;
    }
    int column = 1;
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        const bool is_shown = i == page_;
        const bool is_whole = is_shown || whole <= window_.columns;
        const std::string title = " " + (is_whole ? pages_[i] : first_word(pages_[i])) + " ";
        picture.add(1, column, title, is_shown ? Look::Focus : Look::Plain);
        column += static_cast<int>(title.size()) + (whole <= window_.columns ? 1 : 0);
    }
}

void SetupForm::draw_body(Picture& picture) const {
    const PageLayout page = layout();
    const auto is_visible = [this](int line) { return line >= top_ && line < top_ + body_rows(); };
    for (const Piece& label : page.labels) {
        if (is_visible(label.row)) {
            picture.add(label.row + kHeadRows - top_, label.column, label.text, label.look);
        }
    }
    const std::vector<FieldPlace> places = stops();
    const std::size_t focused = stop_ < places.size() ? places[stop_].field : fields_.size();
    for (const FieldPlace& place : page.places) {
        if (is_visible(place.line)) {
            draw_field(picture, place, place.field == focused);
        }
    }
    const bool goes_up = top_ > 0;
    const bool goes_down = top_ + body_rows() < page.lines;
    if (goes_up || goes_down) {
        picture.add(window_.rows - 2, window_.columns - 12,
                    std::string(goes_up ? "^ " : "  ") + "more" + (goes_down ? " v" : ""));
    }
}

void SetupForm::draw_field(Picture& picture, const FieldPlace& place, bool has_focus) const {
    const SetupField& field = fields_[place.field];
    const int row = place.line + kHeadRows - top_;
    std::string text = field.shown();
    if (place.is_narrow && field.kind == FieldKind::Check) {
        text = field.value ? "[x]" : "[ ]";
    } else if (place.is_narrow && field.kind == FieldKind::Choice) {
        text = field.chosen < field.choices.size() ? "<" + field.choices[field.chosen] + ">" : "?";
    }
    const bool is_box = field.kind == FieldKind::Text;
    const std::size_t begin = is_box && has_focus ? window_begin(caret_, place.width) : 0;
    Look look = is_box ? Look::Field : Look::Plain;
    if (has_focus) {
        look = Look::Focus;
    } else if (!is_enabled(field)) {
        look = Look::Dim;
    }
    picture.add(row, place.column, window_of(text, begin, place.width), look);
    if (is_box && has_focus) {
        picture.cursor = {row, place.column + static_cast<int>(caret_ - begin)};
    }
}

void SetupForm::draw_foot(Picture& picture) const {
    const std::size_t first_button = stops().size();
    int column = 1;
    for (std::size_t i = 0; i < kButtons.size(); ++i) {
        const Look look = stop_ == first_button + i ? Look::Focus : Look::Plain;
        picture.add(window_.rows - 2, column, std::string(kButtons[i]), look);
        column += static_cast<int>(kButtons[i].size()) + 2;
    }
    const bool fits = static_cast<int>(kHelp.front().size()) < window_.columns;
    const std::string help(fits ? kHelp.front() : kHelp.back());
    const Look look = message_.empty() ? Look::Plain : Look::Title;
    picture.add(window_.rows - 1, 1, message_.empty() ? help : message_, look);
}

}  // namespace app
