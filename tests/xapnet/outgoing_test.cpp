#include "xapnet/outgoing.h"

#include <gtest/gtest.h>

#include "xapnet/message.h"

namespace xapnet {
namespace {

using namespace std::string_literals;

const Sender kSender{"zyn.zynVelora.house", 0x1234};

std::string bodies(const std::string& data) {
    const Composed composed =
        compose(kSender, {"", "xapBSC.Event", "output.state", data, "", "00"});
    const std::size_t header_end = composed.datagram.find("}\n");
    return header_end == std::string::npos ? composed.error
                                           : composed.datagram.substr(header_end + 2);
}

TEST(Outgoing, TheHeaderIsInTheOrderOfTheStandard) {
    EXPECT_EQ(
        compose(kSender, {"a.b.>", "xAPBSC.Info", "output.state", "", "hall.led", "0e"}).datagram,
        "xap-header\n{\nv=12\nhop=1\nuid=FF12340E\nclass=xAPBSC.Info\n"
        "source=zyn.zynVelora.house:hall.led\ntarget=a.b.>\n}\noutput.state\n{\n}\n");
    EXPECT_EQ(compose(kSender, {"", "a{b}\n", "c\r", "", "", "00"}).datagram,
              "xap-header\n{\nv=12\nhop=1\nuid=FF123400\nclass=a b  \n"
              "source=zyn.zynVelora.house\n}\nc \n{\n}\n");
}

TEST(Outgoing, DataAreItemsAndThenPlainText) {
    struct Case {
        std::string data;
        std::string body;
    };

    const std::string first = "output.state\n{\n";
    for (const Case& c : {
             Case{"State\1ON\0Level\1"s + "50/1", first + "State=ON\nLevel=50/1\n}\n"},
             Case{"", first + "}\n"},
             Case{"State\1\0Text\1 a b "s, first + "State=\nText= a b \n}\n"},
             Case{"Text\1caf\xE9", first + "Text=caf\xC3\xA9\n}\n"},
             Case{"Text\1a{b}\r\nc\n}\177d", first + "Text=a b   c   d\n}\n"},
             Case{"Text\1"s + "a=b\1c\0"s, first + "Text=a=b c\n}\n"},
             Case{"Text\1Off\0Level\1"s + "0/2\n}\nvalues.2\n{\nText= On \nLevel=1/2\n}\nvalues.3\n"
                                          "{\nText=Dim\n\njust this",
                  first + "Text=Off\nLevel=0/2\n}\nvalues.2\n{\nText= On \nLevel=1/2\n}\n"
                          "values.3\n{\nText=Dim\njust this\n}\n"},
             Case{"\n}\nvalues.2\n{\nText=a{b}\n=x\n}",
                  first + "}\nvalues.2\n{\nText=a b \n=x\n}\n"},
             Case{"Text\1a\nx\nname\n{\nk=v", first + "Text=a x name   k=v\n}\n"},
             Case{"Text\1a\n}\n}\n{\nb", first + "Text=a       b\n}\n"},
             Case{"\n}\nvalues.2\n{\n", first + "}\nvalues.2\n{\n}\n"},
         }) {
        EXPECT_EQ(bodies(c.data), c.body) << c.data;
        EXPECT_TRUE(parse_message(compose(kSender, {"", "c", "s", c.data, "", "00"}).datagram)
                        .message.has_value());
    }
}

TEST(Outgoing, WhatNobodyCouldReadStaysHere) {
    for (const auto& [message_class, section, uid, error] : {
             std::tuple{"c", "s", "FF",
                        "The endpoint 'FF' is none of two hexadecimal digits, 00 "
                        "to FE"},
             {"", "s", "00", "A message needs a class and a block"},
             {"c", "{ }\n", "00", "A message needs a class and a block"},
         }) {
        const Composed composed = compose(kSender, {"", message_class, section, "", "", uid});
        EXPECT_EQ(composed.error, error);
        EXPECT_EQ(composed.datagram, "");
    }
    const auto sized = [](std::size_t length) {
        return compose(kSender, {"", "c", "s", "k\1" + std::string(length, 'x'), "", "00"});
    };
    const std::size_t room = kLongestSent - sized(0).datagram.size();
    EXPECT_EQ(sized(room).datagram.size(), kLongestSent);
    EXPECT_EQ(sized(room + 1).datagram, "");
    EXPECT_EQ(sized(room + 1).error, "A message of 1401 bytes is longer than 1400");
}

}  // namespace
}  // namespace xapnet
