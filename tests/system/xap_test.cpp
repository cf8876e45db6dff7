#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <random>

#include "system/house_process.h"

namespace system_tests {
namespace {

using testing::HasSubstr;
using testing::Not;

// A port of UDP that nobody has, also not at the broadcast address.
std::string free_udp_port() {
    const int probe = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    socklen_t size = sizeof place;
    auto* const generic = reinterpret_cast<sockaddr*>(&place);
    const bool bound =
        ::bind(probe, generic, size) == 0 && ::getsockname(probe, generic, &size) == 0;
    ::close(probe);
    return bound ? std::to_string(ntohs(place.sin_port)) : "";
}

// A house whose units are on an xAP network of this machine, with the separate program.
class XapHouse : public House {
  public:
    XapHouse(std::initializer_list<std::string> units, const std::string& port,
             const std::string& instance)
        : House(units) {
        join_xap(port, instance);
        set("PushDelay", "1");
    }

    void start() {
        House::start();
        start_xap();
    }

    void send(const std::string& message_class, const std::string& target,
              std::vector<std::string> items) {
        std::vector<std::string> words{"xap-send", message_class, "--target", target};
        words.insert(words.end(), items.begin(), items.end());
        told(words);
    }

    // All that is said on the network from now on.
    std::unique_ptr<Process> monitor(const std::vector<std::string>& options = {}) {
        std::vector<std::string> words{"xap-monitor", "--home", home().string()};
        words.insert(words.end(), options.begin(), options.end());
        auto process = spawn(words);
        EXPECT_TRUE(eventually([&] { return process->out().find("listening") == 0; }))
            << process->err();
        return process;
    }
};

bool says(const Process& process, const std::string& text) {
    return eventually([&] { return process.out().find(text) != std::string::npos; });
}

TEST(Xap, UnitsShowSpeakAndBlinkForTheNetwork) {
    XapHouse house({"Kitchen", "Hall"}, free_udp_port(), "one");
    house.start();
    EXPECT_THAT(house.daemon().out(), HasSubstr("the units are left to \"zynvelora xap\""));
    EXPECT_THAT(house.xap().out(), HasSubstr("xAP hub at 127.0.0.1:"));
    const auto monitor = house.monitor({"--class", "xAPBSC.*"});

    house.send("xAP-OSD.Display", "zyn.zynVelora.Kitchen", {"Display.Velora.Text=Dinner is ready"});
    EXPECT_TRUE(eventually([&] {
        return content_of(house.unit_folder("Kitchen") / "page.html").find("Dinner is ready") !=
               std::string::npos;
    }));

    house.send("tts.speak", "zyn.zynVelora.hall", {"tts.speak.Say=Hello"});
    EXPECT_TRUE(eventually([&] { return house.state("Hall")["playing"]["seconds"] > 0.2; }));

    house.send("xAPBSC.cmd", "zyn.zynVelora.x:hall_topled.>",
               {"output.state.1.ID=*", "output.state.1.Level=2"});
    EXPECT_TRUE(house.shows("Hall", "top_led", "blink"));
    EXPECT_TRUE(says(*monitor, "xapBSC.Event  zyn.zynVelora.one:hall_TopLED.velora________14"));
    EXPECT_TRUE(says(*monitor, "Top LED Blinking"));

    house.send("xAPBSC.query", "zyn.zynVelora.x:hall_topled.>", {"request"});
    EXPECT_TRUE(says(*monitor, "xAPBSC.Info  zyn.zynVelora.one:hall_topled.velora________14"));
    EXPECT_THAT(monitor->out(), HasSubstr("values.3\n    Text   Blink Top LED\n    Level  2/2"));
    EXPECT_THAT(house.requests("Kitchen"), Not(testing::Contains(HasSubstr("loadWav"))));
    EXPECT_THAT(house.told({"status"}), HasSubstr("xAP-hosted"));
}

TEST(Xap, TwoNodesHearEachOtherAndTheHubIsReplacedWhenItIsKilled) {
    const std::string port = free_udp_port();
    XapHouse one({"Kitchen"}, port, "one");
    XapHouse two({"Hall"}, port, "two");
    one.start();
    two.start();
    EXPECT_THAT(one.xap().out(), HasSubstr("xAP hub at "));
    EXPECT_THAT(two.xap().out(), HasSubstr("by the hub at port " + port));

    // From either side, to the other one.
    two.send("tts.speak", "zyn.zynVelora.Kitchen", {"tts.speak.Say=one"});
    EXPECT_TRUE(eventually([&] { return one.state("Kitchen")["playing"]["seconds"] > 0.1; }));
    one.send("tts.speak", "zyn.zynVelora.Hall", {"tts.speak.Say=two"});
    EXPECT_TRUE(eventually([&] { return two.state("Hall")["playing"]["seconds"] > 0.1; }));

    one.xap().kill();
    EXPECT_TRUE(eventually([&] {  // until the other one is the hub
        two.send("xAPBSC.cmd", "z:hall_topled", {"output.state.1.ID=*", "output.state.1.Level=1"});
        return two.shows("Hall", "top_led", "on", std::chrono::milliseconds(500));
    }));
    one.start_xap();
    EXPECT_THAT(one.xap().out(), HasSubstr("by the hub at port " + port));
    EXPECT_TRUE(eventually([&] {
        one.send("xAPBSC.cmd", "z:kitchen_topled",
                 {"output.state.1.ID=*", "output.state.1.Level=1"});
        return one.shows("Kitchen", "top_led", "on", std::chrono::milliseconds(500));
    }));
}

// Sends datagrams to the network as any program may.
class Sender {
  public:
    explicit Sender(const std::string& port)
        : socket_(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
        const int on = 1;
        ::setsockopt(socket_, SOL_SOCKET, SO_BROADCAST, &on, sizeof on);
        place_.sin_family = AF_INET;
        place_.sin_port = htons(static_cast<std::uint16_t>(std::stoi(port)));
        place_.sin_addr.s_addr = ::inet_addr("127.255.255.255");
    }

