#include "vbscript/objects/dictionary.h"

#include "vbscript/objects/object_test.h"

namespace vbscript {
namespace {

class DictionaryTest : public ObjectTest {
  protected:
    DictionaryTest() { object = make<Dictionary>(); }

    std::string add(const Value& key, const Value& item = integer(1)) {
        const std::string noted = result(u"Add", {key, item});
        return noted == "Empty" ? "" : noted;
    }

    [[nodiscard]] std::string keys() { return result(u"Keys"); }
};

TEST_F(DictionaryTest, KeysKeepTheirOrderThroughRemovals) {
    for (const char16_t* key : {u"b", u"a", u"c", u"d"})
        add(Value(key));
    EXPECT_EQ(result(u"Remove", {Value(u"a")}), "Empty");
    add(Value(u"a"), Value(u"new"));
    EXPECT_EQ(keys(), "[b, c, d, a]");
    EXPECT_EQ(result(u"Items"), "[1, 1, 1, new]");
    EXPECT_EQ(walked(context, object), keys());
    EXPECT_EQ(result(u"Count"), "4");
    EXPECT_EQ(result(u"RemoveAll"), "Empty");
    EXPECT_EQ(keys(), "[]");
}

TEST_F(DictionaryTest, ReadingAddsAKeyAndWritingReplaces) {
    EXPECT_EQ(result(u"Item", {Value(u"x")}), "Empty");
    EXPECT_EQ(result(u"Exists", {Value(u"x")}), "True");
    EXPECT_EQ(let(u"item", {Value(u"x"), integer(5)}), "");
    std::vector<Value> key{Value(u"x")};
    EXPECT_EQ(noted(object->invoke(context, kDefaultMember, Access::Call, key)), "5");
    EXPECT_EQ(result(u"Count"), "1");
}

TEST_F(DictionaryTest, ObjectsAreStoredBySetAndTheirValuesByLet) {
    const Value other(Ref<Object>(make<Dictionary>()));
    EXPECT_EQ(result(u"Item", {Value(u"x"), other}, Access::Set), "Empty");
    EXPECT_EQ(result(u"Item", {Value(u"x")}), "Dictionary");
    EXPECT_EQ(let(u"Item", {Value(u"x"), nothing()}), "error 91");
    EXPECT_EQ(let(u"Item", {Value(u"x"), other}), "error 450");  // its default member wants a key
}

TEST_F(DictionaryTest, KeysOfOneKindCompareAcrossSubTypes) {
    const Value same_object(object);
    const std::vector<std::vector<Value>> groups{
        {integer(1), long_number(1), Value(1.0), Value(1.0F), Value(Currency{10000}),
         Value(std::uint8_t{1}), Value(Date{1})},
        {Value(0.0), Value(-0.0), integer(0)},
        {Value(u"1")},
        {Value(u"")},
        {Value()},
        {kNull},
        {same_object},
        {nothing()},
    };
    for (const auto& group : groups) {
        EXPECT_EQ(add(group.front()), "");
        for (const Value& key : group) {
            EXPECT_EQ(add(key), "error 457");
            EXPECT_EQ(result(u"HashVal", {key}), result(u"HashVal", {group.front()}));
        }
    }
    EXPECT_EQ(add(Value(make<Array>())), "error 5");
    EXPECT_EQ(add(missing()), "error 449");
    EXPECT_EQ(result(u"RemoveAll"), "Empty");  // it holds itself
}

TEST_F(DictionaryTest, CompareModeIsChosenBeforeTheFirstKey) {
    add(Value(u"Key"));
    EXPECT_EQ(result(u"Exists", {Value(u"KEY")}), "False");
    EXPECT_EQ(let(u"CompareMode", {integer(1)}), "error 5");
    static_cast<void>(result(u"RemoveAll"));
    EXPECT_EQ(let(u"CompareMode", {integer(1)}), "");
    EXPECT_EQ(let(u"CompareMode", {integer(3)}), "error 5");
    EXPECT_EQ(result(u"CompareMode"), "1");
    add(Value(u"Stra\u00DFe \u00C4"));
    EXPECT_EQ(add(Value(u"sTRA\u00DFE \u00E4")), "error 457");
    EXPECT_EQ(keys(), "[Stra\u00DFe \u00C4]");
}

TEST_F(DictionaryTest, RenamingLeavesTheItemInItsPlace) {
    add(Value(u"a"), integer(1));
    add(Value(u"b"), integer(2));
    EXPECT_EQ(let(u"Key", {Value(u"a"), Value(u"z")}), "");
    EXPECT_EQ(keys(), "[z, b]");
    EXPECT_EQ(result(u"Item", {Value(u"z")}), "1");
    EXPECT_EQ(result(u"Exists", {Value(u"a")}), "False");
    EXPECT_EQ(let(u"Key", {Value(u"z"), Value(u"z")}), "");
    EXPECT_EQ(let(u"Key", {Value(u"z"), Value(u"b")}), "error 457");
    EXPECT_EQ(let(u"Key", {Value(u"none"), Value(u"c")}), "error 32811");
    EXPECT_EQ(result(u"Remove", {Value(u"none")}), "error 32811");
    EXPECT_EQ(result(u"Key", {Value(u"z")}), "error 438");
}

TEST_F(DictionaryTest, ManyKeysComeAndGo) {
    constexpr int kCount = 5000;
    for (int i = 0; i < kCount; ++i)
        add(long_number(i), long_number(-i));
    for (int i = 0; i < kCount; i += 3)
        static_cast<void>(result(u"Remove", {long_number(i)}));
    for (int i = 0; i < kCount; i += 3)
        add(Value(std::u16string(u"t") + char16_t(i)));
    for (int i = 0; i < kCount; ++i) {
        ASSERT_EQ(result(u"Exists", {Value(double(i))}), i % 3 == 0 ? "False" : "True") << i;
        if (i % 3 != 0) {
            ASSERT_EQ(result(u"Item", {long_number(i)}), std::to_string(-i));
        }
    }
    EXPECT_EQ(result(u"Count"), std::to_string(kCount));
}

TEST_F(DictionaryTest, ManyRemovalsLeaveTheOthersInOrder) {
    for (int i = 0; i < 1000; ++i) {
        add(integer(i));
    }
    for (int i = 0; i < 1000; ++i) {
        if (i % 250 != 0) {
            static_cast<void>(result(u"Remove", {integer(i)}));
        }
    }
    add(Value(u"new"));
    EXPECT_EQ(keys(), "[0, 250, 500, 750, new]");
    EXPECT_EQ(result(u"Exists", {integer(750)}) + result(u"Exists", {integer(251)}), "TrueFalse");
}

TEST_F(DictionaryTest, ALoopWalksTheKeysThatWereThereAtItsStart) {
    for (int i = 0; i < 3; ++i)
        add(integer(i));
    const auto walk = object->enumerate(context);
    int seen = 0;
    while (const auto key = walk->next()) {
        static_cast<void>(result(u"Remove", {*key}));
        add(Value(u"later" + std::u16string(1, char16_t(u'0' + seen))));
        ++seen;
    }
    EXPECT_EQ(seen, 3);
    EXPECT_EQ(keys(), "[later0, later1, later2]");
}

TEST_F(DictionaryTest, MembersAreFoundInAnyCaseAndCheckTheirArguments) {
    EXPECT_EQ(object->find_member(u"EXISTS"), object->find_member(u"exists"));
    EXPECT_EQ(object->find_member(u"Exist"), std::nullopt);
    EXPECT_EQ(object->class_identity(), make<Dictionary>()->class_identity());
    EXPECT_EQ(result(u"Exists"), "error 450");
    EXPECT_EQ(result(u"Nothing"), "error 438");
    EXPECT_EQ(let(u"Count", {integer(1)}), "error 438");
    EXPECT_EQ(result(u"Item", {}, Access::Let), "error 450");
}

}  // namespace
}  // namespace vbscript
