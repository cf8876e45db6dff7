#include "unit/fault.h"

#include <array>

#include "automation/whole_number.h"

namespace unit {
namespace {

struct FaultWord {
    std::string_view word;
    FaultKind kind;
};

constexpr std::array kFaultWords{
    FaultWord{"normal", FaultKind::None}, FaultWord{"silent", FaultKind::Silent},
    FaultWord{"drop", FaultKind::Drop},   FaultWord{"not-found", FaultKind::NotFound},
    FaultWord{"hang", FaultKind::Hang},
};

constexpr std::string_view kSlowPrefix = "slow ";

}  // namespace

std::optional<Fault> parse_fault(std::string_view text) {
    for (const FaultWord& known : kFaultWords) {
        if (known.word == text) {
            return Fault{known.kind, {}};
        }
    }
    if (!text.starts_with(kSlowPrefix)) {
        return std::nullopt;
    }
    const auto delay =
        automation::whole_number(text.substr(kSlowPrefix.size()), 1, kLongestDelay.count());
    if (!delay) {
        return std::nullopt;
    }
    return Fault{FaultKind::Slow, std::chrono::milliseconds(*delay)};
}

std::string to_text(const Fault& fault) {
    if (fault.kind == FaultKind::Slow) {
        return std::string(kSlowPrefix) + std::to_string(fault.delay.count());
    }
    for (const FaultWord& known : kFaultWords) {
        if (known.kind == fault.kind) {
            return std::string(known.word);
        }
    }
    return {};
}

}  // namespace unit
