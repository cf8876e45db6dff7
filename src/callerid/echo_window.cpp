#include "callerid/echo_window.h"

namespace callerid {

void EchoWindow::Box::append(std::string_view more) {
    written += more.size();
    text += more;
    if (text.size() > kMostCharacters) {
        text.erase(0, text.size() - kMostCharacters);
    }
}

void EchoWindow::empty_boxes() {
    data_.text.clear();
    status_.text.clear();
}

}  // namespace callerid
