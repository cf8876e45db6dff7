#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "automation/value.h"

namespace automation {

// What a caller does with a member: reads a property or calls a method, writes a property with a
// value, or writes it with an object reference.
enum class Access : std::uint8_t { Call, Let, Set };

// Number of a member within one class. 0 is the default member.
using MemberId = std::int32_t;
inline constexpr MemberId kDefaultMember = 0;

// A late-bound object: scripts, pages, the control socket and other programs see members by
// name. Shared by the values that hold it. Members may pump; a caller finds its own things again
// after a call.
class Object : public std::enable_shared_from_this<Object> {
  public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

    // The class name that `TypeName` reports.
    [[nodiscard]] virtual std::string type_name() const = 0;

    // The number of a member, found without regard to case; absent when there is none. The number
    // stays the same for all objects of one class.
    [[nodiscard]] virtual std::optional<MemberId> find_member(std::string_view name) const = 0;

    // Carries out one access. For Let and Set the last argument is the new value. Arguments that
    // the member takes by reference hold their new value afterwards.
    // Throws: RunTimeError 438 (no such access), 450 (wrong number of arguments), 13 and 6 from
    // conversions, and what the member itself throws.
    virtual Value invoke(MemberId member, Access access, std::span<Value> arguments) = 0;

    // By name. Throws: RunTimeError 438 "Object doesn't support this property or method: 'name'".
    Value call(std::string_view name, std::span<Value> arguments);

    Value call(std::string_view name) { return call(name, {}); }

    void let(std::string_view name, Value value);
};

}  // namespace automation
