#include "app/daemon.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <stdexcept>

#include "app/fake_plugin.h"
#include "app/home_path.h"
#include "home/temporary_folder.h"
#include "platform/asio/local_line_client.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using automation::RunTimeError;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

// A daemon with a plug-in that lives on in the hands of the test.
class DaemonTest : public testing::Test {
  protected:
    // The daemon owns what it carries, the test looks into it.
    class Carried : public host::Plugin {
      public:
        explicit Carried(FakePlugin& fake) : fake_(fake) {}

        [[nodiscard]] std::int32_t AccessLevel() override { return fake_.AccessLevel(); }

        [[nodiscard]] std::int32_t Capabilities() override { return fake_.Capabilities(); }

        [[nodiscard]] std::string Name() override { return fake_.Name(); }

        [[nodiscard]] std::string Version() override { return fake_.Version(); }

        void RegisterCallback(host::CallbackObject& callback) override {
            fake_.RegisterCallback(callback);
        }

        std::string InitIO(std::int32_t port) override { return fake_.InitIO(port); }

        void ShutdownIO() override { fake_.ShutdownIO(); }

        void SetIO(std::int32_t dv, const std::string& house_code, const std::string& device_code,
                   std::int16_t command, std::int16_t brightness, std::int16_t data1,
                   std::int16_t data2) override {
            fake_.SetIO(dv, house_code, device_code, command, brightness, data1, data2);
        }

        void SelectMenu(const std::string& entry) override { fake_.SelectMenu(entry); }

        void ButtonPress(const std::string& button) override { fake_.ButtonPress(button); }

        void TriggerAction(const std::string& action) override { fake_.TriggerAction(action); }

        [[nodiscard]] std::string ActionUIFormat(const std::string& action) override {
            return fake_.ActionUIFormat(action);
        }

        [[nodiscard]] std::shared_ptr<automation::Object> object() override {
            return fake_.object();
        }

        [[nodiscard]] host::PluginStatus status() const override { return fake_.status(); }

      private:
        FakePlugin& fake_;
    };

    [[nodiscard]] DaemonOptions options() const {
        return {.home = folder_.path() / "home", .data = data_path(nullptr), .protection = {}};
    }

    [[nodiscard]] PluginFactory factory() {
        return [this](const host::Platform& platform) {
            pump_ = &platform.pump;
            return std::make_unique<Carried>(plugin_);
        };
    }

    // A wait that only the end of the program ends.
    void stop_and_wait() {
        std::raise(SIGTERM);
        pump_->run_until([] { return false; }, 1min);
        ADD_FAILURE() << "the wait went on";
    }

    void run_and(const std::function<void()>& when_up) {
        Daemon daemon(options(), factory());
        daemon.run(when_up);
    }

    [[nodiscard]] std::vector<std::string> log() const {
        const platform::SystemClock clock;
        std::vector<std::string> lines;
        for (const auto& line :
             home::SqliteLog(options().home / "Data" / "log.db", clock).last(100)) {
            lines.push_back(line.type + ": " + line.message);
        }
        return lines;
    }

    TemporaryFolder folder_;
    FakePlugin plugin_;
    host::Pump* pump_ = nullptr;
};

TEST_F(DaemonTest, ASignalUnwindsACallThatWaitsAndShutsThePluginDown) {
    const auto socket = control_socket_path(options().home);
    std::optional<platform::LocalLineClient> client;
    plugin_.on_wait = [this] { stop_and_wait(); };
    plugin_.on_shutdown = [&] { EXPECT_FALSE(std::filesystem::exists(socket)); };
    run_and([&] {
        client.emplace(socket);
        client->send_line(R"({"do":"call","operation":"VeloraTag"})");
        client->send_line(R"({"do":"call","operation":"VeloraWait"})");
    });
    EXPECT_THAT(plugin_.calls, ElementsAre("RegisterCallback", "InitIO", "ShutdownIO"));
    EXPECT_EQ(client->read_line(1s), R"({"result":1.705547})");
    EXPECT_EQ(client->read_line(1s), std::nullopt);
}

TEST_F(DaemonTest, ASignalDuringTheStartShutsThePluginDown) {
    plugin_.on_init = [this] { stop_and_wait(); };
    run_and([] { FAIL() << "it never was up"; });
    EXPECT_THAT(plugin_.calls, ElementsAre("RegisterCallback", "InitIO", "ShutdownIO"));
}

