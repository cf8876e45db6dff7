#include "app/echo_screen.h"

#include <unistd.h>

#define NCURSES_NOMACROS
#define NCURSES_WIDECHAR 1
#include <ncurses.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string_view>

#include "app/control_client.h"
#include "app/echo_rows.h"

namespace app {
namespace {

constexpr int kStatusRows = 4;
constexpr int kFewestColumns = 30;
constexpr int kFewestRows = 14;
constexpr int kKeyPause = 200;  // milliseconds
constexpr std::size_t kLongestLine = 400;
constexpr wint_t kEscape = 27;
constexpr wint_t kBackspace = 8;
constexpr wint_t kDelete = 127;

std::string to_utf8(const std::wstring& text) {
    std::string bytes(text.size() * MB_CUR_MAX, '\0');
    const std::size_t length = std::wcstombs(bytes.data(), text.c_str(), bytes.size());
    bytes.resize(length == static_cast<std::size_t>(-1) ? 0 : length);
    return bytes;
}

void put(int row, int column, const std::string& text) {
    ::mvaddnstr(row, column, text.c_str(), static_cast<int>(text.size()));
}

// A frame over the whole width with the newest rows of the text.
void draw_box(int top, int rows, const std::string& title, const std::string& text) {
    const int width = ::getmaxx(::stdscr);
    ::mvhline(top, 0, ACS_HLINE, width);
    put(top, 2, " " + title + " ");
    int row = top + 1;
    for (const std::string& line :
         last_rows(text, static_cast<std::size_t>(width), static_cast<std::size_t>(rows))) {
        put(row++, 0, line);
    }
}

}  // namespace

EchoScreen::EchoScreen() {
    if (std::setlocale(LC_ALL, "") == nullptr || MB_CUR_MAX == 1) {
        std::setlocale(LC_ALL, "C.UTF-8");
    }
    if (::isatty(STDOUT_FILENO) == 0 || ::newterm(nullptr, stdout, stdin) == nullptr) {
        throw CommandFailure("this terminal cannot be drawn on; see TERM");
    }
    ::cbreak();
    ::noecho();
    ::keypad(::stdscr, true);
    ::set_escdelay(50);
    ::wtimeout(::stdscr, kKeyPause);
}

EchoScreen::~EchoScreen() {
    ::endwin();
}

void EchoScreen::show(const Json& modem) {
    ::werase(::stdscr);
    const int rows = ::getmaxy(::stdscr);
    if (rows < kFewestRows || ::getmaxx(::stdscr) < kFewestColumns) {
        put(0, 0, "The window is too small.");
        ::wrefresh(::stdscr);
        return;
    }
    const bool is_open = modem.at("open").get<bool>();
    put(0, 0, std::string("Modem Echo Window: the port is ") + (is_open ? "open" : "not open"));
    const int status_top = rows - kStatusRows - 4;
    draw_box(1, status_top - 2, "Data", modem.at("data").get<std::string>());
    draw_box(status_top, kStatusRows, "Status", modem.at("status").get<std::string>());
    draw_input();
    ::wrefresh(::stdscr);
}

void EchoScreen::draw_input() const {
    constexpr int kMargin = 4;
    const int rows = ::getmaxy(::stdscr);
    ::mvhline(rows - 3, 0, ACS_HLINE, ::getmaxx(::stdscr));
    put(rows - 1, 0,
        std::string("Enter Send To Modem   F2 ") + (with_line_end_ ? "[x]" : "[ ]") +
            " CrLf   Esc Close");
    const auto room = static_cast<std::size_t>(::getmaxx(::stdscr) - kMargin);
    put(rows - 2, 0, "> " + to_utf8(input_.substr(input_.size() - std::min(room, input_.size()))));
}

std::optional<ModemLine> EchoScreen::take_keys() {
    wint_t key = 0;
    const int kind = ::get_wch(&key);
    if (kind == ERR) {
        return std::nullopt;
    }
    const bool is_function = kind == KEY_CODE_YES;
    if (is_function && key == static_cast<wint_t>(KEY_F(2))) {
        with_line_end_ = !with_line_end_;
    } else if ((is_function && (key == KEY_BACKSPACE || key == KEY_DC)) ||
               (!is_function && (key == kBackspace || key == kDelete))) {
        if (!input_.empty()) {
            input_.pop_back();
        }
    } else if ((is_function && key == KEY_ENTER) ||
               (!is_function && (key == L'\n' || key == L'\r'))) {
        ModemLine line{to_utf8(input_), with_line_end_};
        input_.clear();
        return line;
    } else if (!is_function && key == kEscape) {
        is_closed_ = true;
    } else if (!is_function && key >= L' ' && input_.size() < kLongestLine) {
        input_ += static_cast<wchar_t>(key);
    }
    return std::nullopt;
}

}  // namespace app
