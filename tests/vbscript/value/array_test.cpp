#include "vbscript/value/array.h"

#include <gtest/gtest.h>

#include "vbscript/support/fake_context.h"
#include "vbscript/support/typed.h"

namespace vbscript {
namespace {

using Bounds = std::vector<std::int32_t>;

template <typename Body>
std::int32_t error_of(Body body) {
    try {
        body();
    } catch (const ScriptError& error) {
        return error.number;
    }
    return 0;
}

Ref<Array> counted(const Bounds& bounds, bool fixed = false) {
    auto array = make<Array>(std::span<const std::int32_t>(bounds), fixed);
    int count = 0;
    for (Value& element : array->elements()) {
        element = integer(count++);
    }
    return array;
}

std::string content(const Ref<Array>& array) {
    FakeContext context;
    return noted(context, Value(array));
}

TEST(Array, FirstDimensionRunsFastest) {
    const auto array = counted({1, 2});
    EXPECT_EQ(array->at(Bounds{1, 0}).number(), 1);
    EXPECT_EQ(array->at(Bounds{0, 1}).number(), 2);
    EXPECT_EQ(array->at(Bounds{1, 2}).number(), 5);
    EXPECT_EQ(array->upper_bound(2), 2);
}

TEST(Array, IndexesOutOfBoundsAreError9) {
    const auto array = counted({1, 2});
    const std::vector<Bounds> wrong{{2, 0}, {0, 3}, {-1, 0}, {0}, {0, 0, 0}, {}};
    for (const Bounds& indexes : wrong) {
        EXPECT_EQ(error_of([&] { static_cast<void>(array->at(indexes)); }), 9);
    }
    EXPECT_EQ(error_of([&] { static_cast<void>(array->upper_bound(3)); }), 9);
    EXPECT_EQ(error_of([&] { static_cast<void>(array->upper_bound(0)); }), 9);
    EXPECT_EQ(error_of([] { static_cast<void>(make<Array>()->at(Bounds{0})); }), 9);
    EXPECT_EQ(error_of([] { static_cast<void>(make<Array>()->upper_bound(1)); }), 9);
}

TEST(Array, BoundsAreLimited) {
    EXPECT_EQ(error_of([] { counted({-2}); }), 9);
    EXPECT_EQ(error_of([] { counted(Bounds(61, 0)); }), 9);
    EXPECT_EQ(error_of([] { counted({2147483647}); }), 7);
    EXPECT_EQ(error_of([] { counted({65535, 65535, 65535, 65535}); }), 7);
    EXPECT_EQ(counted({-1})->elements().size(), 0U);
}

TEST(Array, RedimPreserveChangesTheLastBoundAlone) {
    const auto array = counted({1, 1});
    array->redim(Bounds{1, 2}, true);
    EXPECT_EQ(content(array), "[0, 1, 2, 3, Empty, Empty]");
    array->redim(Bounds{1, 0}, true);
    EXPECT_EQ(content(array), "[0, 1]");
    EXPECT_EQ(error_of([&] { array->redim(Bounds{2, 0}, true); }), 9);
    EXPECT_EQ(error_of([&] { array->redim(Bounds{1}, true); }), 9);
    EXPECT_EQ(content(array), "[0, 1]");
    array->redim(Bounds{1}, false);
    EXPECT_EQ(content(array), "[Empty, Empty]");
    const auto fresh = make<Array>();
    fresh->redim(Bounds{0}, true);
    EXPECT_EQ(content(fresh), "[Empty]");
}

TEST(Array, FixedAndLockedArraysKeepTheirBounds) {
    const auto fixed = counted({1}, true);
    EXPECT_EQ(error_of([&] { fixed->redim(Bounds{5}, false); }), 10);
    fixed->erase();
    EXPECT_EQ(content(fixed), "[Empty, Empty]");

    const auto dynamic = counted({1});
    dynamic->lock();
    EXPECT_EQ(error_of([&] { dynamic->redim(Bounds{5}, true); }), 10);
    EXPECT_EQ(error_of([&] { dynamic->erase(); }), 10);
    dynamic->unlock();
    dynamic->erase();
    EXPECT_EQ(dynamic->dimensions(), 0U);
}

TEST(Array, AWriterGetsAnArrayOfItsOwn) {
    Value one(counted({1}));
    Value other = one;
    *writable(other).find(0) = text(u"new");
    FakeContext context;
    EXPECT_EQ(noted(context, one), "[0, 1]");
    EXPECT_EQ(noted(context, other), "[new, 1]");
    EXPECT_EQ(&writable(other), &other.array());
}

// What looks at an array while its elements end.
class Witness final : public Object {
  public:
    Witness(Array& array, std::size_t& seen) : array_(array), seen_(seen) {}

    Witness(const Witness&) = delete;
    Witness& operator=(const Witness&) = delete;

    ~Witness() override { seen_ = array_.elements().size(); }

    [[nodiscard]] std::u16string type_name() const override { return u"Witness"; }

    [[nodiscard]] std::optional<MemberId> find_member(std::u16string_view /*name*/) const override {
        return std::nullopt;
    }

    Value invoke(Context& /*context*/, MemberId /*member*/, Access /*access*/,
                 std::span<Value> /*arguments*/) override {
        return {};
    }

  private:
    Array& array_;
    std::size_t& seen_;
};

TEST(Array, IsWholeWhenItsLastElementsEnd) {
    std::size_t seen = 99;
    const auto array = counted({3});
    array->elements()[3] = Value(Ref<Object>(make<Witness>(*array, seen)));
    array->redim(Bounds{1}, true);
    EXPECT_EQ(seen, 2U);
    array->elements()[1] = Value(Ref<Object>(make<Witness>(*array, seen)));
    array->erase();
    EXPECT_EQ(seen, 0U);
}

}  // namespace
}  // namespace vbscript
