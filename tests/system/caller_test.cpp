#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "system/house_process.h"
#include "system/terminal_process.h"

namespace system_tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kDesktop = "127.0.0.90";

// A house in which every destination of a call is on, with a modem at its first serial port.
class CallerHouse : public House {
  public:
    CallerHouse() : House({"Kitchen"}) {
        want_callers();
        set("CIDCommPort", "1");
        set("PushDelay", "1");
        for (const char* key :
             {"AcidCIDResponse", "CIDSentry", "SoundCIDResponse", "BrowserCIDResponse", "LogCID"}) {
            set(key, "1");
        }
    }

    // A modem that says what the session says, once the daemon has opened its line.
    std::unique_ptr<Process> modem(const std::string& session) {
        const std::filesystem::path file = home().parent_path() / "session.txt";
        std::ofstream(file) << session;
        auto player = spawn({"modem", "--play", file.string(), "--device", modem_path()});
        EXPECT_TRUE(eventually([&] { return player->out().find("waiting") != std::string::npos; }));
        return player;
    }

    [[nodiscard]] std::string modem_path() const { return (home().parent_path() / "tty").string(); }

    std::unique_ptr<Process> desktop_client() {
        auto client = spawn({"udp-client", "--listen", kDesktop, "--port", client_port(),
                             "--server-port", client_port()});
        EXPECT_TRUE(eventually([&] { return client->out().find("subscribed") == 0; }));
        return client;
    }

    // "503 : ANNA" of each call that the log has.
    [[nodiscard]] std::vector<std::string> logged_calls() {
        std::vector<std::string> calls = log("zynVelora");
        std::erase_if(calls, [](const std::string& line) {
            return line.find(" : ") == std::string::npos && !line.starts_with(": ");
        });
        return calls;
    }
};

// What a client program has printed, without the time of day.
std::vector<std::string> calls_of(const Process& client) {
    std::vector<std::string> calls;
    std::istringstream lines(client.out());
    for (std::string line; std::getline(lines, line);) {
        if (const auto at = line.find("caller "); at != std::string::npos) {
            calls.push_back(line.substr(at));
        }
    }
    return calls;
}

TEST(CallerId, CallsOnASerialLineReachEveryDestination) {
    CallerHouse house;
    const auto modem = house.modem(
        "@ 2000\nRING\nNMBR = 5035551234\nNAME = SMITH ANNA\n"
        "@ 3000\nNAME = STORE\nNMBR = 5035550199\n"
        "@ 3000\nNAME = ONLY A NAME\n"
        "@ 3000\nNAME = RUNG\nRING\nNMBR = 911\n@ 2000\n");
    house.map_serial_port("1", house.modem_path());
    house.start();
    const auto desktop = house.desktop_client();
    house.tell("Kitchen", "subscribe");  // the daemon was not there when it did so by itself
    EXPECT_TRUE(
        eventually([&] { return house.logged_calls().size() == 4; }, std::chrono::seconds(40)));
    EXPECT_THAT(house.logged_calls(),
                ElementsAre("(503) 555-1234 : SMITH ANNA", "(503) 555-0199 : STORE",
                            ": ONLY A NAME", "911 : RUNG"));
    const auto calls = calls_of(*desktop);
    EXPECT_THAT(calls,
                ElementsAre("caller   SMITH ANNA  (503) 555-1234", "caller   STORE  (503) 555-0199",
                            "caller   ONLY A NAME  ", "caller   RUNG  911"));
    const Json client = house.state("Kitchen")["client"];
    EXPECT_EQ(client["caller"], (Json{{"name", "RUNG"}, {"number", "911"}}));
    EXPECT_THAT(house.device("[91")["string"].get<std::string>(), HasSubstr("911 : RUNG"));
    // Spoken before it is shown; both are fetched from the daemon.
    EXPECT_TRUE(eventually(
        [&] {
            return std::ranges::count_if(house.requests("Kitchen"), [](const std::string& page) {
                       return page.find("gotoURL") == 0;
                   }) == 4;
        },
        std::chrono::seconds(40)));
    const std::vector<std::string> asked = house.requests("Kitchen");
    const auto first = [&asked](std::string_view page) {
        return std::ranges::find_if(
            asked, [page](const std::string& request) { return request.starts_with(page); });
    };
    EXPECT_LT(first("loadWav.shtml?http://127.0.0.1:" + house.server_port() + "/VeloraTemp/"),
              first("gotoURL.shtml?"));
    EXPECT_TRUE(eventually([&] {
        return content_of(house.unit_folder("Kitchen") / "page.html").find("RUNG<BR>911<BR>") !=
               std::string::npos;
    }));
    EXPECT_GT(house.state("Kitchen")["playing"]["seconds"], 0.3);
    EXPECT_EQ(modem->wait(), 0);
}

