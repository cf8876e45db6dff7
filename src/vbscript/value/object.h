#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "vbscript/value/value.h"

namespace vbscript {

class Context;

// What a script does with a member: reads a property or calls a method, writes a property with a
// value, or writes it with an object reference.
enum class Access : std::uint8_t { Call, Let, Set };

// Number of a member within one class, the same for all objects of the class. 0 is the default
// member.
using MemberId = std::int32_t;
inline constexpr MemberId kDefaultMember = 0;

// Walks a collection for `For Each`. Owned by the loop; keeps what it walks alive.
class Enumerator {
  public:
    Enumerator() = default;
    Enumerator(const Enumerator&) = delete;
    Enumerator& operator=(const Enumerator&) = delete;
    virtual ~Enumerator() = default;

    // The next element; absent at the end.
    virtual std::optional<Value> next() = 0;
};

// An object as scripts see it: a script class's instance, one of the engine's own objects, or one
// that the program lends. Shared by the values that hold it.
class Object : public Counted {
  public:
    // What `TypeName` tells.
    [[nodiscard]] virtual std::u16string type_name() const = 0;

    // Identity of the class: two objects with the same one find the same members under the same
    // numbers, so that a call's look-up can be remembered. Null: never remember.
    [[nodiscard]] virtual const Counted* class_identity() const noexcept { return nullptr; }

    // The number of a member; `name` is as written in the script and compares without regard to
    // case. Absent when there is none.
    [[nodiscard]] virtual std::optional<MemberId> find_member(std::u16string_view name) const = 0;

    // Carries out one access. For Let and Set the last argument is the new value. Arguments that
    // are taken by reference hold their new value afterwards.
    // Throws: ScriptError 438 (no such access), 450 (wrong number of arguments), 13 and 6 from
    // conversions, 424 and what the member itself throws.
    virtual Value invoke(Context& context, MemberId member, Access access,
                         std::span<Value> arguments) = 0;

    // Whether there is a default member, so that the object can stand for a value.
    [[nodiscard]] virtual bool has_default_member() const { return false; }

    // None for an object that is no collection.
    [[nodiscard]] virtual std::unique_ptr<Enumerator> enumerate(Context& /*context*/) {
        return nullptr;
    }

    // By name. Throws: ScriptError 438 "Object doesn't support this property or method: 'name'".
    Value call(Context& context, std::u16string_view name, Access access,
               std::span<Value> arguments);
};

inline Value::Value(Ref<Object> object) noexcept : type_(Type::Object) {
    content_.shared = object.detach();
}

inline Object* Value::object() const noexcept {
    return static_cast<Object*>(content_.shared);
}

}  // namespace vbscript
