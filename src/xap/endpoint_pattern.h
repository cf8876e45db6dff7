#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace xap {

inline constexpr std::size_t kSubAddressLevels = 3;

// The three levels of an endpoint's sub-address, such as kitchen_topled, velora________14, topled.
using SubAddress = std::array<std::string, kSubAddressLevels>;

// "kitchen_TopLED.velora________14.TopLED"
[[nodiscard]] std::string joined(const SubAddress& address);

// Which endpoints the target of a message means. A value.
class EndpointPattern {
  public:
    // By what stands behind the first ":" of a target; none for a target without one. A level "*"
    // means any, and so do all levels from a ">" on and those that are not there.
    [[nodiscard]] static std::optional<EndpointPattern> of(std::string_view target);

    // `address` in lower case.
    [[nodiscard]] bool matches(const SubAddress& address) const;

  private:
    EndpointPattern() { levels_.fill("*"); }

    SubAddress levels_;
};

}  // namespace xap
