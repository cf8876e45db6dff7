#include <algorithm>
#include <array>

#include "vbscript/library/text.h"
#include "vbscript/library/text_arguments.h"
#include "vbscript/value/operators.h"

namespace vbscript {
namespace {

[[noreturn]] void throw_invalid_call() {
    throw ScriptError(ErrorNumber::InvalidProcedureCall);
}

// Searches may take long in a loop over long texts.
constexpr std::size_t kMatchesBetweenChecks = 4096;

Value compared(Context& context, Arguments arguments) {
    const TextSearch::Case letter_case = case_of(context, arguments, 2);
    const Value left = plain_argument(context, arguments, 0);
    const Value right = plain_argument(context, arguments, 1);
    if (left.is(Type::Null) || right.is(Type::Null)) {
        return Value(kNull);
    }
    const int order =
        compare_text(to_text(context, left)->units(), to_text(context, right)->units(),
                     letter_case == TextSearch::Case::Ignored);
    return Value(static_cast<std::int16_t>(order));
}

// `InStr(start, whole, part, compare)`; a start is told from a text by the number of arguments.
Value position(Context& context, Arguments arguments) {
    const bool has_start = arguments.size() > 2;
    const std::size_t start =
        has_start && is_given(arguments, 0) ? count_of(context, arguments[0], 1) : 1;
    const std::size_t first = has_start ? 1 : 0;
    const TextSearch::Case letter_case = case_of(context, arguments, 3);
    const Value whole_value = plain_argument(context, arguments, first);
    const Value part_value = plain_argument(context, arguments, first + 1);
    if (whole_value.is(Type::Null) || part_value.is(Type::Null)) {
        return Value(kNull);
    }
    const Ref<String> whole = to_text(context, whole_value);
    const Ref<String> part = to_text(context, part_value);
    if (start > whole->units().size()) {
        return long_value(0);
    }
    if (part->units().empty()) {
        return long_value(start);
    }
    return long_value(TextSearch(whole->units(), part->units(), letter_case).next(start - 1) + 1);
}

// How many units from the left an `InStrRev` looks at; absent for a start behind the end.
std::optional<std::size_t> searched_size(Context& context, Arguments arguments, std::size_t size) {
    constexpr std::int32_t kFromEnd = -1;
    const std::int32_t start = long_or(context, arguments, 2, kFromEnd);
    if (start == kFromEnd) {
        return size;
    }
    if (start < 1) {
        throw_invalid_call();
    }
    const auto end = static_cast<std::size_t>(start);
    return end <= size ? std::optional(end) : std::nullopt;
}

Value last_position(Context& context, Arguments arguments) {
    const TextSearch::Case letter_case = case_of(context, arguments, 3);
    const Value whole_value = plain_argument(context, arguments, 0);
    const Value part_value = plain_argument(context, arguments, 1);
    if (whole_value.is(Type::Null) || part_value.is(Type::Null)) {
        return Value(kNull);
    }
    const Ref<String> whole = to_text(context, whole_value);
    const Ref<String> part = to_text(context, part_value);
    const auto end = searched_size(context, arguments, whole->units().size());
    if (!end || *end == 0) {
        return long_value(0);
    }
    if (part->units().empty()) {
        return long_value(*end);
    }
    return long_value(find_last(whole->units(), part->units(), *end, letter_case) + 1);
}

// How many occurrences a `Replace` or `Split` takes at most; -1 stands for all.
std::size_t most_matches(Context& context, Arguments arguments, std::size_t index) {
    constexpr std::int32_t kAll = -1;
    const std::int32_t count = long_or(context, arguments, index, kAll);
    if (count < kAll) {
        throw_invalid_call();
    }
    return count == kAll ? String::kMaximumUnits : static_cast<std::size_t>(count);
}

// Calls `handle` with the place of each of the first `most` matches.
template <typename Handle>
void for_each_match(Context& context, TextSearch& search, std::size_t size, std::size_t most,
                    Handle handle) {
    std::size_t from = 0;
    for (std::size_t count = 0; count < most; ++count) {
        const std::size_t place = search.next(from);
        if (place == TextSearch::kNowhere) {
            return;
        }
        handle(place);
        from = place + size;
        if (count % kMatchesBetweenChecks == 0) {
            context.check_time();
        }
    }
}

Value replaced_in(Context& context, std::u16string_view whole, std::u16string_view part,
                  std::u16string_view with, TextSearch& search, std::size_t most) {
    std::size_t matches = 0;
    for_each_match(context, search, part.size(), most, [&](std::size_t) { ++matches; });
    const std::size_t rest = whole.size() - matches * part.size();
    if (!with.empty() && matches > (String::kMaximumUnits - rest) / with.size()) {
        throw ScriptError(ErrorNumber::OutOfStringSpace);
    }
    std::u16string result;
    result.reserve(rest + matches * with.size());
    std::size_t from = 0;
    for_each_match(context, search, part.size(), most, [&](std::size_t place) {
        result.append(whole.substr(from, place - from)).append(with);
        from = place + part.size();
    });
    result.append(whole.substr(from));
    return Value(std::move(result));
}

Value replaced(Context& context, Arguments arguments) {
    const Ref<String> text = to_text(context, arguments[0]);
    const Ref<String> part = to_text(context, arguments[1]);
    const Ref<String> with = to_text(context, arguments[2]);
    const std::size_t start = is_given(arguments, 3) ? count_of(context, arguments[3], 1) : 1;
    const std::size_t most = most_matches(context, arguments, 4);
    const TextSearch::Case letter_case = case_of(context, arguments, 5);
    if (start > text->units().size()) {
        return Value(u"");
    }
    const std::u16string_view whole = text->units().substr(start - 1);
    const bool is_unchanged = part->units().empty() || most == 0;
    if (is_unchanged) {
        return start == 1 ? Value(text) : Value(whole);
    }
    TextSearch search(whole, part->units(), letter_case);
    return replaced_in(context, whole, part->units(), with->units(), search, most);
}

constexpr auto kFunctions = std::to_array<LibraryFunction>({
    {u"InStr", 2, 4, position},
    {u"InStrRev", 2, 4, last_position},
    {u"Replace", 3, 6, replaced},
    {u"StrComp", 2, 3, compared},
});

}  // namespace

std::span<const LibraryFunction> search_functions() {
    return kFunctions;
}

}  // namespace vbscript
