#include "xapnet/message.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "automation/run_time_error.h"
#include "xapnet/received_message.h"
#include "xapnet/wire_text.h"

namespace xapnet {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string kHeader =
    "xap-header\n{\nv=12\nhop=1\nuid=FF123400\nclass=tts.speak\nsource=a.b.c\n}\n";

// What a message that was read looks like on the wire, or the error.
std::string read(std::string_view text) {
    const ParsedMessage parsed = parse_message(text);
    return parsed.message ? text_of(*parsed.message) : parsed.error;
}

std::string with_body(const std::string& lines) {
    return kHeader + "body\n{\n" + lines + "}\n";
}

TEST(ParseMessage, ReadsGenerously) {
    struct Case {
        std::string text;
        std::string canonical;
    };

    const std::string body = with_body("Say=Hello\n");
    for (const Case& c : {
             Case{body, body},
             Case{kHeader, kHeader},
             Case{with_body(""), with_body("")},
             Case{"xap-header\r\n{\r\nv=12\r\nhop=1\r\nuid=FF123400\r\nclass=tts.speak\r\n"
                  "source=a.b.c\r\n}\r\nbody\r\n{\r\nSay=Hello\r\n}\r\n",
                  body},
             Case{"\n XAP-HEADER {\n\n\tsource = a.b.c \nCLASS=tts.speak\nUID=FF123400\n}\n"
                  "body{\n  Say =  Hello\n }",
                  body},
             Case{with_body("Say=Hello\0\n"s), body},
             Case{body + "and\nmore\0\0"s, body},
             Case{with_body("Say!48656C6c6F\n"), body},
             Case{with_body("Say! 48656C6C6F\n"), body},
             Case{with_body("Say!48656\nSay!\nNo item\n=x\nOh!=1=2\n"),
                  with_body("Say!48656\nSay!\nNo item\n=x\nOh!=1=2\n")},
             Case{with_body("a={1}\nb!0D0A410A\n"), with_body("a= 1 \nb=  A \n")},
             Case{"xap-header\n{\nv=13\nhop=02\nuid=FF.1234:0000\nclass=c\nsource=s\ntarget=t\n"
                  "v=7\nother=1\ntarget=u\nno item\n}\n",
                  "xap-header\n{\nv=13\nhop=2\nuid=FF.1234:0000\nclass=c\nsource=s\ntarget=t\n"
                  "other=1\n}\n"},
             Case{"xap-hbeat\n{\nport=4000\npid=x y\nsource=s\nclass=xap-hbeat.alive\nv=12\n"
                  "interval=60\nhop=1\nuid=FF123400\n}\n",
                  "xap-hbeat\n{\nv=12\nhop=1\nuid=FF123400\nclass=xap-hbeat.alive\nsource=s\n"
                  "port=4000\npid=x y\ninterval=60\n}\n"},
         }) {
        EXPECT_EQ(read(c.text), c.canonical) << c.text;
    }
}

TEST(ParseMessage, TellsWhatIsWrongAndWhere) {
    struct Case {
        std::string text;
        std::string error;
    };

    for (const Case& c : {
             Case{"", "line 1: there is no header block"},
             Case{"\x01\xFF", "line 1: there is no header block"},
             Case{"xap-header\nv=12\n", "line 2: there is no header block"},
             Case{"body\n{\n}\n", "line 3: the first block is no header, but 'body'"},
             Case{"{\n}\n", "line 1: a block has no name, but ''"},
             Case{"xap-header\n{\nv=11\n}\n",
                  "line 3: the version is no number from 12 to 13, but '11'"},
             Case{"xap-header\r\n{\r\n\r\nhop=-1\n}",
                  "line 4: the hop is no number from 0 to 999, but '-1'"},
             Case{"xap-header\n{\nhop=1x\nv=1\n}",
                  "line 3: the hop is no number from 0 to 999, but '1x'"},
             Case{"xap-header\n{\nuid=" + std::string(50, 'z') + "\n}",
                  "line 3: the uid is no identifier, but '" + std::string(40, 'z') + "...'"},
             Case{"xap-header\n{\nclass=\nsource=s\n}\n", "line 5: the header has no class"},
             Case{"xap-header\n{\nclass=c\n}\n", "line 4: the header has no source"},
             Case{kHeader + "body\n{\nSay=Hel",
                  "line 11: the end of the text stands within the block 'body'"},
             Case{kHeader + "body\n{\na\n{\n}\n}\n",
                  "line 12: a block begins within the block 'body'"},
             Case{kHeader + "}\n{\n}\n", "line 10: a block has no name, but '}'"},
             Case{std::string(kLongestRead + 1, ' '), "line 1: longer than 65536 bytes"},
         }) {
        EXPECT_EQ(read(c.text), c.error) << c.text;
    }
    const std::string longest = with_body("a=" + std::string(kLongestRead - 96, 'x') + "\n");
    EXPECT_LE(longest.size(), kLongestRead);
    EXPECT_EQ(read(longest), longest);
}

class Random {
  public:
    std::size_t below(std::size_t limit) { return engine_() % limit; }

