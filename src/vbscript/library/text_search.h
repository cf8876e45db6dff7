#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vbscript {

// Looks for one text in another, again and again, in a time that grows with the length of the text
// that is searched and never with the product of both lengths. Keeps views of what it is given.
class TextSearch {
  public:
    enum class Case : bool { Matters, Ignored };

    static constexpr std::size_t kNowhere = std::u16string_view::npos;

    // Requires: `part` is not empty.
    TextSearch(std::u16string_view whole, std::u16string_view part, Case letter_case);
    TextSearch(const TextSearch&) = delete;
    TextSearch& operator=(const TextSearch&) = delete;

    // Where the part begins for the first time at or behind `from`.
    [[nodiscard]] std::size_t next(std::size_t from);

  private:
    [[nodiscard]] std::size_t next_by_table(std::size_t from);
    void make_table();

    std::u16string whole_in_small_letters_;
    std::u16string part_in_small_letters_;
    std::u16string_view whole_;
    std::u16string_view part_;

    // For each length of the part's beginning the longest shorter one that it ends with. Empty
    // until a search costs too much without it.
    std::vector<std::size_t> table_;
};

// Where the part begins for the last time within the first `end` units. Requires: as above.
[[nodiscard]] std::size_t find_last(std::u16string_view whole, std::u16string_view part,
                                    std::size_t end, TextSearch::Case letter_case);

}  // namespace vbscript
