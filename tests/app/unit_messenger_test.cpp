#include "app/unit_messenger.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "home/house_fakes.h"
#include "home/temporary_folder.h"
#include "platform/asio/asio_pump.h"
#include "platform/asio/local_line_server.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr auto kPatience = 5000ms;

// A unit's end of the socket, which gives the answers that the test has laid out, then none.
class ListeningUnit {
  public:
    ListeningUnit(platform::AsioPump& pump, const std::filesystem::path& directory)
        : server_(pump, directory / "control.sock",
                  {.on_line =
                       [this](const platform::LineConnection& connection, const std::string& line) {
                           heard.push_back(line);
                           if (!answers.empty()) {
                               connection.send_line(answers.front());
                               answers.erase(answers.begin());
                           }
                       },
                   .on_closed = [this](const platform::LineConnection&) { ++closed; }}) {}

    std::vector<std::string> heard;
    std::vector<std::string> answers;
    std::size_t closed = 0;

  private:
    platform::LocalLineServer server_;
};

class UnitMessengerTest : public testing::Test {
  protected:
    void run_until(const std::function<bool()>& done) {
        EXPECT_TRUE(pump_.run_until(done, kPatience));
    }

    [[nodiscard]] std::string failed(const std::string& occasion, const std::string& reason) const {
        return "log X10: " + occasion + " did not reach the unit in " + folder_.path().string() +
               ": " + reason;
    }

    TemporaryFolder folder_;
    platform::AsioPump pump_;
    Trace trace_;
};

TEST_F(UnitMessengerTest, CommandsArriveInOrderOneAfterTheOther) {
    ListeningUnit unit(pump_, folder_.path());
    unit.answers = {"ok", "error: no such power", "ok"};
    UnitMessenger messenger(pump_, trace_);
    messenger.tell(folder_.path(), "power off", "A1 off");
    messenger.tell(folder_.path(), "power odd", "A1 odd");
    messenger.tell(folder_.path(), "power on", "A1 on");
    EXPECT_THAT(unit.heard, IsEmpty());
    run_until([&] { return unit.closed == 3; });
    EXPECT_THAT(unit.heard, ElementsAre("power off", "power odd", "power on"));
    EXPECT_THAT(trace_.lines, ElementsAre(failed("A1 odd", "no such power")));
}

TEST_F(UnitMessengerTest, AUnitThatIsNotThereIsOneLine) {
    UnitMessenger messenger(pump_, trace_);
    messenger.tell(folder_.path(), "power off", "A1 off");
    messenger.tell("/" + std::string(200, 'x'), "power off", "A2 off");
    EXPECT_THAT(trace_.lines, IsEmpty());
    run_until([&] { return trace_.lines.size() == 2; });
    EXPECT_THAT(trace_.lines,
                UnorderedElementsAre(failed("A1 off", "No such file or directory"),
                                     "log X10: A2 off did not reach the unit in /" +
                                         std::string(200, 'x') + ": File name too long"));
}

TEST_F(UnitMessengerTest, ASilentUnitHoldsUpItsOwnCommandsForABoundedTime) {
    ListeningUnit unit(pump_, folder_.path());
    UnitMessenger messenger(pump_, trace_, 20ms);
    messenger.tell(folder_.path(), "power off", "A1 off");
    messenger.tell(folder_.path(), "power on", "A1 on");
    run_until([&] { return trace_.lines.size() == 2; });
    EXPECT_THAT(trace_.lines, ElementsAre(failed("A1 off", "no answer in time"),
                                          failed("A1 on", "no answer in time")));
}

TEST_F(UnitMessengerTest, MoreCommandsThanMayWaitAreLost) {
    ListeningUnit unit(pump_, folder_.path());
    UnitMessenger messenger(pump_, trace_, 1h);
    for (std::size_t i = 0; i <= UnitMessenger::kWaitingCommands; ++i) {
        messenger.tell(folder_.path(), "power on", "A1 on");
    }
    EXPECT_THAT(trace_.lines, ElementsAre(failed("A1 on", "too many commands wait for it")));
}

TEST_F(UnitMessengerTest, ItsEndAbandonsWhatIsUnderWay) {
    ListeningUnit unit(pump_, folder_.path());
    {
        UnitMessenger messenger(pump_, trace_, 1h);
        messenger.tell(folder_.path(), "power on", "A1 on");
        run_until([&] { return unit.heard.size() == 1; });
    }
    run_until([&] { return unit.closed == 1; });
    EXPECT_THAT(trace_.lines, IsEmpty());
}

}  // namespace
}  // namespace app
