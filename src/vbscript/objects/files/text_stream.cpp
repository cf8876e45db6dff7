#include "vbscript/objects/files/text_stream.h"

#include <algorithm>
#include <array>

#include "vbscript/value/convert.h"
#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

constexpr auto kMembers = std::to_array<NativeMember>({
    native_method<&TextStream::read>(u"Read", 1),
    native_method<&TextStream::read_line>(u"ReadLine"),
    native_method<&TextStream::read_all>(u"ReadAll"),
    native_method<&TextStream::skip>(u"Skip", 1),
    native_method<&TextStream::skip_line>(u"SkipLine"),
    native_method<&TextStream::write>(u"Write", 1),
    native_method<&TextStream::write_line>(u"WriteLine", 0, 1),
    native_method<&TextStream::write_blank_lines>(u"WriteBlankLines", 1),
    native_method<&TextStream::close>(u"Close"),
    native_property<&TextStream::at_end_of_line>(u"AtEndOfLine"),
    native_property<&TextStream::at_end_of_stream>(u"AtEndOfStream"),
    native_property<&TextStream::line>(u"Line"),
    native_property<&TextStream::column>(u"Column"),
});

constexpr std::u16string_view kCrLf = u"\r\n";

}  // namespace

const NativeClass& TextStream::native_class() const noexcept {
    static const NativeClass kClass(u"TextStream", kMembers);
    return kClass;
}

// A script that drops a stream without closing it has nobody to tell of a full disk.
TextStream::~TextStream() {
    try {
        if (channel_) {
            channel_->close();
        }
    } catch (const ScriptError&) {
        channel_ = nullptr;
    }
}

Value TextStream::read(Arguments& arguments) {
    return Value(take_count(arguments));
}

Value TextStream::read_line() {
    return Value(take_line());
}

Value TextStream::read_all() {
    TextChannel& channel = channel_for_reading();
    require_more(channel);
    look_ahead(channel, std::u16string::npos);
    return Value(take(ahead().size()));
}

Value TextStream::skip(Arguments& arguments) {
    static_cast<void>(take_count(arguments));
    return {};
}

Value TextStream::skip_line() {
    static_cast<void>(take_line());
    return {};
}

Value TextStream::write(Arguments& arguments) {
    put(to_text(arguments.context(), arguments.at(0))->units());
    return {};
}

Value TextStream::write_line(Arguments& arguments) {
    std::u16string text = arguments.text_or(0, u"");
    put(text.append(channel_for_writing().line_end()));
    return {};
}

Value TextStream::write_blank_lines(Arguments& arguments) {
    const std::int32_t count = arguments.number(0);
    if (count < 0) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    for (std::int32_t i = 0; i < count; ++i) {
        put(channel_for_writing().line_end());
    }
    return {};
}

Value TextStream::close() {
    if (channel_) {
        const std::unique_ptr<TextChannel> channel = std::move(channel_);
        channel->close();
    }
    return {};
}

Value TextStream::at_end_of_line() {
    look_ahead(channel_for_reading(), kCrLf.size());
    return Value(ahead().empty() || ahead().starts_with(u'\n') || ahead().starts_with(kCrLf));
}

Value TextStream::at_end_of_stream() {
    return Value(!look_ahead(channel_for_reading(), 1));
}

Value TextStream::line() const {
    if (!channel_) {
        throw ScriptError(ErrorNumber::ObjectVariableNotSet);
    }
    return Value(line_);
}

Value TextStream::column() const {
    if (!channel_) {
        throw ScriptError(ErrorNumber::ObjectVariableNotSet);
    }
    return Value(column_);
}

TextChannel& TextStream::channel_for_reading() {
    if (!channel_) {
        throw ScriptError(ErrorNumber::ObjectVariableNotSet);
    }
    if (!channel_->is_for_reading()) {
        throw ScriptError(ErrorNumber::BadFileMode);
    }
    return *channel_;
}

TextChannel& TextStream::channel_for_writing() {
    if (!channel_) {
        throw ScriptError(ErrorNumber::ObjectVariableNotSet);
    }
    if (channel_->is_for_reading()) {
        throw ScriptError(ErrorNumber::BadFileMode);
    }
    return *channel_;
}

bool TextStream::look_ahead(TextChannel& channel, std::size_t count) {
    while (ahead().size() < count) {
        buffer_.erase(0, place_);
        place_ = 0;
        if (!channel.read_more(buffer_)) {
            break;
        }
    }
    return ahead().size() >= count;
}

void TextStream::require_more(TextChannel& channel) {
    if (!look_ahead(channel, 1)) {
        throw ScriptError(ErrorNumber::InputPastEndOfFile);
    }
}

std::u16string TextStream::take(std::size_t count) {
    std::u16string text(ahead().substr(0, count));
    place_ += text.size();
    count_place(text);
    return text;
}

std::u16string TextStream::take_line() {
    TextChannel& channel = channel_for_reading();
    require_more(channel);
    std::size_t end = ahead().find(u'\n');
    while (end == std::u16string_view::npos) {
        const std::size_t seen = ahead().size();
        if (!look_ahead(channel, seen + 1)) {
            break;
        }
        end = ahead().find(u'\n', seen);
    }
    std::u16string line = take(end == std::u16string_view::npos ? end : end + 1);
    if (line.ends_with(u'\n')) {
        line.pop_back();
    }
    if (end != std::u16string_view::npos && line.ends_with(u'\r')) {
        line.pop_back();
    }
    return line;
}

std::u16string TextStream::take_count(Arguments& arguments) {
    const std::int32_t count = arguments.number(0);
    if (count < 0) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    TextChannel& channel = channel_for_reading();
    if (count == 0) {
        return {};
    }
    require_more(channel);
    look_ahead(channel, static_cast<std::size_t>(count));
    return take(static_cast<std::size_t>(count));
}

void TextStream::put(std::u16string_view text) {
    channel_for_writing().write(text);
    count_place(text);
}

void TextStream::count_place(std::u16string_view text) noexcept {
    line_ += static_cast<std::int32_t>(std::ranges::count(text, u'\n'));
    const std::size_t last_end = text.rfind(u'\n');
    if (last_end == std::u16string_view::npos) {
        column_ += static_cast<std::int32_t>(text.size());
    } else {
        column_ = static_cast<std::int32_t>(text.size() - last_end);
    }
}

}  // namespace vbscript
