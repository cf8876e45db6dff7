#include "vbscript/objects/pcre/compiled_pattern.h"

#define PCRE2_CODE_UNIT_WIDTH 16
#include <pcre2.h>

#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

// A pattern that tries more ways than this to match at one place would try for hours.
constexpr std::uint32_t kMostSteps = 10'000'000;
constexpr std::uint32_t kMostMemory = 64 * 1024;  // KiB

// Machine code costs as much as looking at some thousand units by steps.
constexpr std::size_t kWorkForMachineCode = 4096;
constexpr std::size_t kWorkOfOneCall = 256;

// The two types of a unit have the same size and values.
[[nodiscard]] PCRE2_SPTR16 units_of(std::u16string_view text) noexcept {
    static constexpr char16_t kNothing = 0;
    return reinterpret_cast<PCRE2_SPTR16>(text.data() == nullptr ? &kNothing : text.data());
}

[[nodiscard]] bool is_too_much(int result) noexcept {
    return result == PCRE2_ERROR_MATCHLIMIT || result == PCRE2_ERROR_HEAPLIMIT ||
           result == PCRE2_ERROR_DEPTHLIMIT || result == PCRE2_ERROR_NOMEMORY ||
           result == PCRE2_ERROR_JIT_STACKLIMIT;
}

}  // namespace

void CompiledPattern::free_code(pcre2_real_code_16* code) {
    pcre2_code_free_16(code);
}

void CompiledPattern::free_data(pcre2_real_match_data_16* data) {
    pcre2_match_data_free_16(data);
}

void CompiledPattern::free_context(pcre2_real_match_context_16* context) {
    pcre2_match_context_free_16(context);
}

void CompiledPattern::free_stack(pcre2_real_jit_stack_16* stack) {
    pcre2_jit_stack_free_16(stack);
}

CompiledPattern::CompiledPattern(const TranslatedPattern& pattern, bool ignore_case)
    : groups_(pattern.groups) {
    std::uint32_t options = PCRE2_MATCH_UNSET_BACKREF | PCRE2_NEVER_UTF;
    if (ignore_case) {
        options |= PCRE2_CASELESS;
    }
    if (pattern.needs_unicode_case) {
        options |= PCRE2_UCP;
    }
    int error = 0;
    PCRE2_SIZE place = 0;
    code_.reset(pcre2_compile_16(units_of(pattern.text), pattern.text.size(), options, &error,
                                 &place, nullptr));
    if (!code_) {
        throw ScriptError(ErrorNumber::SyntaxErrorInRegularExpression);
    }
    data_.reset(pcre2_match_data_create_from_pattern_16(code_.get(), nullptr));
    limits_.reset(pcre2_match_context_create_16(nullptr));
    if (!data_ || !limits_) {
        throw ScriptError(ErrorNumber::OutOfMemory);
    }
    pcre2_set_match_limit_16(limits_.get(), kMostSteps);
    pcre2_set_heap_limit_16(limits_.get(), kMostMemory);
}

CompiledPattern::~CompiledPattern() = default;

std::span<const std::size_t> CompiledPattern::match(Context& context, std::u16string_view subject,
                                                    std::size_t start) {
    context.check_time();
    if (start > subject.size()) {
        return {};
    }
    count_use(subject.size() - start);
    const auto match_once = [&] {
        return pcre2_match_16(code_.get(), units_of(subject), subject.size(), start, 0, data_.get(),
                              limits_.get());
    };
    int result = match_once();
    if (result == PCRE2_ERROR_JIT_STACKLIMIT && !large_stack_) {
        use_large_stack();
        result = match_once();
    }
    if (result == PCRE2_ERROR_NOMATCH) {
        return {};
    }
    if (is_too_much(result)) {
        throw ScriptError(ErrorNumber::OutOfStackSpace);
    }
    if (result < 0) {
        throw ScriptError(ErrorNumber::InternalError);
    }
    static_assert(PCRE2_UNSET == kUnset);
    return {pcre2_get_ovector_pointer_16(data_.get()), (groups_ + 1) * 2};
}

// Machine code runs on a small stack of its own unless it is given a larger one.
void CompiledPattern::use_large_stack() {
    constexpr std::size_t kFirstSize = std::size_t{32} * 1024;
    constexpr std::size_t kMostSize = std::size_t{32} * 1024 * 1024;
    large_stack_.reset(pcre2_jit_stack_create_16(kFirstSize, kMostSize, nullptr));
    if (!large_stack_) {
        throw ScriptError(ErrorNumber::OutOfMemory);
    }
    pcre2_jit_stack_assign_16(limits_.get(), nullptr, large_stack_.get());
}

// Without machine code on this machine, matching goes on by steps.
void CompiledPattern::count_use(std::size_t size) {
    if (is_machine_code_) {
        return;
    }
    work_ += size + kWorkOfOneCall;
    if (work_ < kWorkForMachineCode) {
        return;
    }
    is_machine_code_ = true;
    pcre2_jit_compile_16(code_.get(), PCRE2_JIT_COMPLETE);
}

}  // namespace vbscript
