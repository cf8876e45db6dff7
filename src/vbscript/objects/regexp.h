#pragma once

#include <functional>
#include <memory>
#include <string>

#include "vbscript/objects/native_object.h"
#include "vbscript/objects/pcre/compiled_pattern.h"

namespace vbscript {

// `New RegExp`. A wrong pattern is an error when it is first used. Shared by the values that hold
// it.
class RegExp final : public NativeObject {
  public:
    Value pattern() const;
    Value let_pattern(Arguments& arguments);
    Value global() const;
    Value let_global(Arguments& arguments);
    Value ignore_case() const;
    Value let_ignore_case(Arguments& arguments);
    Value multi_line() const;
    Value let_multi_line(Arguments& arguments);
    Value test(Arguments& arguments);
    Value execute(Arguments& arguments);
    Value replace(Arguments& arguments);

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    using Places = std::span<const std::size_t>;

    [[nodiscard]] CompiledPattern& compiled();

    // Gives each match to `found`: all of them when global, else the first.
    void each_match(Context& context, std::u16string_view subject,
                    const std::function<void(Places)>& found);

    std::u16string pattern_;
    bool global_ = false;
    bool ignore_case_ = false;
    bool multi_line_ = false;
    std::unique_ptr<CompiledPattern> compiled_;  // absent after a change
};

}  // namespace vbscript
