#include "app/terminal_console.h"

#include <iostream>
#include <string>
#include <thread>

#include "vbscript/value/convert.h"

namespace app {

void TerminalConsole::write_output(std::u16string_view text) {
    std::cout << vbscript::to_utf8(text);
}

// What was printed before stands before it.
void TerminalConsole::write_error(std::u16string_view text) {
    std::cout.flush();
    std::cerr << vbscript::to_utf8(text);
}

bool TerminalConsole::read_input(std::u16string& buffer) {
    std::cout.flush();
    std::string line;
    if (!std::getline(std::cin, line)) {
        return false;
    }
    if (!std::cin.eof()) {
        line += '\n';
    }
    buffer += vbscript::from_utf8(line);
    return true;
}

void TerminalConsole::pause(std::chrono::milliseconds duration) {
    std::cout.flush();
    std::this_thread::sleep_for(duration);
}

}  // namespace app
