#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "vbscript/machine/code.h"

namespace vbscript {

// A place in code that is being built, as a field of an instruction.
struct Place {
    std::int32_t field = 0;
    bool is_temporary = false;
    bool is_constant = false;

    friend bool operator==(const Place&, const Place&) = default;
};

// Where jumps lead to; known once it is bound. A name for what the builder knows.
class Label {
  private:
    friend class CodeBuilder;

    std::uint32_t number_ = 0;
};

// Puts together one `Code`. Registers and constants have provisional places until `finish` knows
// how many there are. Temporaries are a stack: `temporaries` tells its height, `release_to` sets it
// back.
class CodeBuilder {
  public:
    enum class Kind : std::uint8_t { Procedure, Outside };

    CodeBuilder(ValueArena& arena, Kind kind);

    std::uint32_t emit(Op op, std::int32_t a = 0, std::int32_t b = 0, std::int32_t c = 0,
                       int extra = 0);

    [[nodiscard]] Label new_label();

    // A jump in the field c.
    void jump(Op op, Label target, std::int32_t a = 0, std::int32_t b = 0, int extra = 0);

    void bind(Label label);

    // Requires: bound.
    [[nodiscard]] std::uint32_t place_of(Label label) const noexcept {
        return labels_[label.number_].target;
    }

    [[nodiscard]] std::uint32_t size() const noexcept {
        return static_cast<std::uint32_t>(code_->instructions.size());
    }

    // A statement begins here.
    void begin_statement(ast::Position position);

    // The same; an error in it goes on at an instruction that exists already.
    void begin_statement(ast::Position position, std::uint32_t resume);

    // What errors of the next instruction are about.
    void about(const ast::Expression& subject);
    void about(std::u16string_view name);

    [[nodiscard]] std::uint32_t new_local() noexcept { return locals_++; }

    // Several neighbouring ones; gives the first.
    [[nodiscard]] std::uint32_t new_locals(std::uint32_t count) noexcept {
        return std::exchange(locals_, locals_ + count);
    }

    // A register for a reference, or for what is found in its stead; never used for anything else,
    // since a plain write would go through a reference that was left in it.
    [[nodiscard]] Place new_reference();

    [[nodiscard]] std::uint32_t references() const noexcept { return references_in_use_; }

    // One that is in use, from 0.
    [[nodiscard]] Place reference(std::uint32_t number) const noexcept {
        return local(references_[number]);
    }

    void release_references_to(std::uint32_t height) noexcept { references_in_use_ = height; }

    [[nodiscard]] static Place local(std::uint32_t number) noexcept;
    [[nodiscard]] Place slot(std::uint32_t index) const noexcept;
    [[nodiscard]] Place constant(const Value& value);

    // The next free temporary.
    Place new_temporary();

    // Several of them, neighbours of each other: arguments of a call, or what is read together.
    Place new_window(std::uint32_t count);

    // The one at a height of the stack of temporaries.
    [[nodiscard]] static Place temporary(std::uint32_t number) noexcept;

    [[nodiscard]] std::uint32_t temporaries() const noexcept { return temporaries_; }

    void release_to(std::uint32_t height) noexcept { temporaries_ = height; }

    // `window` is the first of several; gives another one of them.
    [[nodiscard]] static Place neighbour(Place window, std::uint32_t distance) noexcept;

    // The lists of the code.
    [[nodiscard]] Code& code() noexcept { return *code_; }

    [[nodiscard]] Ref<Code> finish();

  private:
    static constexpr std::uint32_t kUnbound = ~std::uint32_t{0};

    struct LabelState {
        std::uint32_t target = kUnbound;
        std::vector<std::uint32_t> waiting{};
    };

    void take(std::uint32_t count) noexcept;
    [[nodiscard]] std::int32_t final_place(std::int32_t field) const noexcept;

    Kind kind_;
    Ref<Code> code_;
    std::vector<LabelState> labels_;
    std::vector<Value> constants_;
    std::map<std::pair<Type, std::uint64_t>, std::uint32_t> numbers_;
    std::map<std::u16string, std::uint32_t, std::less<>> texts_;
    std::uint32_t locals_ = 0;
    std::vector<std::uint32_t> references_;  // locals
    std::uint32_t references_in_use_ = 0;
    std::uint32_t temporaries_ = 0;
    std::uint32_t most_temporaries_ = 0;
};

}  // namespace vbscript
