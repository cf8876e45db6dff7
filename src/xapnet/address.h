#pragma once

#include <string_view>

// Addresses of xAP 1.2: "vendor.device.instance", of any depth, and behind a ':' the dotted path of
// an endpoint. What stands before and behind the ':' are an address's two sections.
namespace xapnet {

// Whether a target with wildcards reaches an address, without regard to case. '*' is one whole
// segment; '>' is the rest of its section, one segment or more, and ends the comparison there. A
// target without ':' reaches no endpoint, and one with ':' nothing but endpoints: "a.b.c:>" covers
// "a.b.c:x" and "a.b.c:x.y", but neither "a.b.c" nor "a.b.c:". The empty target covers nothing.
[[nodiscard]] bool covers(std::string_view target, std::string_view address) noexcept;

// Whether both are of one device: equal up to a ':', without regard to case.
[[nodiscard]] bool is_same_device(std::string_view left, std::string_view right) noexcept;

}  // namespace xapnet