    // Printable, without a brace, and without a space at its ends.
    std::string text(std::string_view excluded = "") {
        std::string result;
        for (std::size_t i = 1 + below(12); i > 0; --i) {
            const auto character = static_cast<char>(0x20 + below(0xE0));
            const bool is_barred = character == '{' || character == '}' || character == '\x7F' ||
                                   excluded.find(character) != std::string_view::npos;
            result += is_barred ? 'x' : character;
        }
        result.front() = result.front() == ' ' ? 'x' : result.front();
        result.back() = result.back() == ' ' ? 'x' : result.back();
        return result;
    }

    std::vector<Line> lines() {
        std::vector<Line> result(below(5));
        for (Line& line : result) {
            line = below(4) == 0 ? Line{"", text("=!")} : Line{text("="), text()};
        }
        return result;
    }

  private:
    std::mt19937 engine_{20'261'124};
};

TEST(ParseMessage, ReadsBackWhatWasWritten) {
    Random random;
    for (int round = 0; round < 500; ++round) {
        Message message{random.below(2) == 0 ? MessageKind::Message : MessageKind::Heartbeat,
                        static_cast<std::int32_t>(12 + random.below(2)),
                        static_cast<std::int32_t>(random.below(1000)),
                        random.below(2) == 0 ? "" : "FF00AB03",
                        random.text(),
                        random.text(),
                        random.below(2) == 0 ? "" : random.text(),
                        {{"interval", random.text()}},
                        {}};
        for (std::size_t i = random.below(4); i > 0; --i) {
            message.blocks.push_back({"n" + random.text(), random.lines()});
        }
        const ParsedMessage parsed = parse_message(text_of(message));
        ASSERT_TRUE(parsed.message) << parsed.error << text_of(message);
        EXPECT_EQ(*parsed.message, message) << text_of(message);
    }
}

TEST(WireText, IsUtf8OrTheCodePage) {
    for (const auto& [bytes, text] : {
             std::pair{"caf\xC3\xA9", "caf\xE9"},       // UTF-8
             {"caf\xE9", "caf\xE9"},                    // the code page
             {"\xE2\x82\xAC \xE6\x97\xA5", "\x80 ?"},   // a character that the page lacks
             {"\xC3\xA9 \xE9", "\xC3\xA9 \xE9"},        // both: no UTF-8
             {"\xE0\x80\xAF", "\xE0\x80\xAF"},          // overlong
             {"\xED\xA0\x80", "\xED\xA0\x80"},          // a surrogate
             {"\xF4\x90\x80\x80", "\xF4\x90\x80\x80"},  // beyond the last character
             {"\xE2\x82", "\xE2\x82"},                  // cut off
         }) {
        EXPECT_EQ(text_from_wire(bytes), text);
    }
    EXPECT_EQ(wire_from_text("caf\xE9"), "caf\xC3\xA9");
    EXPECT_EQ(read(with_body("Say!C3A9\n")), with_body("Say=\xE9\n"));
}

TEST(ReceivedMessage, IsReadByBlocksAndNamesInAnyCase) {
    ParsedMessage parsed = parse_message(
        "xap-header\n{\nclass=Tts.Speak\nsource=a.b.C:d\ntarget=zyn.zynVelora.*\n}\n"
        "One\n{\nSay = a=b\njust a line\nsay=second\nempty=\n}\nTwo\n{\n}\none\n{\nlate=1\n}\n");
    ASSERT_TRUE(parsed.message) << parsed.error;
    const ReceivedMessage message(std::move(*parsed.message));
    EXPECT_EQ(message.MsgSource() + " " + message.MsgClass() + " " + message.MsgTarget(),
              "a.b.C:d Tts.Speak zyn.zynVelora.*");
    EXPECT_THAT(message.MsgSection(), ElementsAre("One", "Two", "one"));
    EXPECT_THAT(message.msgCollection(0),
                ElementsAre("Say=a=b", "just a line", "say=second", "empty="));
    EXPECT_THAT(message.msgCollection(1), ElementsAre());
    EXPECT_THROW((void)message.msgCollection(3), automation::RunTimeError);
    EXPECT_TRUE(message.CompareClass("TTS.speak"));
    EXPECT_FALSE(message.CompareClass("tts"));
    EXPECT_TRUE(message.CompareTarget("zyn.zynVelora.Kitchen"));
    EXPECT_FALSE(message.CompareTarget("zyn.zynVelora"));
    for (const auto& [section, key, value] : {
             std::tuple{"ONE", "SAY", "a=b"},
             {"one", "empty", ""},
             {"one", "late", "1"},
             {"one", "just a line", "Unknown"},
             {"one", "", "Unknown"},
             {"two", "say", "Unknown"},
             {"three", "say", "Unknown"},
             {"xap-header", "class", "Unknown"},
         }) {
        EXPECT_EQ(message.GetItem(section, key), value) << section << "." << key;
    }
}

}  // namespace
}  // namespace xapnet
