#include "vbscript/library/environment.h"

#include <array>

#include "vbscript/library/text_arguments.h"
#include "vbscript/value/locale.h"

namespace vbscript {
namespace {

constexpr std::int32_t kMajorVersion = 5;
constexpr std::int32_t kMinorVersion = 8;
constexpr std::int32_t kBuildVersion = 16384;
constexpr std::u16string_view kEngineName = u"VBScript";

std::u16string units_or(Context& context, Arguments arguments, std::size_t index,
                        std::u16string_view otherwise) {
    if (!is_given(arguments, index)) {
        return std::u16string(otherwise);
    }
    return to_units(context, arguments[index]);
}

// A help file and its context come together.
void require_whole_help(Arguments arguments, std::size_t index) {
    if (is_given(arguments, index) != is_given(arguments, index + 1)) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
}

Value message_box(Context& context, Arguments arguments) {
    const std::u16string prompt = to_units(context, arguments[0]);
    const std::int32_t buttons = long_or(context, arguments, 1, 0);
    const std::u16string title = units_or(context, arguments, 2, kEngineName);
    require_whole_help(arguments, 3);
    return Value(context.message_box(prompt, buttons, title));
}

Value input_box(Context& context, Arguments arguments) {
    const std::u16string prompt = to_units(context, arguments[0]);
    const std::u16string title = units_or(context, arguments, 1, kEngineName);
    const std::u16string initial = units_or(context, arguments, 2, u"");
    require_whole_help(arguments, 5);
    return Value(context.input_box(prompt, title, initial));
}

Value create_object(Context& context, Arguments arguments) {
    const std::u16string class_name = to_units(context, arguments[0]);
    if (!units_or(context, arguments, 1, u"").empty()) {
        throw ScriptError(ErrorNumber::RemoteServerUnavailable);
    }
    return Value(context.create_object(class_name));
}

// With an empty path a new object of the class. Nobody else's objects can be reached: neither a
// running one, which is meant without a path, nor one in a file.
Value get_object(Context& context, Arguments arguments) {
    if (!is_given(arguments, 0)) {
        throw ScriptError(ErrorNumber::CannotCreateObject);
    }
    const std::u16string path = to_units(context, arguments[0]);
    const std::u16string class_name = units_or(context, arguments, 1, u"");
    if (!path.empty() || class_name.empty()) {
        throw ScriptError(ErrorNumber::FileOrClassNameNotFound);
    }
    return Value(context.create_object(class_name));
}

Value load_picture(Context& /*context*/, Arguments /*arguments*/) {
    throw ScriptError(static_cast<std::int32_t>(ErrorNumber::InvalidPicture),
                      u"Invalid picture: pictures cannot be loaded here",
                      ScriptError(ErrorNumber::InvalidPicture).source);
}

Value get_locale(Context& context, Arguments /*arguments*/) {
    return Value(context.locale().identifier);
}

// A number, a number as a text, or a tag such as "de-de". Throws: ScriptError 447.
std::int32_t locale_identifier(Context& context, const Value& value) {
    if (!value.is(Type::String)) {
        return to_long(context, value);
    }
    if (const Locale* const locale = find_locale(value.units())) {
        return locale->identifier;
    }
    if (!parse_number(context.locale(), value.units())) {
        throw ScriptError(ErrorNumber::LocaleSettingNotSupported);
    }
    return to_long(context, value);
}

Value set_locale(Context& context, Arguments arguments) {
    const std::int32_t before = context.locale().identifier;
    context.set_locale(is_given(arguments, 0)
                           ? locale_identifier(context, plain_argument(context, arguments, 0))
                           : 0);
    return Value(before);
}

Value engine_name(Context& /*context*/, Arguments /*arguments*/) {
    return Value(kEngineName);
}

template <std::int32_t number>
Value version(Context& /*context*/, Arguments /*arguments*/) {
    return Value(number);
}

constexpr auto kFunctions = std::to_array<LibraryFunction>({
    {u"CreateObject", 1, 2, create_object},
    {u"GetLocale", 0, 0, get_locale},
    {u"GetObject", 0, 2, get_object},
    {u"InputBox", 1, 7, input_box},
    {u"LoadPicture", 0, 5, load_picture},
    {u"MsgBox", 1, 5, message_box},
    {u"ScriptEngine", 0, 0, engine_name},
    {u"ScriptEngineBuildVersion", 0, 0, version<kBuildVersion>},
    {u"ScriptEngineMajorVersion", 0, 0, version<kMajorVersion>},
    {u"ScriptEngineMinorVersion", 0, 0, version<kMinorVersion>},
    {u"SetLocale", 0, 1, set_locale},
});

}  // namespace

std::span<const LibraryFunction> environment_functions() {
    return kFunctions;
}

}  // namespace vbscript
