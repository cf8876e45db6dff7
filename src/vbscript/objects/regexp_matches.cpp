#include "vbscript/objects/regexp_matches.h"

#include <array>

#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

constexpr auto kCollectionMembers = std::to_array<NativeMember>({
    native_property<&MatchCollection::item>(u"Item", 1),
    native_property<&MatchCollection::count>(u"Count"),
});

constexpr auto kMatchMembers = std::to_array<NativeMember>({
    native_property<&Match::value>(u"Value"),
    native_property<&Match::first_index>(u"FirstIndex"),
    native_property<&Match::length>(u"Length"),
    native_property<&Match::sub_matches>(u"SubMatches"),
});

constexpr auto kSubMatchesMembers = std::to_array<NativeMember>({
    native_property<&SubMatches::item>(u"Item", 1),
    native_property<&SubMatches::count>(u"Count"),
});

[[nodiscard]] std::size_t checked_index(Arguments& arguments, std::size_t size) {
    const std::int32_t index = arguments.number(0);
    if (index < 0 || static_cast<std::size_t>(index) >= size) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    return static_cast<std::size_t>(index);
}

[[nodiscard]] Value long_of(std::size_t number) {
    return Value(static_cast<std::int32_t>(number));
}

[[nodiscard]] Value match_of(const Ref<MatchList>& list, std::size_t index) {
    return Value(Ref<Object>(make<Match>(list, index)));
}

// Makes a match when the loop gets to it.
class MatchEnumerator final : public Enumerator {
  public:
    explicit MatchEnumerator(Ref<MatchList> list) noexcept : list_(std::move(list)) {}

    std::optional<Value> next() override {
        if (index_ == list_->size()) {
            return std::nullopt;
        }
        return match_of(list_, index_++);
    }

  private:
    Ref<MatchList> list_;
    std::size_t index_ = 0;
};

}  // namespace

Value MatchList::text_of(std::size_t match, std::size_t group) const {
    const std::size_t begin = places_[match * width_ + group * 2];
    const std::size_t end = places_[match * width_ + group * 2 + 1];
    const std::u16string_view subject = subject_->units();
    if (begin > subject.size() || end < begin) {
        return {};
    }
    return Value(subject.substr(begin, end - begin));
}

const NativeClass& MatchCollection::native_class() const noexcept {
    static const NativeClass kClass(u"IMatchCollection2", kCollectionMembers, u"Item");
    return kClass;
}

std::unique_ptr<Enumerator> MatchCollection::enumerate(Context& /*context*/) {
    return std::make_unique<MatchEnumerator>(list_);
}

Value MatchCollection::item(Arguments& arguments) {
    return match_of(list_, checked_index(arguments, list_->size()));
}

Value MatchCollection::count() const {
    return long_of(list_->size());
}

const NativeClass& Match::native_class() const noexcept {
    static const NativeClass kClass(u"IMatch2", kMatchMembers, u"Value");
    return kClass;
}

Value Match::value() const {
    return list_->text_of(index_, 0);
}

Value Match::first_index() const {
    return long_of(list_->begin_of(index_));
}

Value Match::length() const {
    return long_of(list_->size_of(index_));
}

Value Match::sub_matches() const {
    return Value(Ref<Object>(make<SubMatches>(list_, index_)));
}

const NativeClass& SubMatches::native_class() const noexcept {
    static const NativeClass kClass(u"ISubMatches", kSubMatchesMembers, u"Item");
    return kClass;
}

std::unique_ptr<Enumerator> SubMatches::enumerate(Context& /*context*/) {
    std::vector<Value> texts;
    for (std::size_t group = 1; group <= list_->groups(); ++group) {
        texts.push_back(list_->text_of(match_, group));
    }
    return std::make_unique<ListEnumerator>(std::move(texts));
}

Value SubMatches::item(Arguments& arguments) {
    return list_->text_of(match_, checked_index(arguments, list_->groups()) + 1);
}

Value SubMatches::count() const {
    return long_of(list_->groups());
}

}  // namespace vbscript
