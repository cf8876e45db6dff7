#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What stands on a terminal, and what is typed on it; free of any terminal library.
namespace app {

struct WindowSize {
    int rows = 0;
    int columns = 0;
};

enum class Look : std::uint8_t { Plain, Title, Field, Focus, Dim };

// A text in code page 1252, so that a byte is a cell.
struct Piece {
    int row = 0;
    int column = 0;
    std::string text;
    Look look = Look::Plain;
};

struct CursorPlace {
    int row = 0;
    int column = 0;
};

struct Picture {
    std::vector<int> rules{};  // rows with a line from side to side
    std::vector<Piece> pieces{};
    std::optional<CursorPlace> cursor{};  // no cursor is shown without

    void add(int row, int column, std::string_view text, Look look = Look::Plain);
};

enum class Key : std::uint8_t {
    None,  // nothing was typed for a while, or the window has changed its size
    Character,
    Left,
    Right,
    Up,
    Down,
    Home,
    End,
    PageUp,
    PageDown,
    Next,      // Tab
    Previous,  // Shift and Tab
    Enter,
    Escape,
    Backspace,
    Delete,
    Function,
};

struct KeyPress {
    Key key = Key::None;
    std::string character{};  // UTF-8
    int number = 0;           // of a function key, from 1
};

}  // namespace app
