#include "vbscript/objects/files/console_stream.h"

namespace vbscript {
namespace {

class ConsoleChannel final : public TextChannel {
  public:
    ConsoleChannel(Console& console, StandardStream which) noexcept
        : console_(console), which_(which) {}

    [[nodiscard]] bool is_for_reading() const noexcept override {
        return which_ == StandardStream::Input;
    }

    bool read_more(std::u16string& buffer) override { return console_.read_input(buffer); }

    void write(std::u16string_view text) override {
        if (which_ == StandardStream::Error) {
            console_.write_error(text);
        } else {
            console_.write_output(text);
        }
    }

    // As the other programs of this machine do.
    [[nodiscard]] std::u16string_view line_end() const noexcept override { return u"\n"; }

    void close() override {}

  private:
    Console& console_;
    StandardStream which_;
};

}  // namespace

Ref<TextStream> console_stream(Console& console, StandardStream which) {
    return make<TextStream>(std::make_unique<ConsoleChannel>(console, which));
}

}  // namespace vbscript
