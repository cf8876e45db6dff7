#pragma once

#include <cstdint>
#include <string>

#include "vbscript/value/object.h"
#include "vbscript/value/script_error.h"

namespace vbscript {

// `Err`: the last run-time error of the scripts of one engine.
class ErrorObject final : public Object {
  public:
    [[nodiscard]] const ScriptError& error() const noexcept { return error_; }

    void set(const ScriptError& error) { error_ = error; }

    void clear() { error_ = ScriptError(0, {}, {}); }

    [[nodiscard]] std::u16string type_name() const override { return u"Object"; }

    [[nodiscard]] const Counted* class_identity() const noexcept override { return this; }

    [[nodiscard]] std::optional<MemberId> find_member(std::u16string_view name) const override;

    Value invoke(Context& context, MemberId member, Access access,
                 std::span<Value> arguments) override;

    [[nodiscard]] bool has_default_member() const override { return true; }

  private:
    [[nodiscard]] Value read(MemberId member) const;
    void write(Context& context, MemberId member, const Value& value);
    [[noreturn]] void raise(Context& context, std::span<const Value> arguments);

    ScriptError error_{0, {}, {}};
};

}  // namespace vbscript