    Sender(const Sender&) = delete;
    Sender& operator=(const Sender&) = delete;

    ~Sender() { ::close(socket_); }

    void send(const std::string& datagram) const {
        ::sendto(socket_, datagram.data(), datagram.size(), 0,
                 reinterpret_cast<const sockaddr*>(&place_), sizeof place_);
    }

  private:
    int socket_;
    sockaddr_in place_{};
};

TEST(Xap, AThousandMalformedDatagramsChangeNothing) {
    const std::string port = free_udp_port();
    XapHouse house({"Kitchen"}, port, "one");
    house.set("DebugLog", "1");
    house.start();
    const Json before = house.device("^4");
    const std::string good =
        "xap-header\n{\nv=12\nhop=1\nuid=FF123400\nclass=xAPBSC.cmd\nsource=a.b.c\n"
        "target=z:kitchen_topled\n}\noutput.state.1\n{\nID=*\nLevel=1\n}\n";
    std::mt19937 random(7);
    const Sender network(port);
    for (int i = 0; i < 1000; ++i) {
        std::string bad = good;
        bad.resize(random() % (bad.size() - 30));  // never as far as the body's last brace
        bad += static_cast<char>(random() % 256);
        network.send(bad);
    }
    EXPECT_TRUE(eventually([&] {
        house.send("tts.speak", "zyn.zynVelora.Kitchen", {"tts.speak.Say=one"});
        return house.state("Kitchen")["playing"]["seconds"] > 0.1;
    }));
    EXPECT_EQ(house.device("^4"), before);
    EXPECT_EQ(house.state("Kitchen")["top_led"], "off");
    const std::size_t lines = house.log("xAP Debug").size();
    EXPECT_GE(lines, 1U);
    EXPECT_LE(lines, 30U) << "one a second at most";
}

TEST(Xap, AFilteredMessageIsRecordedAndOutlivesTheProgram) {
    XapHouse house({"Kitchen"}, free_udp_port(), "one");
    house.append_settings(
        "; mine\n[Received]\nzyn.send.one~d.e=Doorbell;1\n[Devices]\nDoorbell=\n");
    house.start();
    house.send("d.e", "z", {"block.item=of the network"});
    EXPECT_TRUE(house.shows("Kitchen", "top_led", "blink")) << "by the script of a fresh home";
    EXPECT_EQ(house.xap().stop(), 0);
    EXPECT_THAT(house.settings(), HasSubstr("; mine\n[Received]\nzyn.send.one~d.e=Doorbell;1\n"));
    EXPECT_THAT(house.settings(), HasSubstr("doorbell.block.item=of the network"));
}

TEST(Xap, AHomeThatWantsNoNodeGetsNone) {
    House house({});
    const Outcome without = house.run({"xap", "--home", house.home().string()});
    EXPECT_EQ(without.exit_code, 1);
    EXPECT_THAT(without.err, HasSubstr("RunAsXapNode of zynVeloraUtilities.ini is empty"));
}

}  // namespace
}  // namespace system_tests
