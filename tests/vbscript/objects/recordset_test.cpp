#include "vbscript/objects/recordset/recordset.h"

#include "vbscript/objects/object_test.h"

namespace vbscript {
namespace {

constexpr int kVarChar = 200;
constexpr int kInteger = 3;
constexpr int kDate = 7;
constexpr int kNullable = 0x20;

class RecordsetTest : public ObjectTest {
  protected:
    RecordsetTest() { object = make<Recordset>(); }

    [[nodiscard]] Ref<Object> fields() { return object_of(call(u"Fields")); }

    std::string append(const char16_t* name, int type, int size = 0, int attributes = 0) {
        return noted_result(context, [&] {
            return vbscript::call(context, fields(), u"Append",
                                  {Value(name), integer(type), integer(size), integer(attributes)});
        });
    }

    // Columns name, age, born; the records in this order.
    void open_people() {
        append(u"name", kVarChar, 10);
        append(u"age", kInteger, 0, kNullable);
        append(u"born", kDate);
        static_cast<void>(call(u"Open"));
        add(u"Bo", 30, 1996);
        add(u"anna", 25, 2001);
        add(u"Cleo", 25, 2001);
        add(u"O'Hara", 61, 1965);
    }

    void add(const char16_t* name, int age, int year) {
        const std::vector<Value> names{Value(u"name"), Value(u"age"), Value(u"born")};
        const std::vector<Value> values{Value(name), integer(age), moment(year, 5, 1)};
        static_cast<void>(call(u"AddNew", {Value(make<Array>(names)), Value(make<Array>(values))}));
    }

    // What `rs("name")` reads.
    [[nodiscard]] std::string field(const char16_t* name) {
        return noted_result(context, [&] {
            std::vector<Value> index{Value(name)};
            return context.plain(object->invoke(context, kDefaultMember, Access::Call, index));
        });
    }

    // `rs("name") = value`.
    std::string let_field(const char16_t* name, const Value& value) {
        return noted_result(context, [&] {
            std::vector<Value> arguments{Value(name), value};
            return object->invoke(context, kDefaultMember, Access::Let, arguments);
        });
    }

