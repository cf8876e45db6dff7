#include "app/modem_player.h"

#include <algorithm>
#include <ostream>
#include <utility>

#include "app/control_client.h"
#include "app/text_table.h"
#include "automation/code_page.h"

namespace app {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

constexpr milliseconds kLook{50};  // between two looks at the line

void make_link(const fs::path& device, const fs::path& link) {
    std::error_code error;
    if (fs::symlink_status(link, error).type() == fs::file_type::symlink) {
        fs::remove(link, error);  // of a player that was killed
    }
    fs::create_symlink(device, link, error);
    if (error) {
        throw CommandFailure("cannot make " + link.string() + ": " + error.message());
    }
}

// Bytes on one line: CR and LF as "\r" and "\n".
std::string shown(const std::string& bytes) {
    std::string text;
    for (const char byte : bytes) {
        text += byte == '\r' ? "\\r" : byte == '\n' ? "\\n" : std::string(1, byte);
    }
    return printable(automation::code_page_to_utf8(text));
}

}  // namespace

ModemPlayer::ModemPlayer(platform::AsioPump& pump, fs::path link, std::ostream& out)
    : pump_(pump), link_(std::move(link)), out_(out) {
    make_link(terminal_.device(), link_);
}

ModemPlayer::~ModemPlayer() {
    std::error_code ignored;
    fs::remove(link_, ignored);
}

void ModemPlayer::wait_for_reader() {
    out_ << "a modem is at " << link_.string() << ", waiting until a program opens it" << std::endl;
    while (!terminal_.is_opened()) {
        pump_.run_until([] { return false; }, kLook);
    }
}

void ModemPlayer::play(const std::vector<CaptureStep>& steps) {
    for (const CaptureStep& step : steps) {
        listen(step.pause);
        if (!terminal_.is_opened()) {
            throw CommandFailure("the program at the other end has closed the line");
        }
        if (!step.bytes.empty()) {
            terminal_.send(step.bytes);
            out_ << "modem    " << shown(step.bytes) << std::endl;
        }
    }
    listen(10 * kLook);
}

// Shows what comes from the other end meanwhile.
void ModemPlayer::listen(milliseconds time) {
    const auto end = pump_.steady_now() + time;
    while (pump_.steady_now() < end) {
        const auto rest = std::chrono::ceil<milliseconds>(end - pump_.steady_now());
        pump_.run_until([] { return false; }, std::min(kLook, rest));
        if (const std::string bytes = terminal_.receive(milliseconds(0)); !bytes.empty()) {
            out_ << "program  " << shown(bytes) << std::endl;
        }
    }
}

}  // namespace app
