#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <csignal>

#include "system/house_process.h"
#include "system/web_client.h"

// Settings that are wrong and a machine that does not play along: the daemon says so and goes on.
namespace system_tests {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::size_t kSomeSpeech = 10'000;  // bytes

std::size_t spoken_bytes(const House& house, int number) {
    const std::string name = "VeloraTempFile" + std::to_string(number) + ".wav";
    return content_of(house.home() / "HTML" / "VeloraTemp" / name).size();
}

TEST(BadInput, AWrongLineOfSettingsIsNamedAndAllOthersCount) {
    House house({"Kitchen", "Hall"});
    house.put_before_units("this is no setting\n");
    house.append_settings("[unfinished\n[T2W]\nT2WVoice=Nobody at all\n");
    house.start();
    EXPECT_THAT(house.log("Settings"),
                ElementsAre(AllOf(StartsWith("zynVeloraUtilities.ini, line "),
                                  HasSubstr(": no '=' in 'this is no setting'")),
                            AllOf(StartsWith("zynVeloraUtilities.ini, line "),
                                  HasSubstr(": no ']' in '[unfinished'"))));
    house.call({"VeloraTopLed", "", "on"});
    EXPECT_TRUE(house.shows("Kitchen", "top_led", "on"));
    EXPECT_TRUE(house.shows("Hall", "top_led", "on"));

    // The voice is the default one then.
    house.call({"VeloraSpeak", "Hall", "Hello"});
    EXPECT_GT(spoken_bytes(house, 1), kSomeSpeech);
    EXPECT_TRUE(
        eventually([&] { return house.state("Hall").at("playing").at("bytes") > kSomeSpeech; }));
}

TEST(BadInput, APortInUseIsReportedAndUnitsStillGetCommands) {
    House house({"Kitchen"});
    const int taken = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    place.sin_port = htons(static_cast<std::uint16_t>(std::stoi(house.server_port())));
    ASSERT_EQ(::bind(taken, reinterpret_cast<const sockaddr*>(&place), sizeof place), 0);
    ASSERT_EQ(::listen(taken, 1), 0);
    house.start();
    EXPECT_THAT(house.log("zynVelora"),
                Contains(AllOf(HasSubstr(house.server_port()), HasSubstr("in use"))));
    house.call({"VeloraTopLed", "Kitchen", "on"});
    EXPECT_TRUE(house.shows("Kitchen", "top_led", "on"));
    ::close(taken);
}

TEST(BadInput, AHomeInUseIsRefusedWithTheProcessThatHasIt) {
    House house({"Kitchen"});
    house.start();
    const Outcome second = house.run({"serve", "--home", house.home().string()});
    EXPECT_EQ(second.exit_code, 1);
    EXPECT_EQ(second.err, "zynvelora: The home " + house.home().string() +
                              " is in use by process " + std::to_string(house.daemon().id()) +
                              "\n");
    house.call({"VeloraTopLed", "Kitchen", "on"});
    EXPECT_TRUE(house.shows("Kitchen", "top_led", "on"));
}

// Files that may not grow stand for the disk. A long text needs more than the log does.
TEST(BadInput, AFullDiskWhileSpeakingIsOneLineInTheLog) {
    constexpr rlim_t kLargestFile = 1'500'000;
    std::string text;
    for (int i = 0; i < 120; ++i) {
        text += "Dinner is ready. ";
    }
    House house({"Kitchen"});
    const auto before = std::signal(SIGXFSZ, SIG_IGN);  // the daemon inherits it
    house.start();
    std::signal(SIGXFSZ, before);
    rlimit unlimited{};
    const rlimit full{.rlim_cur = kLargestFile, .rlim_max = RLIM_INFINITY};
    ASSERT_EQ(::prlimit(house.daemon().id(), RLIMIT_FSIZE, &full, &unlimited), 0);
    const std::size_t lines = house.log("zynVelora").size();
    house.call({"VeloraSpeak", "Kitchen", text});
    EXPECT_TRUE(eventually([&] { return house.requests("Kitchen").size() == 1; }));
    std::vector<std::string> log = house.log("zynVelora");
    log.erase(log.begin(), log.begin() + static_cast<std::ptrdiff_t>(lines));
    EXPECT_THAT(log, ElementsAre(AllOf(StartsWith("SpeakToFile"), HasSubstr("Disk full"))));

    ASSERT_EQ(::prlimit(house.daemon().id(), RLIMIT_FSIZE, &unlimited, nullptr), 0);
    house.call({"VeloraSpeak", "Kitchen", "Hello"});
    EXPECT_TRUE(eventually([&] { return house.requests("Kitchen").size() == 2; }));
    EXPECT_GT(spoken_bytes(house, 2), kSomeSpeech);
    EXPECT_EQ(house.state("Kitchen").at("playing").at("bytes"), spoken_bytes(house, 2));
}

}  // namespace
}  // namespace system_tests
