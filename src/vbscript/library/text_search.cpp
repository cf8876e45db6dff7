#include "vbscript/library/text_search.h"

#include <algorithm>

#include "vbscript/value/convert.h"

namespace vbscript {

TextSearch::TextSearch(std::u16string_view whole, std::u16string_view part, Case letter_case)
    : whole_(whole), part_(part) {
    if (letter_case == Case::Ignored) {
        whole_in_small_letters_ = to_lower(whole);
        part_in_small_letters_ = to_lower(part);
        whole_ = whole_in_small_letters_;
        part_ = part_in_small_letters_;
    }
}

// Most texts hold few false beginnings, so that looking for the first unit is all the work. Once
// the beginnings have cost more than the way to the match, the table takes over.
std::size_t TextSearch::next(std::size_t from) {
    constexpr std::size_t kFreeWork = 64;
    if (part_.size() > whole_.size()) {
        return kNowhere;
    }
    if (!table_.empty()) {
        return next_by_table(from);
    }
    const std::size_t last = whole_.size() - part_.size();
    std::size_t work = 0;
    for (std::size_t place = from; place <= last; ++place) {
        place = whole_.find(part_.front(), place);
        if (place > last) {
            return kNowhere;
        }
        const auto begin = whole_.begin() + static_cast<std::ptrdiff_t>(place);
        const auto difference = std::mismatch(part_.begin(), part_.end(), begin).first;
        if (difference == part_.end()) {
            return place;
        }
        work += static_cast<std::size_t>(difference - part_.begin());
        if (work > kFreeWork + 4 * (place - from)) {
            make_table();
            return next_by_table(place + 1);
        }
    }
    return kNowhere;
}

void TextSearch::make_table() {
    table_.assign(part_.size() + 1, 0);
    std::size_t length = 0;
    for (std::size_t end = 1; end < part_.size(); ++end) {
        while (length > 0 && part_[end] != part_[length]) {
            length = table_[length];
        }
        if (part_[end] == part_[length]) {
            ++length;
        }
        table_[end + 1] = length;
    }
}

std::size_t TextSearch::next_by_table(std::size_t from) {
    std::size_t matched = 0;
    for (std::size_t place = from; place < whole_.size(); ++place) {
        while (matched > 0 && whole_[place] != part_[matched]) {
            matched = table_[matched];
        }
        if (whole_[place] == part_[matched]) {
            ++matched;
        }
        if (matched == part_.size()) {
            return place + 1 - matched;
        }
    }
    return kNowhere;
}

std::size_t find_last(std::u16string_view whole, std::u16string_view part, std::size_t end,
                      TextSearch::Case letter_case) {
    const std::u16string_view searched = whole.substr(0, end);
    const std::u16string backwards(searched.rbegin(), searched.rend());
    const std::u16string part_backwards(part.rbegin(), part.rend());
    const std::size_t place = TextSearch(backwards, part_backwards, letter_case).next(0);
    if (place == TextSearch::kNowhere) {
        return TextSearch::kNowhere;
    }
    return searched.size() - place - part.size();
}

}  // namespace vbscript
