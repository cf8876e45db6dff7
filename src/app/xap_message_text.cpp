#include "app/xap_message_text.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "app/text_table.h"
#include "automation/code_page.h"
#include "host/xap_message.h"

namespace app {
namespace {

constexpr std::string_view kDim = "\x1b[2m";
constexpr std::string_view kBold = "\x1b[1m";
constexpr std::string_view kGreen = "\x1b[32m";
constexpr std::string_view kCyan = "\x1b[36m";
constexpr std::string_view kPlain = "\x1b[0m";
constexpr std::size_t kWidestKey = 24;

std::string shown(const std::string& text) {
    return printable(automation::code_page_to_utf8(text));
}

// Paints texts, or leaves them as they are.
class Painter {
  public:
    explicit Painter(Colours colours) : is_on_(colours == Colours::On) {}

    [[nodiscard]] std::string operator()(std::string_view colour, const std::string& text) const {
        return is_on_ ? std::string(colour).append(text).append(kPlain) : text;
    }

  private:
    bool is_on_;
};

std::string block_text(const std::vector<std::string>& lines, const Painter& paint) {
    std::size_t width = 0;
    for (const std::string& line : lines) {
        if (const std::size_t equals = line.find('='); equals != std::string::npos) {
            const std::size_t key = width_of(shown(line.substr(0, equals)));
            width = std::max(width, std::min(key, kWidestKey));
        }
    }
    std::string text;
    for (const std::string& line : lines) {
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos) {
            text += "    " + shown(line) + "\n";
            continue;
        }
        const std::string key = shown(line.substr(0, equals));
        const std::size_t used = width_of(key);
        text += "    " + paint(kCyan, key) + std::string(used < width ? width - used : 0, ' ') +
                "  " + shown(line.substr(equals + 1)) + "\n";
    }
    return text;
}

}  // namespace

std::string xap_message_text(const host::XapMessage& message, automation::DateTime when,
                             Colours colours) {
    const Painter paint(colours);
    std::string text = paint(kDim, automation::time_of_day(when)) + "  " +
                       paint(kBold, shown(message.MsgClass())) + "  " +
                       paint(kGreen, shown(message.MsgSource()));
    if (!message.MsgTarget().empty()) {
        text += " -> " + shown(message.MsgTarget());
    }
    text += "\n";
    const std::vector<std::string> blocks = message.MsgSection();
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        text += "  " + shown(blocks[i]) + "\n" + block_text(message.msgCollection(i), paint);
    }
    return text + "\n";
}

}  // namespace app
