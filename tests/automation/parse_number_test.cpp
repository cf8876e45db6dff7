#include <gtest/gtest.h>

#include "automation/convert.h"
#include "automation/thrown_error.h"

namespace automation {
namespace {

struct Case {
    std::string_view text;
    double number;
};

TEST(ParseNumber, ReadsWholeTexts) {
    constexpr Case kCases[] = {
        {"0", 0},           {" 12 ", 12},   {"-5", -5},         {"5-", -5},
        {"- 5", -5},        {"+.5", 0.5},   {"5.", 5},          {"1,234,567.5", 1234567.5},
        {"1E3", 1000},      {"1d-2", 0.01}, {"$1,200", 1200},   {"-$3", -3},
        {"$-3", -3},        {"3$", 3},      {"(7)", -7},        {"($7.5)", -7.5},
        {"&HFF", 255},      {"&hffff", -1}, {"&HFFFF&", 65535}, {"&H10000", 65536},
        {"&HFFFFFFFF", -1}, {"&O17", 15},   {"&17", 15},        {"1E-999", 0},
        {"\t4\r\n", 4},     {"0E99999", 0}, {"0.1", 0.1},
    };
    for (const Case& row : kCases) {
        EXPECT_EQ(parse_number(row.text), row.number) << row.text;
        EXPECT_TRUE(is_numeric(row.text)) << row.text;
    }
}

TEST(ParseNumber, RefusesAnyOtherText) {
    for (const std::string_view text :
         {"",    " ",     "abc",   "1a",  "1 2",  ".",   "-",           "1.2.3",
          "1E",  "E5",    "--1",   "-1-", "(1",   "1)",  "(-1)",        "$",
          "$$1", ",5",    "1.5,0", "&",   "&H",   "&HG", "&H100000000", "&H-1",
          "&O8", "1E999", "inf",   "nan", "0x10", "1e+", "True",        "1%"}) {
        EXPECT_FALSE(is_numeric(text)) << text;
    }
}

TEST(NumericPrefix, StopsAtTheFirstStrangeCharacter) {
    constexpr Case kCases[] = {
        {"", 0},           {"abc", 0},      {"12abc", 12},  {"1 2 3 Main", 123},
        {" \t\r\n-4", -4}, {"1,234", 1},    {"$5", 0},      {"1.5.5", 1.5},
        {"1e2x", 100},     {"1 e 2", 100},  {"1e", 1},      {"1ex", 1},
        {"1d1", 10},       {"&HFFzz", 255}, {"&HFFFF", -1}, {"&O17", 15},
        {"&Hz", 0},        {".5", 0.5},     {".", 0},       {"--5", 0},
    };
    for (const Case& row : kCases) {
        EXPECT_EQ(numeric_prefix(row.text), row.number) << row.text;
    }
    EXPECT_EQ(thrown_error([] { return numeric_prefix("1E999"); }), 6);
}

TEST(ParseBoolean, WordsAndNumbers) {
    for (const std::string_view text : {"True", "tRUE", " true ", "1", "-1", "0.1", "&H1"}) {
        EXPECT_EQ(parse_boolean(text), true) << text;
    }
    for (const std::string_view text : {"False", "FALSE", "0", "-0", "0.0"}) {
        EXPECT_EQ(parse_boolean(text), false) << text;
    }
    for (const std::string_view text : {"", "yes", "T", "True1"}) {
        EXPECT_EQ(parse_boolean(text), std::nullopt) << text;
    }
}

TEST(Trim, RemovesBlanksOnly) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("\ta\n"), "\ta\n");
    EXPECT_EQ(trim("   "), "");
}

}  // namespace
}  // namespace automation
