#include "app/terminal_screen.h"

#include <unistd.h>

#define NCURSES_NOMACROS
#define NCURSES_WIDECHAR 1
#include <ncurses.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdlib>
#include <string_view>

#include "app/control_client.h"
#include "app/text_table.h"
#include "automation/code_page.h"

namespace app {
namespace {

constexpr int kKeyPause = 200;  // milliseconds

struct KeyRow {
    wint_t code;
    Key key;
};

constexpr std::array<KeyRow, 14> kFunctionCodes{{
    {KEY_LEFT, Key::Left},
    {KEY_RIGHT, Key::Right},
    {KEY_UP, Key::Up},
    {KEY_DOWN, Key::Down},
    {KEY_HOME, Key::Home},
    {KEY_END, Key::End},
    {KEY_PPAGE, Key::PageUp},
    {KEY_NPAGE, Key::PageDown},
    {KEY_BTAB, Key::Previous},
    {KEY_ENTER, Key::Enter},
    {KEY_BACKSPACE, Key::Backspace},
    {KEY_DC, Key::Delete},
    {KEY_EXIT, Key::Escape},
    {KEY_RESIZE, Key::None},
}};

constexpr std::array<KeyRow, 6> kControlCodes{{
    {L'\t', Key::Next},
    {L'\n', Key::Enter},
    {L'\r', Key::Enter},
    {27, Key::Escape},
    {8, Key::Backspace},
    {127, Key::Backspace},
}};

template <std::size_t size>
Key key_of(const std::array<KeyRow, size>& rows, wint_t code) {
    const auto* const row =
        std::find_if(rows.begin(), rows.end(), [code](const KeyRow& r) { return r.code == code; });
    return row == rows.end() ? Key::None : row->key;
}

std::string to_utf8(wint_t character) {
    const std::wstring text(1, static_cast<wchar_t>(character));
    std::string bytes(MB_CUR_MAX, '\0');
    const std::size_t length = std::wcstombs(bytes.data(), text.c_str(), bytes.size());
    bytes.resize(length == static_cast<std::size_t>(-1) ? 0 : length);
    return bytes;
}

int attributes_of(Look look) {
    switch (look) {
        case Look::Title:
            return static_cast<int>(A_BOLD);
        case Look::Field:
            return static_cast<int>(A_UNDERLINE);
        case Look::Focus:
            return static_cast<int>(A_REVERSE);
        case Look::Dim:
            return static_cast<int>(A_DIM);
        case Look::Plain:
            break;
    }
    return static_cast<int>(A_NORMAL);
}

// The bytes of the first `count` characters.
std::size_t bytes_of(std::string_view utf8, std::size_t count) {
    std::size_t end = 0;
    while (end < utf8.size() && width_of(utf8.substr(0, end + 1)) <= count) {
        ++end;
    }
    return end;
}

}  // namespace

TerminalScreen::TerminalScreen() {
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

TerminalScreen::~TerminalScreen() {
    ::endwin();
}

WindowSize TerminalScreen::size() {
    return {::getmaxy(::stdscr), ::getmaxx(::stdscr)};
}

void TerminalScreen::begin() {
    ::werase(::stdscr);
}

void TerminalScreen::end() {
    ::wrefresh(::stdscr);
}

void TerminalScreen::put(int row, int column, const std::string& text, Look look) {
    const WindowSize window = size();
    if (row < 0 || column < 0 || row >= window.rows || column >= window.columns) {
        return;
    }
    const std::size_t bytes = bytes_of(text, static_cast<std::size_t>(window.columns - column));
    ::attrset(attributes_of(look));
    ::mvaddnstr(row, column, text.c_str(), static_cast<int>(bytes));
    ::attrset(static_cast<int>(A_NORMAL));
}

void TerminalScreen::rule(int row) {
    ::mvhline(row, 0, ACS_HLINE, size().columns);
}

void TerminalScreen::show(const Picture& picture) {
    begin();
    for (const int row : picture.rules) {
        rule(row);
    }
    for (const Piece& piece : picture.pieces) {
        put(piece.row, piece.column, printable(automation::code_page_to_utf8(piece.text)),
            piece.look);
    }
    ::curs_set(picture.cursor ? 1 : 0);
    if (picture.cursor) {
        ::move(picture.cursor->row, picture.cursor->column);
    }
    end();
}

KeyPress TerminalScreen::take_key() {
    constexpr wint_t kLastFunctionKey = 12;
    wint_t code = 0;
    const int kind = ::get_wch(&code);
    if (kind == ERR) {
        return {};
    }
    if (kind == KEY_CODE_YES) {
        const auto first = static_cast<wint_t>(KEY_F(1));
        if (code >= first && code < first + kLastFunctionKey) {
            return {.key = Key::Function, .number = static_cast<int>(code - first) + 1};
        }
        return {.key = key_of(kFunctionCodes, code)};
    }
    if (code >= L' ' && key_of(kControlCodes, code) == Key::None) {
        return {.key = Key::Character, .character = to_utf8(code)};
    }
    return {.key = key_of(kControlCodes, code)};
}

bool is_at_terminal() {
    return ::isatty(STDOUT_FILENO) != 0 && ::isatty(STDIN_FILENO) != 0;
}

}  // namespace app
