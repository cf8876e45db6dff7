#include "app/modem_capture.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "app/control_client.h"
#include "app/echo_rows.h"

namespace app {
namespace {

using std::chrono::milliseconds;
using Steps = std::vector<CaptureStep>;

TEST(ModemCapture, LinesPausesAndEscapesAreRead) {
    EXPECT_EQ(
        parse_modem_capture(
            "# remark\n#\n\n@ 1000\n###DATE+++\\r\\\nRING\r\n@500\n@ 250\nNMBR = 1\n+++\\r\\\n"
            "a\\\\b\\n\n@ 7",
            "x"),
        (Steps{{milliseconds(1000), "###DATE+++\r"},
               {milliseconds(0), "RING\r\n"},
               {milliseconds(750), "NMBR = 1\r\n"},
               {milliseconds(0), "+++\r"},
               {milliseconds(0), "a\\b\n\r\n"},
               {milliseconds(7), ""}}));
    EXPECT_EQ(parse_modem_capture("", "x"), Steps{});
}

TEST(ModemCapture, WhatIsWrongNamesFileAndLine) {
    for (const auto& [text, message] : std::vector<std::pair<std::string, std::string>>{
             {"RING\n@ soon\n", "my.txt, line 2: a pause is \"@\" and 0 to 60000 milliseconds"},
             {"@ 60001", "my.txt, line 1: a pause is \"@\" and 0 to 60000 milliseconds"},
             {"\n\na\\t",
              "my.txt, line 3: behind a \"\\\" stands r, n, \"\\\" or the end of the line"},
         }) {
        try {
            (void)parse_modem_capture(text, "my.txt");
            ADD_FAILURE() << text;
        } catch (const CommandFailure& failure) {
            EXPECT_EQ(failure.what(), message);
        }
    }
}

TEST(EchoRows, TheNewestRowsAreShownWholeAndWrapped) {
    using Rows = std::vector<std::string>;
    EXPECT_EQ(last_rows("one\r\ntwo\r\nthree", 10, 2), (Rows{"two", "three"}));
    EXPECT_EQ(last_rows("abcdefg\n", 3, 5), (Rows{"abc", "def", "g"}));
    EXPECT_EQ(last_rows("\xC3\xBC\xC3\xA4\xC3\xB6x", 2, 5),
              (Rows{"\xC3\xBC\xC3\xA4", "\xC3\xB6x"}));
    EXPECT_EQ(last_rows("a\x1B[2J\n\nb", 10, 9), (Rows{"a?[2J", "", "b"}));
    EXPECT_EQ(last_rows("", 10, 9), Rows{});
    EXPECT_EQ(last_rows("abc", 10, 0), Rows{});
}

}  // namespace
}  // namespace app
