#include <array>

#include "vbscript/library/text.h"
#include "vbscript/library/text_arguments.h"
#include "vbscript/value/array.h"

namespace vbscript {
namespace {

using Elements = std::vector<Value>;

constexpr std::size_t kElementsBetweenChecks = 4096;

Value array_of(Elements elements) {
    return Value(make<Array>(std::move(elements)));
}

// The elements of an array of one dimension. Throws: ScriptError 13 for no array, 5 for another
// number of dimensions.
std::span<const Value> elements_of(const Value& value) {
    if (!value.is(Type::Array)) {
        throw ScriptError(ErrorNumber::TypeMismatch);
    }
    const Array& array = value.array();
    if (array.dimensions() > 1) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    return array.elements();
}

// An array as an argument gives it; an object may hold one.
Value list_argument(Context& context, Arguments arguments) {
    Value list = context.plain(arguments[0]);
    if (list.is(Type::Null)) {
        throw ScriptError(ErrorNumber::InvalidUseOfNull);
    }
    return list;
}

Ref<String> separator_of(Context& context, Arguments arguments) {
    return is_given(arguments, 1) ? to_text(context, arguments[1])
                                  : make<String>(std::u16string_view(u" "));
}

Elements split_at(Context& context, std::u16string_view text, std::u16string_view separator,
                  std::size_t most, TextSearch::Case letter_case) {
    TextSearch search(text, separator, letter_case);
    Elements elements;
    std::size_t from = 0;
    while (elements.size() + 1 < most) {
        const std::size_t place = search.next(from);
        if (place == TextSearch::kNowhere) {
            break;
        }
        elements.emplace_back(text.substr(from, place - from));
        from = place + separator.size();
        if (elements.size() % kElementsBetweenChecks == 0) {
            context.check_time();
        }
        if (elements.size() == Array::kMaximumElements) {
            throw ScriptError(ErrorNumber::OutOfMemory);
        }
    }
    elements.emplace_back(text.substr(from));
    return elements;
}

// At most `count` elements, the last of which is all the rest.
Value split(Context& context, Arguments arguments) {
    constexpr std::int32_t kAll = -1;
    const Ref<String> text = to_text(context, arguments[0]);
    const Ref<String> separator = separator_of(context, arguments);
    const std::int32_t count = long_or(context, arguments, 2, kAll);
    const TextSearch::Case letter_case = case_of(context, arguments, 3);
    if (count < kAll) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    if (text->units().empty() || count == 0) {
        return array_of({});
    }
    if (separator->units().empty() || count == 1) {
        return array_of({Value(text)});
    }
    const std::size_t most =
        count == kAll ? String::kMaximumUnits + 1 : static_cast<std::size_t>(count);
    return array_of(split_at(context, text->units(), separator->units(), most, letter_case));
}

Value joined(Context& context, Arguments arguments) {
    const Value list = list_argument(context, arguments);
    const Ref<String> separator = separator_of(context, arguments);
    const Elements elements(elements_of(list).begin(), elements_of(list).end());
    std::vector<Ref<String>> texts;
    texts.reserve(elements.size());
    std::size_t size = 0;
    for (const Value& element : elements) {
        texts.push_back(to_text(context, element));
        size += texts.back()->units().size() + separator->units().size();
        if (size > String::kMaximumUnits) {
            throw ScriptError(ErrorNumber::OutOfStringSpace);
        }
        if (texts.size() % kElementsBetweenChecks == 0) {
            context.check_time();
        }
    }
    std::u16string result;
    result.reserve(size);
    for (const Ref<String>& text : texts) {
        if (&text != texts.data()) {
            result.append(separator->units());
        }
        result.append(text->units());
    }
    return Value(std::move(result));
}

// Elements that hold the text, or with `include` False those that do not.
Value filtered(Context& context, Arguments arguments) {
    const Value list = list_argument(context, arguments);
    const Ref<String> part = to_text(context, arguments[1]);
    const bool include = boolean_or(context, arguments, 2, true);
    const TextSearch::Case letter_case = case_of(context, arguments, 3);
    const Elements elements(elements_of(list).begin(), elements_of(list).end());
    Elements result;
    for (const Value& element : elements) {
        const Ref<String> text = to_text(context, element);
        const bool is_found =
            part->units().empty() ||
            TextSearch(text->units(), part->units(), letter_case).next(0) != TextSearch::kNowhere;
        if (is_found == include) {
            result.emplace_back(text);
        }
        context.check_time();
    }
    return array_of(std::move(result));
}

constexpr auto kFunctions = std::to_array<LibraryFunction>({
    {u"Filter", 2, 4, filtered},
    {u"Join", 1, 2, joined},
    {u"Split", 1, 4, split},
});

}  // namespace

std::span<const LibraryFunction> list_functions() {
    return kFunctions;
}

}  // namespace vbscript