TEST(CallerId, AModemThatIsPulledOutIsToldOfOnceAndReadAgainWhenItIsBack) {
    CallerHouse house;
    house.map_serial_port("1", house.modem_path());
    const std::string record = "@ 1000\n###DATE01011230...NMBR5551234...NAMEFIRST+++\\r\\\n@ 500\n";
    auto modem = house.modem(record);
    house.start();
    EXPECT_TRUE(eventually([&] { return house.logged_calls().size() == 1; }));
    EXPECT_EQ(modem->wait(), 0) << "the line is gone";
    EXPECT_TRUE(eventually([&] {
        return std::ranges::count_if(house.log("zynVelora"), [](const std::string& line) {
                   return line.find("Comm Port 1 is gone") != std::string::npos;
               }) == 1;
    }));
    modem = house.modem("@ 1000\n###DATE01011231...NMBR5559999...NAMESECOND+++\\r\\\n@ 500\n");
    EXPECT_TRUE(
        eventually([&] { return house.logged_calls().size() == 2; }, std::chrono::seconds(60)));
    EXPECT_THAT(house.logged_calls(), ElementsAre("555-1234 : FIRST", "555-9999 : SECOND"));
    EXPECT_EQ(modem->wait(), 0);
}

TEST(CallerId, TheEchoWindowShowsTheLineAndSendsToIt) {
    constexpr const char* kF2 = "\x1BOQ";
    constexpr const char* kEscape = "\x1B";
    CallerHouse house;
    house.map_serial_port("1", house.modem_path());
    const auto modem = house.modem("@ 1000\nNMBR = 911\nNAME = SHOWN\n@ 30000\n");
    const auto has_got = [&modem](const std::string& bytes) {
        return eventually(
            [&] { return modem->out().find("program  " + bytes + "\n") != std::string::npos; });
    };
    house.start();
    TerminalProcess window({"modem", "--home", house.home().string()});
    EXPECT_TRUE(window.shows("the port is open"));
    EXPECT_TRUE(window.shows("NAME = SHOWN"));
    window.type("ATI3\r");
    EXPECT_TRUE(has_got("ATI3\\r\\n"));
    window.type(kF2);
    window.type("+++\r");
    EXPECT_TRUE(has_got("+++"));
    window.type(kEscape);
    EXPECT_EQ(window.wait(), 0);
}

// Sends datagrams to the daemon's port for clients as fast as the machine takes them, until told.
class Flood {
  public:
    explicit Flood(const std::string& port) : id_(::fork()) {
        if (id_ == 0) {
            send_for_ever(static_cast<std::uint16_t>(std::stoi(port)));
        }
    }

    Flood(const Flood&) = delete;
    Flood& operator=(const Flood&) = delete;

    ~Flood() {
        ::kill(id_, SIGKILL);
        ::waitpid(id_, nullptr, 0);
    }

  private:
    // Ends by itself after a bounded number, if nobody ends it before.
    [[noreturn]] static void send_for_ever(std::uint16_t port) {
        constexpr int kMost = 20'000'000;
        const int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        sockaddr_in place{};
        place.sin_family = AF_INET;
        place.sin_port = htons(port);
        place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const char kinds[] = {1, 2, 0, 'x'};
        for (int i = 0; i < kMost; ++i) {
            ::sendto(socket, &kinds[i % 4], 1, 0, reinterpret_cast<sockaddr*>(&place),
                     sizeof place);
        }
        std::_Exit(0);
    }

    pid_t id_;
};

TEST(CallerId, AFloodOfDatagramsLeavesTheHouseItsTurns) {
    CallerHouse house;
    house.set("CIDCommPort", "");
    house.start();
    const Flood flood(house.client_port());
    for (const char* mode : {"on", "blink", "off"}) {
        house.call({"VeloraTopLed", "Kitchen", mode});
        EXPECT_TRUE(house.shows("Kitchen", "top_led", mode)) << mode;
    }
    house.call({"VeloraSpeak", "Kitchen", "still here"});
    EXPECT_TRUE(eventually([&] { return house.state("Kitchen")["playing"]["seconds"] > 0.3; }));
}

}  // namespace
}  // namespace system_tests
