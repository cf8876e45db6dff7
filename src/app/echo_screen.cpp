#include "app/echo_screen.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "app/echo_rows.h"
#include "app/text_table.h"

namespace app {
namespace {

constexpr int kStatusRows = 4;
constexpr int kFewestColumns = 30;
constexpr int kFewestRows = 14;
constexpr std::size_t kLongestLine = 400;

// A frame over the whole width with the newest rows of the text.
void draw_box(int top, int rows, const std::string& title, const std::string& text) {
    const int width = TerminalScreen::size().columns;
    TerminalScreen::rule(top);
    TerminalScreen::put(top, 2, " " + title + " ");
    int row = top + 1;
    for (const std::string& line :
         last_rows(text, static_cast<std::size_t>(width), static_cast<std::size_t>(rows))) {
        TerminalScreen::put(row++, 0, line);
    }
}

}  // namespace

void EchoScreen::show(const Json& modem) {
    TerminalScreen::begin();
    const auto [rows, columns] = TerminalScreen::size();
    if (rows < kFewestRows || columns < kFewestColumns) {
        TerminalScreen::put(0, 0, "The window is too small.");
        TerminalScreen::end();
        return;
    }
    const bool is_open = modem.at("open").get<bool>();
    TerminalScreen::put(
        0, 0, std::string("Modem Echo Window: the port is ") + (is_open ? "open" : "not open"));
    const int status_top = rows - kStatusRows - 4;
    draw_box(1, status_top - 2, "Data", modem.at("data").get<std::string>());
    draw_box(status_top, kStatusRows, "Status", modem.at("status").get<std::string>());
    draw_input();
    TerminalScreen::end();
}

void EchoScreen::draw_input() const {
    constexpr std::size_t kMargin = 4;
    const auto [rows, columns] = TerminalScreen::size();
    TerminalScreen::rule(rows - 3);
    TerminalScreen::put(rows - 1, 0,
                        std::string("Enter Send To Modem   F2 ") +
                            (with_line_end_ ? "[x]" : "[ ]") + " CrLf   Esc Close");
    // The end of a long line, where the next character goes.
    const std::size_t room = static_cast<std::size_t>(columns) - kMargin;
    const std::vector<std::string> end = last_rows(input_, room, 2);
    const std::string shown = end.empty() ? "" : end.back();
    TerminalScreen::put(rows - 2, 0, "> " + shown);
}

void EchoScreen::take_backspace() {
    while (!input_.empty() && (static_cast<unsigned char>(input_.back()) & 0xC0U) == 0x80U) {
        input_.pop_back();
    }
    if (!input_.empty()) {
        input_.pop_back();
    }
}

std::optional<ModemLine> EchoScreen::take_keys() {
    const KeyPress press = TerminalScreen::take_key();
    if (press.key == Key::Function && press.number == 2) {
        with_line_end_ = !with_line_end_;
    } else if (press.key == Key::Backspace || press.key == Key::Delete) {
        take_backspace();
    } else if (press.key == Key::Enter) {
        return ModemLine{std::exchange(input_, {}), with_line_end_};
    } else if (press.key == Key::Escape) {
        is_closed_ = true;
    } else if (press.key == Key::Character && input_.size() < kLongestLine) {
        input_ += press.character;
    }
    return std::nullopt;
}

}  // namespace app
