#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Identifiers in the header of a message, hexadecimal digits. xAP 1.2 writes "FF123403": the
// network, four digits of the device, two of the endpoint. xAP 1.3 writes "FF.1234:0003": groups of
// any even number of digits between '.' and ':'.
namespace xapnet {

// In either version's form, in any case.
[[nodiscard]] bool is_uid(std::string_view text) noexcept;

// In the form of 1.2, upper case. `endpoint` is "00" for the device itself, "01" to "FE" for an
// endpoint; none for any other text.
[[nodiscard]] std::optional<std::string> make_uid(std::uint16_t unit_id, std::string_view endpoint);

}  // namespace xapnet
