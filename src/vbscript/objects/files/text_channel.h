#pragma once

#include <string>
#include <string_view>

namespace vbscript {

// Where the characters of a TextStream come from or go to: a file, the terminal. Owned by its
// stream; closes what it has open when it ends. A channel is for reading or for writing; the stream
// asks it for nothing else. Throws: ScriptError 57, 61.
class TextChannel {
  public:
    TextChannel() = default;
    TextChannel(const TextChannel&) = delete;
    TextChannel& operator=(const TextChannel&) = delete;
    virtual ~TextChannel() = default;

    [[nodiscard]] virtual bool is_for_reading() const noexcept = 0;

    // Appends the next characters to `buffer`; false at the end. May wait for somebody to type.
    virtual bool read_more(std::u16string& buffer) = 0;

    // Throws beside the rest: ScriptError 5 for a character that the channel cannot carry.
    virtual void write(std::u16string_view text) = 0;

    // What ends a line that is written.
    [[nodiscard]] virtual std::u16string_view line_end() const noexcept { return u"\r\n"; }

    // Everything that was written is on its way when the call returns.
    virtual void close() = 0;
};

}  // namespace vbscript
