#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace unit {

// The ways in which an appliance can be told to misbehave.
enum class FaultKind {
    None,      // "normal"
    Silent,    // "silent": takes a request and never answers it
    Slow,      // "slow MS": carries out and answers each request that much later
    Drop,      // "drop": closes each connection as soon as it has accepted it
    NotFound,  // "not-found": carries out nothing and answers each request with a 404 page
    Hang,      // "hang": carries out the request and sends half of its answer, then nothing
};

struct Fault {
    FaultKind kind = FaultKind::None;
    std::chrono::milliseconds delay{0};  // of Slow; 1 to kLongestDelay

    friend bool operator==(const Fault&, const Fault&) = default;
};

constexpr std::chrono::milliseconds kLongestDelay = std::chrono::minutes(10);

// Reads the forms above; nothing when the text is none of them.
[[nodiscard]] std::optional<Fault> parse_fault(std::string_view text);

// The form that parse_fault() reads.
[[nodiscard]] std::string to_text(const Fault& fault);

}  // namespace unit
