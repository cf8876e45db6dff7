#include "app/picture.h"

namespace app {

void Picture::add(int row, int column, std::string_view text, Look look) {
    Piece& piece = pieces.emplace_back();
    piece.row = row;
    piece.column = column;
    piece.text = text;
    piece.look = look;
}

}  // namespace app
