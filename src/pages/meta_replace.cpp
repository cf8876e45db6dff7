#include "pages/meta_replace.h"

#include <optional>

#include "automation/guarded.h"
#include "core/velora_log.h"
#include "pages/text_search.h"

namespace pages {

namespace {

constexpr std::string_view kTag = "meta http-equiv";
constexpr std::string_view kDigits = "0123456789";

// What belongs together in one tag, by position in the source.
struct Tag {
    std::size_t start = 0;
    std::size_t content = 0;  // the word
    std::size_t close = 0;    // its ">"
};

// From `from` on. A tag that misses its end or its content is none.
std::optional<Tag> find_tag(std::string_view source, std::size_t from) {
    for (Tag tag{.start = in_str_any_case(from, source, kTag)}; tag.start > 0;
         tag.start = in_str_any_case(tag.start + 1, source, kTag)) {
        tag.content = in_str_any_case(tag.start, source, "content");
        tag.close = tag.content > 0 ? in_str(tag.content, source, ">") : 0;
        if (tag.close > 0) {
            return tag;
        }
    }
    return std::nullopt;
}

// The source with the first digits behind the tag's "=" replaced; absent when there are none.
std::optional<std::string> with_seconds(std::string_view source, const Tag& tag,
                                        std::string_view seconds) {
    const std::size_t equals = in_str(tag.content, source, "=");
    if (equals == 0 || equals > tag.close) {
        return std::nullopt;
    }
    const std::size_t digit = source.find_first_of(kDigits, equals);
    if (digit >= tag.close) {
        return std::nullopt;
    }
    const std::size_t behind = source.find_first_not_of(kDigits, digit);  // at the latest, the ">"
    return std::string(source).replace(digit, behind - digit, seconds);
}

// The quotes around the number end before the URL (kept).
std::string with_new_tag(std::string_view source, std::string_view seconds) {
    constexpr std::string_view kHead = "<HEAD>";
    constexpr std::string_view kHtml = "<HTML>";
    const std::string tag = "<meta http-equiv=\"\"Refresh\"\" content=\"\"" + std::string(seconds) +
                            "\"\"; URL=\"\"/VeloraSlideshow.asp\"\">";
    const std::string head = std::string(kHead) + tag + "</HEAD>";
    std::string result(source);
    if (const std::size_t at = in_str_any_case(1, source, kHead); at > 0) {
        return result.insert(at - 1 + kHead.size(), tag);
    }
    if (const std::size_t at = in_str_any_case(1, source, kHtml); at > 0) {
        return result.insert(at - 1 + kHtml.size(), head);
    }
    return std::string(kHtml) + head + result;
}

}  // namespace

std::string metaReplace(core::VeloraLog& log, const host::Protection& protection,
                        std::string_view source, std::string_view seconds) {
    constexpr std::string_view kWhere = "metaReplace ";
    return automation::guarded(log, kWhere, [&] {
        std::size_t from = 1;
        while (const std::optional<Tag> tag = find_tag(source, from)) {
            if (const auto result = with_seconds(source, *tag, seconds)) {
                return *result;
            }
            if (protection.tag_without_digits_is_passed_over) {
                log.report(kWhere, {automation::ErrorNumber::InvalidProcedureCall,
                                    "meta http-equiv without a number"});
                from = tag->close;
            }
        }
        return with_new_tag(source, seconds);
    });
}

}  // namespace pages
