#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace home {

// A code of the power line: "A1" to "P16".
struct X10Code {
    std::string house;  // one capital letter
    std::string unit;

    [[nodiscard]] std::string text() const { return house + unit; }
};

// Without regard to case and to blanks around it; none for what is no such code.
[[nodiscard]] std::optional<X10Code> parse_x10_code(std::string_view text);

}  // namespace home
