#include "callerid/modem_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/instance.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"

namespace callerid {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::int16_t kReceived = static_cast<std::int16_t>(CommEvent::Received);

// A reader whose calls are noted: "name|number".
class ModemReaderTest : public testing::Test, private CallListener {
  protected:
    ModemReaderTest() {
        instance_.attach(host_, &host_);
        instance_.log.attach(&host_);
        instance_.settings.CIDNamePrefix = "NAME =";
        instance_.settings.CIDNumberPrefix = "NMBR =";
    }

    void receive(std::string_view text) { reader_.ProcessCommData(text, kReceived); }

    void wait(std::chrono::milliseconds time) { machine_.pump.run_for(time); }

    support::FakeMachine machine_;
    support::MemoryHost host_;
    core::Instance instance_{machine_.platform()};
    CallState call_;
    EchoWindow echo_;
    std::vector<std::string> calls_;
    std::unique_ptr<host::Timer> timer5_ =
        machine_.pump.make_timer([this] { reader_.Timer5_Timer(); });
    ModemReader reader_{{instance_, call_, echo_, *this, [this] { return timer5_.get(); }}};

  private:
    void ProcessModemInput() override {
        calls_.push_back(call_.CIDName + "|" + call_.CIDNumber);
        timer5_->set_enabled(false);
        call_ = {};
    }
};

struct Session {
    const char* what;
    const char* input;
    std::vector<std::string> at_once;
    std::vector<std::string> after_500_ms;
};

TEST_F(ModemReaderTest, LinesBecomeCalls) {
    for (const Session& session : {
             Session{"number first",
                     "NMBR = 5035551234\r\nNAME = SMITH ANNA\r\n",
                     {"SMITH ANNA|(503) 555-1234"},
                     {}},
             Session{"name first",
                     "nmbrless\r\nNAME =Bob\r\nDATE = 0101\r\nNMBR =5551234\r\n",
                     {"Bob|555-1234"},
                     {}},
             Session{"name only", "NAME = Bob\r\n", {}, {"Bob|"}},
             Session{"number only", "NMBR = P\r\n", {}, {"|P"}},
             Session{"two names", "NAME = Bob\r\nNAME = Ann\r\nNMBR = 1\r\n", {"Ann|1"}, {}},
             Session{"a ring between", "NAME = Bob\r\nRING\r\nNMBR = 911\r\n", {}, {"Bob|911"}},
             Session{"both prefixes in a line", "NMBR = 1 NAME = Zoe\r\n", {}, {"Zoe|"}},
             Session{"one record",
                     "###DATE01011230...NMBR5035551234...NAMEJOHN SMITH+++\r",
                     {"JOHN SMITH|(503) 555-1234"},
                     {}},
             Session{"a record without the number's end",
                     "###DATE0101...NAMEX...NMBR503+++\r",
                     {},
                     {"X...NMBR503|(000)000-0000"}},
             Session{"an end mark without a record", "+++\r", {}, {}},
         }) {
        calls_.clear();
        call_ = {};
        receive(session.input);
        EXPECT_EQ(calls_, session.at_once) << session.what;
        calls_.clear();
        wait(499ms);
        EXPECT_THAT(calls_, IsEmpty()) << session.what;
        wait(1ms);
        EXPECT_EQ(calls_, session.after_500_ms) << session.what;
    }
}

TEST_F(ModemReaderTest, InputMayBeCutAnywhere) {
    const std::string plain = "\r\nRING\r\n\r\nDATE = 1125\r\nNMBR = 5035551234\r\nNAME = A B\r\n";
    const std::string record = "x\r\n###DATE01011230...NMBR5551234...NAMEC D+++\r";
    for (const std::string& input : {plain, record}) {
        receive(input);
        const std::vector<std::string> whole = std::exchange(calls_, {});
        ASSERT_EQ(whole.size(), 1U);
        for (std::size_t first = 0; first <= input.size(); ++first) {
            for (std::size_t second = first; second <= input.size(); ++second) {
                receive(input.substr(0, first));
                receive(input.substr(first, second - first));
                receive(input.substr(second));
                ASSERT_EQ(std::exchange(calls_, {}), whole) << first << ", " << second;
            }
        }
    }
}

TEST_F(ModemReaderTest, AnUnfinishedLineIsTakenAsItStandsWhenWanted) {
    instance_.settings.InsertModemCrLf = true;
    receive("NMBR = 911");
    receive("NAME = SMI");
    receive("TH\r\n");
    EXPECT_THAT(calls_, ElementsAre("SMI|911"));
}

TEST_F(ModemReaderTest, TheNumberIsCutByTheLengthOfTheNamesPrefix) {
    instance_.settings.CIDNamePrefix = "NAME  =";
    receive("NMBR =5551234\r\nNAME  = X\r\n");
    EXPECT_THAT(calls_, ElementsAre("X|551234"));
}

TEST_F(ModemReaderTest, AFullBufferIsDeafButStillEchoes) {
    receive(std::string(ModemReader::kMostBuffered, 'x'));
    receive("\r\nNAME = A\r\nNMBR = 1\r\n");
    wait(1s);
    EXPECT_THAT(calls_, IsEmpty());
    EXPECT_THAT(echo_.CommData(), HasSubstr("NMBR = 1"));
}

TEST_F(ModemReaderTest, TheBoxesShowTimesCodesAndWhatWasFound) {
    instance_.log.set_debug_log(true);
    reader_.ProcessCommData("", 5);
    reader_.ProcessCommData("", 3);
    receive("NMBR = 911\r\n");
    EXPECT_EQ(echo_.CommStatus(), "\r\n5\r\n3\r\n2");
    EXPECT_EQ(echo_.CommData(), "NMBR = 911\r\n10:00:00 |   ... Number=911 ... ");
    EXPECT_THAT(host_.log(), testing::Contains("zynVelora: zynVelora Comm Event Code=5"));
    EXPECT_THAT(host_.log(),
                testing::Contains("zynVelora Debug: DoModem Received Text=NMBR = 911"));
}

}  // namespace
}  // namespace callerid