    // The names from the current record to the end.
    [[nodiscard]] std::string names_ahead() {
        std::string names;
        while (result(u"EOF") == "False") {
            names += (names.empty() ? "" : " ") + field(u"name");
            static_cast<void>(call(u"MoveNext"));
        }
        return names;
    }
};

TEST_F(RecordsetTest, OpensOnceItHasFields) {
    EXPECT_EQ(result(u"RecordCount"), "error 3704");
    EXPECT_EQ(result(u"MoveFirst"), "error 3704");
    EXPECT_EQ(result(u"Close"), "error 3704");
    EXPECT_EQ(result(u"Open"), "error 3709");
    EXPECT_EQ(append(u"name", kVarChar, 10), "Empty");
    EXPECT_EQ(append(u"NAME", kVarChar, 10), "error 3367");
    EXPECT_EQ(append(u"odd", 999), "error 3001");
    EXPECT_EQ(result(u"Open", {Value(u"SELECT 1")}), "error 3709");
    EXPECT_EQ(let(u"CursorLocation", {integer(3)}), "");
    EXPECT_EQ(result(u"State"), "0");
    EXPECT_EQ(result(u"Open"), "Empty");
    EXPECT_EQ(result(u"State"), "1");
    EXPECT_EQ(result(u"Open"), "error 3705");
    EXPECT_EQ(append(u"more", kInteger), "error 3705");
    EXPECT_EQ(let(u"CursorLocation", {integer(2)}), "error 3705");
    EXPECT_EQ(result(u"BOF") + result(u"EOF"), "TrueTrue");
    EXPECT_EQ(result(u"MoveFirst"), "error 3021");
    EXPECT_EQ(result(u"MoveNext"), "error 3021");
    EXPECT_EQ(field(u"name"), "error 3021");
    EXPECT_EQ(result(u"Close"), "Empty");
    EXPECT_EQ(noted(vbscript::call(context, fields(), u"Count")), "0");
}

TEST_F(RecordsetTest, WalksFromEndToEnd) {
    open_people();
    EXPECT_EQ(result(u"RecordCount"), "4");
    EXPECT_EQ(result(u"MoveFirst"), "Empty");
    EXPECT_EQ(result(u"AbsolutePosition"), "1");
    EXPECT_EQ(names_ahead(), "Bo anna Cleo O'Hara");
    EXPECT_EQ(result(u"AbsolutePosition"), "-3");
    EXPECT_EQ(field(u"name"), "error 3021");
    EXPECT_EQ(result(u"MoveNext"), "error 3021");
    EXPECT_EQ(result(u"MovePrevious"), "Empty");
    EXPECT_EQ(field(u"name"), "O'Hara");
    EXPECT_EQ(result(u"Move", {integer(-10)}), "Empty");
    EXPECT_EQ(result(u"BOF") + result(u"EOF"), "TrueFalse");
    EXPECT_EQ(result(u"AbsolutePosition"), "-2");
    EXPECT_EQ(result(u"MovePrevious"), "error 3021");
    EXPECT_EQ(result(u"Move", {integer(2)}), "Empty");
    EXPECT_EQ(field(u"name"), "anna");
    EXPECT_EQ(result(u"Move", {integer(-1), integer(2)}), "Empty");
    EXPECT_EQ(field(u"name"), "Cleo");
    EXPECT_EQ(let(u"AbsolutePosition", {integer(4)}), "");
    EXPECT_EQ(field(u"name"), "O'Hara");
    EXPECT_EQ(let(u"AbsolutePosition", {integer(5)}), "error 3001");
}

TEST_F(RecordsetTest, FieldsConvertToTheirTypes) {
    open_people();
    EXPECT_EQ(let_field(u"AGE", Value(u"77")), "Empty");
    EXPECT_EQ(field(u"age"), "77");
    EXPECT_EQ(let_field(u"age", kNull), "Empty");
    EXPECT_EQ(field(u"age"), "Null");
    EXPECT_EQ(let_field(u"age", Value(u"old")), "error 3421");
    EXPECT_EQ(let_field(u"age", Value(1e12)), "error 3421");
    EXPECT_EQ(let_field(u"name", Value(u"longer than ten")), "error -2147217887");
    EXPECT_EQ(let_field(u"none", integer(1)), "error 3265");
    EXPECT_EQ(result(u"Fields", {integer(9)}), "error 3265");
    const Ref<Object> born = object_of(call(u"Fields", {integer(2)}));
    EXPECT_EQ(noted(vbscript::call(context, born, u"Name")), "born");
    EXPECT_EQ(noted(vbscript::call(context, born, u"Type")), "7");
    EXPECT_EQ(noted(context.plain(Value(born))), "5/1/1965");
    EXPECT_EQ(walked(context, fields()), "[Field, Field, Field]");
}

TEST_F(RecordsetTest, ChangesCanBeTakenBack) {
    open_people();
    static_cast<void>(call(u"MoveFirst"));
    EXPECT_EQ(let_field(u"age", integer(31)), "Empty");
    EXPECT_EQ(result(u"EditMode"), "1");
    EXPECT_EQ(noted(vbscript::call(context, object_of(call(u"Fields", {Value(u"age")})),
                                   u"OriginalValue")),
              "30");
    EXPECT_EQ(result(u"CancelUpdate"), "Empty");
    EXPECT_EQ(field(u"age"), "30");
    EXPECT_EQ(result(u"Update", {Value(u"age"), integer(32)}), "Empty");
    EXPECT_EQ(result(u"CancelUpdate"), "Empty");
    EXPECT_EQ(field(u"age"), "32");
    EXPECT_EQ(result(u"AddNew"), "Empty");
    EXPECT_EQ(result(u"EditMode"), "2");
    EXPECT_EQ(field(u"age") + field(u"born"), "NullEmpty");
    EXPECT_EQ(result(u"CancelUpdate"), "Empty");
    EXPECT_EQ(result(u"RecordCount"), "4");
    EXPECT_EQ(field(u"name"), "Bo");
    EXPECT_EQ(result(u"AddNew"), "Empty");
    EXPECT_EQ(let_field(u"name", Value(u"new")), "Empty");
    EXPECT_EQ(result(u"MoveFirst"), "Empty");  // keeps what is pending
    EXPECT_EQ(names_ahead(), "Bo anna Cleo O'Hara new");
}

TEST_F(RecordsetTest, ADeletedRecordStaysUntilTheNextMove) {
    open_people();
    static_cast<void>(call(u"MoveFirst"));
    EXPECT_EQ(result(u"Delete"), "Empty");
    EXPECT_EQ(result(u"RecordCount"), "3");
    EXPECT_EQ(result(u"BOF") + result(u"EOF"), "FalseFalse");
    EXPECT_EQ(field(u"name"), "error 3021");
    EXPECT_EQ(result(u"Delete"), "error 3021");
    EXPECT_EQ(result(u"MoveNext"), "Empty");
    EXPECT_EQ(field(u"name"), "anna");
    while (result(u"EOF") == "False") {
        static_cast<void>(call(u"Delete"));
        static_cast<void>(call(u"MoveNext"));
    }
    EXPECT_EQ(result(u"BOF") + result(u"RecordCount"), "True0");
    add(u"again", 1, 2000);
    EXPECT_EQ(field(u"name"), "again");
}

TEST_F(RecordsetTest, SortsByAnyColumnsAndBack) {
    open_people();
    const std::vector<std::pair<std::u16string_view, std::string>> cases{
        {u"name", "anna Bo Cleo O'Hara"},
        {u"age, [name] DESC", "Cleo anna Bo O'Hara"},
        {u"born desc , name asc", "anna Cleo Bo O'Hara"},
        {u"", "Bo anna Cleo O'Hara"},
    };
    for (const auto& [order, expected] : cases) {
        EXPECT_EQ(let(u"Sort", {Value(order)}), "");
        EXPECT_EQ(names_ahead(), expected) << to_utf8(order);
    }
    EXPECT_EQ(let(u"Sort", {Value(u"none")}), "error 3265");
    EXPECT_EQ(let(u"Sort", {Value(u"[name] sideways")}), "error 3001");
    EXPECT_EQ(let(u"Sort", {Value(u"name")}), "");
    add(u"Bea", 1, 2000);  // goes where it belongs
    EXPECT_EQ(result(u"AbsolutePosition"), "2");
    EXPECT_EQ(result(u"Sort"), "name");
}

TEST_F(RecordsetTest, FiltersByComparisons) {
    open_people();
    static_cast<void>(call(u"MoveFirst"));
    static_cast<void>(let_field(u"age", kNull));
    const std::vector<std::pair<std::u16string_view, std::string>> cases{
        {u"age = 25", "anna Cleo"},
        {u"age<>25", "O'Hara"},
        {u"age = Null", "Bo"},
        {u"age <> null", "anna Cleo O'Hara"},
        {u"name = 'BO'", "Bo"},
        {u"name = 'O''Hara'", "O'Hara"},
        {u"name LIKE 'a*'", "anna"},
        {u"[name] like '%o%'", "Bo Cleo O'Hara"},
        {u"name > 'bo' AND age < 60", "Cleo"},
        {u"name = 'Bo' OR age = 25 AND name = 'anna'", "Bo anna"},
        {u"(name = 'Bo' OR age = 25) AND born >= #1/1/2000#", "anna Cleo"},
        {u"born < '1/1/1990'", "O'Hara"},
    };
    for (const auto& [criteria, expected] : cases) {
        EXPECT_EQ(let(u"Filter", {Value(criteria)}), "") << to_utf8(criteria);
        EXPECT_EQ(names_ahead(), expected) << to_utf8(criteria);
    }
    EXPECT_EQ(result(u"RecordCount"), "1");
    for (const auto* wrong : {u"name", u"name =", u"name = 'x", u"age = x", u"(age = 1",
                              u"age = 1 AND", u"age = 1 x", u"age ~ 1", u"= 1"}) {
        EXPECT_EQ(let(u"Filter", {Value(wrong)}), "error 3001") << to_utf8(wrong);
    }
    EXPECT_EQ(let(u"Filter", {Value(u"none = 1")}), "error 3265");
    EXPECT_EQ(let(u"Filter", {Value(u"name = 'none'")}), "");
    EXPECT_EQ(result(u"EOF"), "True");
    EXPECT_EQ(let(u"Filter", {integer(0)}), "");
    EXPECT_EQ(result(u"RecordCount"), "4");
}

TEST_F(RecordsetTest, FindAndBookmarksLeadBack) {
    open_people();
    static_cast<void>(call(u"MoveFirst"));
    EXPECT_EQ(result(u"Find", {Value(u"age = 25")}), "Empty");
    EXPECT_EQ(field(u"name"), "anna");
    const Value anna = call(u"Bookmark");
    EXPECT_EQ(result(u"Find", {Value(u"age = 25"), integer(1)}), "Empty");
    EXPECT_EQ(field(u"name"), "Cleo");
    EXPECT_EQ(result(u"Find", {Value(u"name = 'Bo'"), integer(0), integer(-1)}), "Empty");
    EXPECT_EQ(field(u"name"), "Bo");
    EXPECT_EQ(result(u"Find", {Value(u"age = 99")}), "Empty");
    EXPECT_EQ(result(u"EOF"), "True");
    EXPECT_EQ(result(u"Find", {Value(u"age = 25")}), "error 3021");
    EXPECT_EQ(result(u"Find", {Value(u"age > 25"), integer(0), integer(1), anna}), "Empty");
    EXPECT_EQ(field(u"name"), "O'Hara");
    EXPECT_EQ(let(u"Sort", {Value(u"name DESC")}), "");
    EXPECT_EQ(let(u"Bookmark", {anna}), "");
    EXPECT_EQ(result(u"AbsolutePosition"), "4");
    EXPECT_EQ(let(u"Filter", {Value(make<Array>(std::vector<Value>{anna}))}), "");
    EXPECT_EQ(names_ahead(), "anna");
    EXPECT_EQ(let(u"Bookmark", {Value(99.0)}), "error 3001");
}

TEST_F(RecordsetTest, RowsComeAsAnArrayOrAText) {
    open_people();
    static_cast<void>(call(u"MoveFirst"));
    const Value rows = call(u"GetRows", {integer(2)});
    EXPECT_EQ(rows.array().upper_bound(1), 2);
    EXPECT_EQ(rows.array().upper_bound(2), 1);
    EXPECT_EQ(noted(rows), "[Bo, 30, 5/1/1996, anna, 25, 5/1/2001]");
    EXPECT_EQ(field(u"name"), "Cleo");
    EXPECT_EQ(result(u"GetRows", {integer(-1), integer(1), Value(u"age")}), "[30, 25, 25, 61]");
    EXPECT_EQ(result(u"GetRows"), "error 3021");
    static_cast<void>(call(u"MoveLast"));
    EXPECT_EQ(result(u"GetString", {integer(2), integer(-1), Value(u","), Value(u";")}),
              "O'Hara,61,5/1/1965;");
}

}  // namespace
}  // namespace vbscript
