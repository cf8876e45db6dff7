#include "xap/endpoint_pattern.h"

#include <algorithm>
#include <vector>

#include "automation/code_page.h"
#include "automation/strings.h"

namespace xap {

std::string joined(const SubAddress& address) {
    return automation::join({address.begin(), address.end()}, ".");
}

std::optional<EndpointPattern> EndpointPattern::of(std::string_view target) {
    const std::size_t colon = target.find(':');
    if (colon == std::string_view::npos) {
        return std::nullopt;
    }
    EndpointPattern pattern;
    const std::string_view sub_address = target.substr(colon + 1);
    if (sub_address.empty()) {
        return pattern;
    }
    const std::vector<std::string> levels = automation::split(sub_address, '.');
    for (std::size_t i = 0; i < std::min(levels.size(), kSubAddressLevels); ++i) {
        if (levels[i] == ">") {
            break;
        }
        pattern.levels_[i] = automation::to_lower(levels[i]);
    }
    return pattern;
}

bool EndpointPattern::matches(const SubAddress& address) const {
    return std::ranges::equal(levels_, address, [](const auto& level, const auto& own) {
        return level == "*" || level == own;
    });
}

}  // namespace xap
