#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

#include "vbscript/objects/pattern_syntax.h"
#include "vbscript/value/context.h"

struct pcre2_real_code_16;
struct pcre2_real_match_data_16;
struct pcre2_real_match_context_16;
struct pcre2_real_jit_stack_16;

namespace vbscript {

// A pattern that is ready to be matched; it turns itself into machine code when it is used often.
// Owned by the object whose pattern it is.
class CompiledPattern {
  public:
    // Throws: ScriptError 5017 for what the library cannot compile, 7 without memory.
    CompiledPattern(const TranslatedPattern& pattern, bool ignore_case);

    CompiledPattern(const CompiledPattern&) = delete;
    CompiledPattern& operator=(const CompiledPattern&) = delete;
    ~CompiledPattern();

    [[nodiscard]] std::size_t groups() const noexcept { return groups_; }

    // The first match at `start` or behind. Gives begin and end of the match and then of each
    // group, `kUnset` for a group that took no part; empty without a match. Valid until the next
    // call.
    // Throws: ScriptError 28 for a match that takes too many steps, and what `check_time` throws.
    [[nodiscard]] std::span<const std::size_t> match(Context& context, std::u16string_view subject,
                                                     std::size_t start);

    static constexpr std::size_t kUnset = static_cast<std::size_t>(-1);

  private:
    template <typename Type, void (*free)(Type*)>
    struct Free {
        void operator()(Type* object) const noexcept { free(object); }
    };

    static void free_code(pcre2_real_code_16* code);
    static void free_data(pcre2_real_match_data_16* data);
    static void free_context(pcre2_real_match_context_16* context);
    static void free_stack(pcre2_real_jit_stack_16* stack);

    void count_use(std::size_t size);
    void use_large_stack();

    std::unique_ptr<pcre2_real_code_16, Free<pcre2_real_code_16, free_code>> code_;
    std::unique_ptr<pcre2_real_match_data_16, Free<pcre2_real_match_data_16, free_data>> data_;
    std::unique_ptr<pcre2_real_match_context_16, Free<pcre2_real_match_context_16, free_context>>
        limits_;
    std::unique_ptr<pcre2_real_jit_stack_16, Free<pcre2_real_jit_stack_16, free_stack>>
        large_stack_;  // absent until a match needs it
    std::size_t groups_ = 0;
    std::size_t work_ = 0;  // units looked at so far, roughly
    bool is_machine_code_ = false;
};

}  // namespace vbscript
