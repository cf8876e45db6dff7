#include "app/answer_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "app/text_table.h"

namespace app {
namespace {

TEST(ResultText, IsWhatATerminalShows) {
    const struct {
        const char* json;
        const char* text;
    } kCases[] = {
        {"null", ""},
        {R"("")", ""},
        {R"("kitchen")", "kitchen\n"},
        {R"("True")", "True\n"},
        {"true", "True\n"},
        {"false", "False\n"},
        {"0", "0\n"},
        {"-2147483648", "-2147483648\n"},
        {"1.705547", "1.705547\n"},
        {"1e20", "1E+20\n"},
        {R"(["a",1])", "[\"a\",1]\n"},
    };

    for (const auto& test : kCases) {
        EXPECT_EQ(result_text(Json::parse(test.json)), test.text) << test.json;
    }
}

TEST(Printable, LetsNoTextCommandTheTerminal) {
    const struct {
        std::string text;
        std::string shown;
    } kCases[] = {
        {"a\r\nb\nc\td", "a b c d"},
        {"\x1b[31mred\x7f", "?[31mred?"},
        {"\r hidden", "? hidden"},
        {"K\xc3\xbc"
         "che 5 \xe2\x82\xac",
         "K\xc3\xbc"
         "che 5 \xe2\x82\xac"},
        {"\xc2\x9b"
         "31m",
         "?31m"},
        {"\xc2\xa0", "\xc2\xa0"},
        {std::string("\0x", 2), "?x"},
        {"cut \xc2", "cut \xc2"},
    };

    for (const auto& test : kCases) {
        EXPECT_EQ(printable(test.text), test.shown);
    }
}

TEST(StatusText, ShowsUnitsAndTimersInColumns) {
    const Json status = Json::parse(R"({"role":"normal","flags":["StartupReady","HostIsV2"],
        "units":[
          {"name":"küche","address":"127.0.0.21:8080","queue":"Queue: 1)  | beep","command":"led",
           "url":"","waiting":["beep"],"retries_left":2,"timeouts":10,"power_cycles":0,
           "flags":["awake"]},
          {"name":"hall","address":"hall","queue":"Queue: 0) ","command":"volume",
           "url":"","waiting":[],"retries_left":0,"timeouts":0,"power_cycles":3,
           "flags":["QueueEmpty","awake"]},
          {"name":"attic","address":"","queue":"Queue: 0) ","command":"",
           "url":"","waiting":[],"retries_left":0,"timeouts":0,"power_cycles":0,"flags":[]}],
        "timers":[{"name":"Timer2","interval_ms":60000}]})");
    EXPECT_EQ(status_text(status),
              "role   normal\n"
              "flags  StartupReady, HostIsV2\n"
              "\n"
              "UNIT   ADDRESS          RETRIES  TIME-OUTS  POWER CYCLES  FLAGS\n"
              "küche  127.0.0.21:8080        2         10             0  awake\n"
              "    in flight  led\n"
              "    Queue: 1)  | beep\n"
              "hall   hall                   0          0             3  QueueEmpty, awake\n"
              "    last       volume\n"
              "    Queue: 0)\n"
              "attic                         0          0             0\n"
              "    Queue: 0)\n"
              "\n"
              "TIMER   INTERVAL\n"
              "Timer2  60000 ms\n");
}

TEST(StatusText, SaysThatThereIsNothing) {
    EXPECT_EQ(status_text(Json::parse(R"({"role":"shim","flags":[],"units":[],"timers":[]})")),
              "role   shim\nflags  none\n\nno units\n\nno timer runs\n");
}

std::string shown(LogText& text, const std::string& type, const std::string& message) {
    return text.line(
        {{"id", 1}, {"time", "2026-11-24T16:03:03.042"}, {"type", type}, {"message", message}});
}

TEST(LogText, KeepsTheColumnsOfTheLongestType) {
    LogText text(Colours::Off);
    EXPECT_EQ(shown(text, "X10", "A1 on"), "2026-11-24 16:03:03.042  X10              A1 on\n");
    EXPECT_EQ(shown(text, "zynVelora Debug küche", "a\r\nb"),
              "2026-11-24 16:03:03.042  zynVelora Debug küche  a b\n");
    EXPECT_EQ(shown(text, "X10", ""), "2026-11-24 16:03:03.042  X10                    \n");
}

TEST(LogText, ColoursTimeAndTypeOnATerminal) {
    LogText text(Colours::On);
    EXPECT_EQ(shown(text, "X10", "A1"),
              "\x1b[2m2026-11-24 16:03:03.042\x1b[0m  \x1b[36mX10            \x1b[0m  A1\n");
}

}  // namespace
}  // namespace app
