#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace automation {

// Text of a late-bound value: 16-bit code units, immutable, cheap to copy. The logic's own texts
// are single bytes in code page 1252 (std::string); the two meet here and nowhere else.
class Text {
  public:
    Text() noexcept = default;
    explicit Text(std::u16string units);

    // From and to code page 1252. A code unit that the page does not have becomes '?'.
    [[nodiscard]] static Text from_code_page(std::string_view bytes);
    [[nodiscard]] std::string to_code_page() const;

    [[nodiscard]] std::u16string_view units() const noexcept {
        return units_ ? std::u16string_view(*units_) : std::u16string_view();
    }

    [[nodiscard]] std::size_t size() const noexcept { return units().size(); }

    [[nodiscard]] bool empty() const noexcept { return units().empty(); }

    friend bool operator==(const Text& left, const Text& right) noexcept {
        return left.units() == right.units();
    }

  private:
    std::shared_ptr<const std::u16string> units_;  // absent stands for the empty text
};

}  // namespace automation
