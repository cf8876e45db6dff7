#include "vbscript/objects/wscript/wscript.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "vbscript/objects/files/console_stream.h"
#include "vbscript/objects/files/path_names.h"
#include "vbscript/objects/script_quit.h"
#include "vbscript/objects/wscript/script_arguments.h"
#include "vbscript/value/convert.h"
#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr std::uint8_t kMostTexts = 254;

constexpr auto kMembers = std::to_array<NativeMember>({
    native_property<&WScript::arguments>(u"Arguments"),
    native_property<&WScript::build_version>(u"BuildVersion"),
    native_method<&WScript::create_object>(u"CreateObject", 1, 1),
    native_method<&WScript::echo>(u"Echo", 0, kMostTexts),
    native_property<&WScript::full_name>(u"FullName"),
    native_method<&WScript::get_object>(u"GetObject", 1, 2),
    native_property<&WScript::interactive, &WScript::let_interactive>(u"Interactive"),
    native_property<&WScript::name>(u"Name"),
    native_property<&WScript::path>(u"Path"),
    native_method<&WScript::quit>(u"Quit", 0, 1),
    native_property<&WScript::script_full_name>(u"ScriptFullName"),
    native_property<&WScript::script_name>(u"ScriptName"),
    native_method<&WScript::sleep>(u"Sleep", 1),
    native_property<&WScript::standard_error>(u"StdErr"),
    native_property<&WScript::standard_input>(u"StdIn"),
    native_property<&WScript::standard_output>(u"StdOut"),
    native_property<&WScript::time_limit, &WScript::let_time_limit>(u"Timeout"),
    native_property<&WScript::version>(u"Version"),
});

// Scripts cut paths at backslashes.
[[nodiscard]] std::u16string with_backslashes(std::u16string path) {
    std::ranges::replace(path, u'/', u'\\');
    return path;
}

}  // namespace

WScript::WScript(Console& console, ScriptRun run)
    : console_(console),
      run_(std::move(run)),
      arguments_(script_arguments(run_.arguments)),
      input_(console_stream(console, StandardStream::Input)),
      output_(console_stream(console, StandardStream::Output)),
      error_(console_stream(console, StandardStream::Error)) {}

const NativeClass& WScript::native_class() const noexcept {
    static const NativeClass kClass(u"Object", kMembers, u"Name");
    return kClass;
}

Value WScript::arguments() const {
    return Value(arguments_);
}

Value WScript::build_version() const {
    return Value(std::int32_t{0});
}

Value WScript::create_object(Arguments& arguments) {
    return Value(arguments.context().create_object(arguments.text(0)));
}

Value WScript::echo(Arguments& arguments) {
    std::u16string line;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (i > 0) {
            line += u' ';
        }
        line += arguments.text_or(i, u"");
    }
    console_.write_output(line + u"\n");
    return {};
}

Value WScript::full_name() const {
    return Value(with_backslashes(run_.program_path));
}

// Objects do not live in files here.
Value WScript::get_object(Arguments& arguments) {
    throw ScriptError(ErrorNumber::FileOrClassNameNotFound, arguments.text_or(0, u""));
}

Value WScript::interactive() const {
    return Value(interactive_);
}

Value WScript::let_interactive(Arguments& arguments) {
    interactive_ = to_boolean(arguments.context(), arguments.at(0));
    return {};
}

Value WScript::name() const {
    return Value(u"Windows Script Host");
}

Value WScript::path() const {
    return Value(parent_folder_name_of(with_backslashes(run_.program_path)));
}

Value WScript::quit(Arguments& arguments) {
    throw ScriptQuit(arguments.number_or(0, 0));
}

Value WScript::script_full_name() const {
    return Value(with_backslashes(run_.script_path));
}

Value WScript::script_name() const {
    return Value(file_name_of(run_.script_path));
}

Value WScript::sleep(Arguments& arguments) {
    constexpr milliseconds kLongestPause{100};
    milliseconds left(arguments.number(0));
    if (left < milliseconds::zero()) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    do {
        const milliseconds pause = std::min(left, kLongestPause);
        console_.pause(pause);
        arguments.context().check_time();
        left -= pause;
    } while (left > milliseconds::zero());
    return {};
}

Value WScript::standard_error() const {
    return Value(Ref<Object>(error_));
}

Value WScript::standard_input() const {
    return Value(Ref<Object>(input_));
}

Value WScript::standard_output() const {
    return Value(Ref<Object>(output_));
}

Value WScript::time_limit() const {
    return Value(time_limit_);
}

Value WScript::let_time_limit(Arguments& arguments) {
    constexpr std::int32_t kMostSeconds = 32767;
    const std::int32_t limit = arguments.number(0);
    if (limit < 0 || limit > kMostSeconds) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    time_limit_ = limit;
    if (run_.set_time_limit) {
        run_.set_time_limit(seconds(limit));
    }
    return {};
}

Value WScript::version() const {
    return Value(u"5.8");
}

}  // namespace vbscript
