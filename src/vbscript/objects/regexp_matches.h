#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "vbscript/objects/native_object.h"
#include "vbscript/value/string.h"

namespace vbscript {

// What one `Execute` found: the text, and where each match and its groups lie in it. Shared by the
// objects that show it.
class MatchList final : public Counted {
  public:
    MatchList(Ref<String> subject, std::size_t groups) noexcept
        : subject_(std::move(subject)), width_((groups + 1) * 2) {}

    // Begin and end of the match and then of each group, as the pattern gives them.
    void add(std::span<const std::size_t> places) {
        places_.insert(places_.end(), places.begin(), places.end());
    }

    [[nodiscard]] std::size_t size() const noexcept { return places_.size() / width_; }

    [[nodiscard]] std::size_t groups() const noexcept { return width_ / 2 - 1; }

    [[nodiscard]] std::size_t begin_of(std::size_t match) const noexcept {
        return places_[match * width_];
    }

    [[nodiscard]] std::size_t size_of(std::size_t match) const noexcept {
        return places_[match * width_ + 1] - places_[match * width_];
    }

    // Group 0 is the match; Empty for a group that took no part in it.
    [[nodiscard]] Value text_of(std::size_t match, std::size_t group) const;

  private:
    Ref<String> subject_;
    std::size_t width_;
    std::vector<std::size_t> places_;
};

// The matches of one `Execute`, counted from 0.
class MatchCollection final : public NativeObject {
  public:
    explicit MatchCollection(Ref<MatchList> list) noexcept : list_(std::move(list)) {}

    [[nodiscard]] std::unique_ptr<Enumerator> enumerate(Context& context) override;

    Value item(Arguments& arguments);
    Value count() const;

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    Ref<MatchList> list_;
};

// One match.
class Match final : public NativeObject {
  public:
    Match(Ref<MatchList> list, std::size_t index) noexcept
        : list_(std::move(list)), index_(index) {}

    Value value() const;
    Value first_index() const;
    Value length() const;
    Value sub_matches() const;

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    Ref<MatchList> list_;
    std::size_t index_;
};

// The texts of one match's groups, counted from 0.
class SubMatches final : public NativeObject {
  public:
    SubMatches(Ref<MatchList> list, std::size_t match) noexcept
        : list_(std::move(list)), match_(match) {}

    [[nodiscard]] std::unique_ptr<Enumerator> enumerate(Context& context) override;

    Value item(Arguments& arguments);
    Value count() const;

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    Ref<MatchList> list_;
    std::size_t match_;
};

}  // namespace vbscript
