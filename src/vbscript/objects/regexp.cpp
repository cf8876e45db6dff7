#include "vbscript/objects/regexp.h"

#include <array>

#include "vbscript/objects/regexp_matches.h"
#include "vbscript/value/convert.h"

namespace vbscript {
namespace {

constexpr auto kMembers = std::to_array<NativeMember>({
    native_property<&RegExp::pattern, &RegExp::let_pattern>(u"Pattern"),
    native_property<&RegExp::global, &RegExp::let_global>(u"Global"),
    native_property<&RegExp::ignore_case, &RegExp::let_ignore_case>(u"IgnoreCase"),
    native_property<&RegExp::multi_line, &RegExp::let_multi_line>(u"Multiline"),
    native_method<&RegExp::test>(u"Test", 1),
    native_method<&RegExp::execute>(u"Execute", 1),
    native_method<&RegExp::replace>(u"Replace", 2),
});

using Places = std::span<const std::size_t>;

[[nodiscard]] constexpr bool is_digit(char16_t unit) noexcept {
    return unit >= u'0' && unit <= u'9';
}

// Fills in what stands behind a `$` of a replacement.
class Replacement {
  public:
    explicit Replacement(std::u16string_view text) noexcept : text_(text) {}

    void append_to(std::u16string& result, std::u16string_view subject, Places places) const {
        std::size_t from = 0;
        for (;;) {
            const std::size_t sign = text_.find(u'$', from);
            result += text_.substr(from, sign - from);
            if (sign == std::u16string_view::npos) {
                return;
            }
            from = sign + append_reference(result, text_.substr(sign), subject, places);
        }
    }

  private:
    // Appends what `reference`, which begins with "$", stands for; gives its length.
    static std::size_t append_reference(std::u16string& result, std::u16string_view reference,
                                        std::u16string_view subject, Places places) {
        const char16_t kind = reference.size() > 1 ? reference[1] : u'\0';
        switch (kind) {
            case u'$':
                result += u'$';
                return 2;
            case u'&':
                append_group(result, subject, places, 0);
                return 2;
            case u'`':
                result += subject.substr(0, places[0]);
                return 2;
            case u'\'':
                result += subject.substr(places[1]);
                return 2;
            default:
                break;
        }
        if (const std::size_t size = group_reference_size(reference, places.size() / 2 - 1)) {
            append_group(result, subject, places, number_of(reference.substr(1, size - 1)));
            return size;
        }
        result += u'$';
        return 1;
    }

    // Two digits that name a group, else one; 0 when no group is named.
    [[nodiscard]] static std::size_t group_reference_size(std::u16string_view reference,
                                                          std::size_t groups) noexcept {
        for (const std::size_t digits : {std::size_t{2}, std::size_t{1}}) {
            const std::u16string_view number = reference.substr(1, digits);
            if (number.size() < digits || !is_digit(number.front()) || !is_digit(number.back())) {
                continue;
            }
            const std::size_t group = number_of(number);
            if (group >= 1 && group <= groups) {
                return digits + 1;
            }
        }
        return 0;
    }

    [[nodiscard]] static std::size_t number_of(std::u16string_view digits) noexcept {
        std::size_t number = 0;
        for (const char16_t digit : digits) {
            number = number * 10 + (digit - u'0');
        }
        return number;
    }

    static void append_group(std::u16string& result, std::u16string_view subject, Places places,
                             std::size_t group) {
        const std::size_t begin = places[group * 2];
        const std::size_t end = places[group * 2 + 1];
        if (begin != CompiledPattern::kUnset) {
            result += subject.substr(begin, end - begin);
        }
    }

    std::u16string_view text_;
};

}  // namespace

const NativeClass& RegExp::native_class() const noexcept {
    static const NativeClass kClass(u"IRegExp2", kMembers);
    return kClass;
}

Value RegExp::pattern() const {
    return Value(pattern_);
}

Value RegExp::let_pattern(Arguments& arguments) {
    pattern_ = arguments.text(0);
    compiled_ = nullptr;
    return {};
}

Value RegExp::global() const {
    return Value(global_);
}

Value RegExp::let_global(Arguments& arguments) {
    global_ = to_boolean(arguments.context(), arguments.at(0));
    return {};
}

Value RegExp::ignore_case() const {
    return Value(ignore_case_);
}

Value RegExp::let_ignore_case(Arguments& arguments) {
    ignore_case_ = to_boolean(arguments.context(), arguments.at(0));
    compiled_ = nullptr;
    return {};
}

Value RegExp::multi_line() const {
    return Value(multi_line_);
}

Value RegExp::let_multi_line(Arguments& arguments) {
    multi_line_ = to_boolean(arguments.context(), arguments.at(0));
    compiled_ = nullptr;
    return {};
}

Value RegExp::test(Arguments& arguments) {
    const Ref<String> subject = to_text(arguments.context(), arguments.at(0));
    return Value(!compiled().match(arguments.context(), subject->units(), 0).empty());
}

Value RegExp::execute(Arguments& arguments) {
    const Ref<String> subject = to_text(arguments.context(), arguments.at(0));
    auto list = make<MatchList>(subject, compiled().groups());
    each_match(arguments.context(), subject->units(), [&](Places places) { list->add(places); });
    return Value(Ref<Object>(make<MatchCollection>(std::move(list))));
}

Value RegExp::replace(Arguments& arguments) {
    const Ref<String> subject = to_text(arguments.context(), arguments.at(0));
    const Ref<String> with = to_text(arguments.context(), arguments.at(1));
    const Replacement replacement(with->units());
    const std::u16string_view text = subject->units();
    std::u16string result;
    std::size_t done = 0;
    each_match(arguments.context(), text, [&](Places places) {
        result += text.substr(done, places[0] - done);
        replacement.append_to(result, text, places);
        done = places[1];
    });
    if (done == 0 && result.empty()) {
        return Value(subject);
    }
    result += text.substr(done);
    return Value(std::move(result));
}

CompiledPattern& RegExp::compiled() {
    if (!compiled_) {
        compiled_ = std::make_unique<CompiledPattern>(
            translate_pattern(pattern_, ignore_case_, multi_line_), ignore_case_);
    }
    return *compiled_;
}

void RegExp::each_match(Context& context, std::u16string_view subject,
                        const std::function<void(Places)>& found) {
    CompiledPattern& pattern = compiled();
    std::size_t start = 0;
    for (;;) {
        const Places places = pattern.match(context, subject, start);
        if (places.empty()) {
            return;
        }
        found(places);
        if (!global_) {
            return;
        }
        const bool is_empty = places[1] == places[0];
        start = places[1] + (is_empty ? 1 : 0);
    }
}

}  // namespace vbscript
