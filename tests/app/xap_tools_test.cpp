#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/control_client.h"
#include "app/xap_message_text.h"
#include "app/xap_settings.h"
#include "app/xap_words.h"
#include "automation/run_time_error.h"
#include "support/fake_xap_message.h"
#include "support/memory_host.h"

namespace app {
namespace {

using namespace std::string_literals;
using testing::HasSubstr;

TEST(XapWords, ItemsGoToTheirBlocksInTheOrderOfTheirFirstWord) {
    const XapBody body = xap_body_of({"output.state.1.ID=0E", "output.state.2.ID=*", "request",
                                      "OUTPUT.state.1.Text=a=b.c", "output.state.2.Level=50%"});
    EXPECT_EQ(body.section, "output.state.1");
    EXPECT_EQ(body.data, "ID\1"s + "0E\0Text\1"s +
                             "a=b.c\n}\noutput.state.2\n{\nID=*\nLevel=50%\n}\nrequest\n{");
    EXPECT_EQ(xap_body_of({"request"}).data, "");
    EXPECT_EQ(xap_body_of({"a.b=\xC3\xBC"}).data, "b\1\xFC");
}

TEST(XapWords, AWordAtFaultIsNamed) {
    for (const char* word : {"Say=Hello", ".Say=Hello", "tts.=Hello", "=", ""}) {
        EXPECT_THROW((void)xap_body_of({"a.b=1", word}), CommandFailure) << word;
    }
    EXPECT_THROW((void)xap_body_of({}), CommandFailure);
}

TEST(XapMessageText, ShowsBlocksWithKeysUnderEachOther) {
    support::FakeXapMessage message("a.b.c:d", "xAPBSC.cmd", "zyn.zynVelora.h\xFCtte");
    message.block("output.state.1", {"ID=0E", "Level=1/2", "no item\x1b"}).block("empty", {});
    const automation::DateTime when{};
    EXPECT_EQ(xap_message_text(message, when, Colours::Off),
              "00:00:00  xAPBSC.cmd  a.b.c:d -> zyn.zynVelora.h\xC3\xBCtte\n"
              "  output.state.1\n"
              "    ID     0E\n"
              "    Level  1/2\n"
              "    no item?\n"
              "  empty\n\n");
    EXPECT_THAT(xap_message_text(message, when, Colours::On),
                HasSubstr("\x1b[1mxAPBSC.cmd\x1b[0m"));
}

TEST(XapSettings, ComeFromTheirSectionOrAreThoseOfTheLoopback) {
    support::MemoryHost host;
    const XapSettings usual = read_xap_settings(host);
    EXPECT_EQ(usual.interface_address, "127.0.0.1");
    EXPECT_EQ(usual.broadcast_address, "127.255.255.255");
    EXPECT_EQ(usual.port, 3639);
    EXPECT_NE(usual.instance, "");
    host.put_setting("xAP", "Interface", "192.168.0.5", "settings.ini");
    host.put_setting("xAP", "Instance", "\"my.house*\"", "settings.ini");
    EXPECT_EQ(read_xap_settings(host).broadcast_address, "255.255.255.255");
    EXPECT_EQ(read_xap_settings(host).source("monitor"), "zyn.monitor.myhouse");
    host.put_setting("xAP", "HeartbeatSeconds", "soon", "settings.ini");
    try {
        (void)read_xap_settings(host);
        ADD_FAILURE();
    } catch (const automation::RunTimeError& error) {
        EXPECT_EQ(
            error.description(),
            "settings.ini, section xAP, HeartbeatSeconds: 'soon' is no number from 1 to 3600");
    }
}

TEST(XapSettings, AnAddressHasOneUnitNumber) {
    EXPECT_EQ(unit_id_of("zyn.zynVelora.a"), unit_id_of("zyn.zynVelora.a"));
    EXPECT_NE(unit_id_of("zyn.zynVelora.a"), unit_id_of("zyn.zynVelora.b"));
    EXPECT_NE(unit_id_of(""), 0);
}

}  // namespace
}  // namespace app