TEST_F(DaemonTest, AShutdownThatWaitsOrFailsDoesNotHoldUpTheEnd) {
    for (const auto& ending : std::vector<std::function<void()>>{
             [this] { pump_->run_until([] { return false; }, 1min); },
             [] { throw RunTimeError(automation::ErrorNumber::DiskFull); }}) {
        plugin_.on_shutdown = ending;
        run_and([] { std::raise(SIGINT); });
    }
    EXPECT_THAT(log(), Contains("Daemon: Error in an event: Disk full"));
}

TEST_F(DaemonTest, AnErrorThatAnEventLetsThroughIsLoggedAndTheDaemonGoesOn) {
    run_and([this] {
        pump_->post([] { throw RunTimeError(automation::ErrorNumber::DiskFull); });
        pump_->post([] { throw std::logic_error("ours"); });
        pump_->post([] { std::raise(SIGTERM); });
    });
    EXPECT_THAT(log(), Contains("Daemon: Error in an event: Disk full"));
    EXPECT_THAT(log(), Contains("Daemon: Error in an event: ours"));
    EXPECT_THAT(plugin_.calls, Contains("ShutdownIO"));
}

// One event with an action of each kind, run from a terminal.
TEST_F(DaemonTest, WhatHappensInTheHouseReachesThePlugin) {
    plugin_.on_init = [this] {
        const auto device = plugin_.hs->GetDeviceByRef(plugin_.hs->NewDeviceRef("lamp"));
        host::DeviceFields fields = device->fields();
        fields.hc = "[";
        fields.dc = "4";
        fields.interface_name = "fake";
        device->set_fields(fields);
    };
    plugin_.on_wait = [] { std::raise(SIGTERM); };
    std::optional<platform::LocalLineClient> client;
    const auto run_event = [&] {
        client.emplace(control_socket_path(options().home));
        client->send_line(
            R"({"do":"add_event","name":"e","when":"at 07:00","actions":["set [4 = 3",)"
            R"("press a @ b","action Velora\\2x",)"
            R"("script &hs.WriteLog \"House\", 6 * CreateObject(\"zynVelora.hspi\").VeloraTag",)"
            R"("script &hs.Plugin(\"FAKE\").VeloraWait"]})");
        client->send_line(R"({"do":"run_event","name":"e"})");
    };
    run_and(run_event);
    EXPECT_THAT(plugin_.calls,
                ElementsAre("RegisterCallback", "InitIO", "SetIO [ 4 19 3", "ButtonPress a @ b",
                            "TriggerAction Velora\x02x", "ShutdownIO"));
    EXPECT_THAT(log(), Contains(HasSubstr("House: 10.23328")));
}

TEST_F(DaemonTest, AHomeHasOneDaemon) {
    const Daemon first(options(), factory());
    try {
        const Daemon second(options(), factory());
        FAIL() << "two daemons";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.description(), "The home " + options().home.string() +
                                           " is in use by process " + std::to_string(getpid()));
    }
}

TEST_F(DaemonTest, AStartThatFailsBehindThePluginShutsItDown) {
    std::filesystem::create_directories(control_socket_path(options().home) / "in the way");
    EXPECT_THROW(run_and([] {}), RunTimeError);
    EXPECT_THAT(plugin_.calls, Contains("ShutdownIO"));
}

TEST_F(DaemonTest, AFreshHomeIsCompleteAndReadsWithoutAComplaint) {
    plugin_.on_init = [this] {
        const std::string names =
            plugin_.hs->GetINISection("Velora Names", "zynVeloraUtilities.ini");
        EXPECT_EQ(std::ranges::count(names, '='), 3);
        for (const char* device : {"A1", "A2", "A3"}) {
            EXPECT_NE(names.find("," + std::string(device) + ","), std::string::npos);
            EXPECT_TRUE(plugin_.hs->isOn(device));
        }
        EXPECT_EQ(plugin_.hs->GetIniSetting("Velora Utilities", "ServerPort", "",
                                            "zynVeloraUtilities.ini"),
                  "8088");
        EXPECT_EQ(plugin_.hs->GetIniSetting("Settings", "svrport", "", "settings.ini"), "8081");
    };
    Daemon daemon(options(), factory());
    daemon.run([&] {
        EXPECT_THAT(daemon.summary(),
                    testing::MatchesRegex("home " + options().home.string() +
                                          ", web server http://127.0.0.1:8088/, .*, no units"));
        std::raise(SIGTERM);
    });
    EXPECT_THAT(log(), Not(Contains(testing::StartsWith("Settings:"))));
    for (const char* file : {"HTML/VeloraTest.wav", "HTML/VeloraTestMessage.HTML",
                             "HTML/links_touchscreen.htm", "Scripts/README.txt"}) {
        EXPECT_TRUE(std::filesystem::exists(options().home / file)) << file;
    }
}

}  // namespace
}  // namespace app
