#include "vbscript/value/random.h"

#include <gtest/gtest.h>

namespace vbscript {
namespace {

TEST(Random, TheSequenceOfAnEngineThatWasNotSeeded) {
    RandomSequence sequence;
    EXPECT_FLOAT_EQ(sequence.next(), 0.7055475F);
    EXPECT_FLOAT_EQ(sequence.next(), 0.533424F);
    EXPECT_FLOAT_EQ(sequence.next(), 0.5795186F);
    EXPECT_FLOAT_EQ(sequence.last(), 0.5795186F);
}

TEST(Random, ANegativeNumberStartsItsOwnSequence) {
    RandomSequence one;
    RandomSequence other;
    static_cast<void>(other.next());
    EXPECT_FLOAT_EQ(one.restart(-1), 0.224007F);
    EXPECT_EQ(other.restart(-1), one.last());
    EXPECT_EQ(one.next(), other.next());
    EXPECT_NE(one.restart(-2), other.last());
}

// Seeding keeps the low byte of what was before, so that only both together repeat a sequence.
TEST(Random, RandomizeRepeatsOnlyAfterARestart) {
    const auto first_after = [](RandomSequence& sequence) {
        static_cast<void>(sequence.restart(-1));
        sequence.randomize(42);
        return sequence.next();
    };
    RandomSequence sequence;
    const float first = first_after(sequence);
    EXPECT_EQ(first_after(sequence), first);
    sequence.randomize(42);
    EXPECT_NE(sequence.next(), first);
}

TEST(Random, StaysBelowOne) {
    RandomSequence sequence;
    for (int count = 0; count < 100'000; ++count) {
        const float number = sequence.next();
        ASSERT_GE(number, 0.0F);
        ASSERT_LT(number, 1.0F);
    }
}

}  // namespace
}  // namespace vbscript
