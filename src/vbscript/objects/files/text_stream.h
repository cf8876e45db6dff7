#pragma once

#include <memory>
#include <string>

#include "vbscript/objects/files/text_channel.h"
#include "vbscript/objects/native_object.h"

namespace vbscript {

// `TextStream`: reads or writes a channel in characters and lines. Lines end with LF or CR LF.
// Shared by the values that hold it; closes the channel when it ends.
// Members throw ScriptError 54 where the channel is for the other direction, 62 past the end, 91
// after `Close`.
class TextStream final : public NativeObject {
  public:
    explicit TextStream(std::unique_ptr<TextChannel> channel) noexcept
        : channel_(std::move(channel)) {}

    ~TextStream() override;

    Value read(Arguments& arguments);
    Value read_line();
    Value read_all();
    Value skip(Arguments& arguments);
    Value skip_line();
    Value write(Arguments& arguments);
    Value write_line(Arguments& arguments);
    Value write_blank_lines(Arguments& arguments);
    Value close();
    Value at_end_of_line();
    Value at_end_of_stream();
    Value line() const;
    Value column() const;

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    [[nodiscard]] TextChannel& channel_for_reading();
    [[nodiscard]] TextChannel& channel_for_writing();

    [[nodiscard]] std::u16string_view ahead() const noexcept {
        return std::u16string_view(buffer_).substr(place_);
    }

    // Sees to so many characters ahead, or all that there are. False with fewer.
    bool look_ahead(TextChannel& channel, std::size_t count);

    void require_more(TextChannel& channel);
    [[nodiscard]] std::u16string take(std::size_t count);
    [[nodiscard]] std::u16string take_line();
    [[nodiscard]] std::u16string take_count(Arguments& arguments);
    void put(std::u16string_view text);
    void count_place(std::u16string_view text) noexcept;

    std::unique_ptr<TextChannel> channel_;  // absent after `Close`
    std::u16string buffer_;                 // read, and not taken from `place_` on
    std::size_t place_ = 0;
    std::int32_t line_ = 1;
    std::int32_t column_ = 1;
};

}  // namespace vbscript
