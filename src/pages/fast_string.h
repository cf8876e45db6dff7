#pragma once

#include <concepts>
#include <string>
#include <string_view>

#include "automation/convert.h"
#include "automation/value.h"

namespace pages {

// Collects the pieces of a page. Adding is cheap however many pieces there are: one text grows in
// steps that are in proportion to it, and `value` gives it without a further pass.
class FastString {
  public:
    void Add(std::string_view text) { text_ += text; }

    // The text of any other value. Throws: RunTimeError for one that has none.
    template <std::same_as<automation::Value> Value>
    void Add(const Value& value) {
        text_ += automation::to_text(value);
    }

    [[nodiscard]] const std::string& value() const noexcept { return text_; }

    void Reset() noexcept { text_.clear(); }

  private:
    std::string text_;
};

}  // namespace pages
