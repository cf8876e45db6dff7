#include <gtest/gtest.h>

#include "vbscript/support/fake_context.h"
#include "vbscript/support/typed.h"
#include "vbscript/value/byte_text.h"
#include "vbscript/value/operators.h"

namespace vbscript {
namespace {

TEST(Text, BytesAndUnitsMeet) {
    const auto odd = text_of_bytes("abc");
    EXPECT_EQ(odd->units(), (std::u16string{0x6261, 0x0063}));
    EXPECT_EQ(odd->byte_size(), 3U);
    EXPECT_EQ(bytes_of(*odd), "abc");
    EXPECT_EQ(text_of_bytes("")->byte_size(), 0U);
    EXPECT_EQ(bytes_of(*make<String>(std::u16string_view(u"\u1234"))), "\x34\x12");
}

TEST(Text, BytesJoinWithoutAGap) {
    FakeContext context;
    const Value joined =
        concatenate(context, Value(text_of_bytes("abc")),
                    concatenate(context, text(u"\u0078"), Value(text_of_bytes("d"))));
    EXPECT_EQ(bytes_of(joined.text()), std::string("abcx\0d", 6));
    EXPECT_EQ(joined.text().byte_size(), 6U);
}

TEST(Text, JoiningWithNothingSharesTheText) {
    FakeContext context;
    const Value value = text(u"abc");
    EXPECT_EQ(&concatenate(context, value, text(u"")).text(), &value.text());
    EXPECT_EQ(&concatenate(context, text(u""), value).text(), &value.text());
}

}  // namespace
}  // namespace vbscript
