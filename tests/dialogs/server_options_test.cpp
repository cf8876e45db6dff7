#include "dialogs/server_options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/run_time_error.h"
#include "core/instance.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"
#include "udp/client_link.h"

namespace dialogs {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr std::int32_t kPort = 4550;

class ServerOptionsTest : public testing::Test {
  protected:
    ServerOptionsTest() {
        instance_.attach(host_, &host_);
        instance_.log.attach(&host_);
        dialog_.Form_Load();
        link_.InitUDP();
        client_.send(support::MemoryNetwork::kHouse, kPort, "\1");
        machine_.pump.run_for(1ms);
        dialog_.txtArray_DblClick();
        host_.forget();
    }

    // Datagrams that a test of the link sends, without their zero bytes.
    std::vector<std::string> sent_by(std::string_view button) {
        dialog_.press(button);
        machine_.pump.run_for(1ms);
        std::vector<std::string> texts;
        for (const auto& datagram : client_.received()) {
            std::string text = datagram;
            std::erase(text, '\0');
            texts.push_back(text);
        }
        return texts;
    }

    support::FakeMachine machine_;
    support::MemoryHost host_;
    core::Instance instance_{machine_.platform()};
    udp::ClientLink link_{instance_};
    ServerOptions dialog_{link_};
    support::UdpPeer& client_ = machine_.network.udp("10.0.0.5", kPort);
};

TEST_F(ServerOptionsTest, ListsTheClientsWhenItOpens) {
    dialog_.open();
    EXPECT_TRUE(dialog_.is_open());
    EXPECT_EQ(dialog_.status_box(), "Registered CID clients:\r\n--> 10.0.0.5\r\n");
    dialog_.press("txtArray");
    EXPECT_EQ(dialog_.status_box(), "");
}

TEST_F(ServerOptionsTest, TheInformationBlock) {
    client_.send(support::MemoryNetwork::kHouse, kPort, "\2");
    machine_.pump.run_for(1ms);
    dialog_.AdvancedInfoButton_Click();
    const std::string stars(56, '*');
    EXPECT_THAT(
        dialog_.status_box(),
        AllOf(StartsWith(stars + "\r\n                  Velora Server\r\n" + stars + "\r\n"),
              EndsWith("\r\n" + stars + "\r\nRegistered CID clients:\r\n--> -10.0.0.5\r\n")));
}

TEST_F(ServerOptionsTest, OnlyTheFirstButtonSavesTheCheckBox) {
    for (const std::size_t button : {1U, 0U}) {
        dialog_.open();
        EXPECT_FALSE(dialog_.debug_box());
        dialog_.set_debug_box(true);
        dialog_.cmdArray_Click(button);
        EXPECT_FALSE(dialog_.is_open());
        EXPECT_EQ(link_.log().is_debugging(), button == 0);
    }
    dialog_.open();
    EXPECT_TRUE(dialog_.debug_box());
}

TEST_F(ServerOptionsTest, SendsATestMessageLoggedAsUnderDebug) {
    EXPECT_THAT(sent_by("TestMessageButton"), ElementsAre("\3Test Caller(123)456-7890"));
    EXPECT_THAT(host_.log(), ElementsAre("zynVelora VeloraServer Info: Sending Test Message.",
                                         "zynVelora Debug: Sent CID Message to host 10.0.0.5"));
    EXPECT_FALSE(link_.log().is_debugging());
}

TEST_F(ServerOptionsTest, TogglesTheTopLedOfAllClients) {
    EXPECT_THAT(sent_by("TestCommandButton"), ElementsAre("\6TopLedon"));
    EXPECT_THAT(sent_by("testcommandbutton"), ElementsAre("\6TopLedon", "\6TopLedoff"));
    EXPECT_THAT(dialog_.status_box(), HasSubstr("~!~Sending Test Command.\r\n"));
}

TEST_F(ServerOptionsTest, TellsItsHandlersUnderDebugOnly) {
    dialog_.Form_Load();
    dialog_.txtArray_DblClick();
    EXPECT_THAT(host_.log(), testing::IsEmpty());
    link_.log().set_debugging(true);
    dialog_.Form_Load();
    dialog_.cmdArray_Click(1);
    dialog_.txtArray_DblClick();
    EXPECT_THAT(host_.log(),
                ElementsAre("zynVelora Debug: Entered Form_Load() subroutine.",
                            "zynVelora Debug: Entered cmdArray_Click() subroutine.",
                            "zynVelora Debug: Entered txtArray_DblClick() subroutine."));
    EXPECT_THROW(dialog_.press("cmdArray(2)"), automation::RunTimeError);
}

}  // namespace
}  // namespace dialogs
