#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "app/control_service.h"
#include "app/fake_plugin.h"
#include "home/embedded_host.h"
#include "home/home_layout.h"
#include "home/house_fakes.h"
#include "home/temporary_folder.h"

namespace app {

class Terminal : public AnswerSink {
  public:
    void send(const std::string& line) override {
        if (open) {
            lines.push_back(line);
        }
    }

    [[nodiscard]] bool is_open() const override { return open; }

    // The texts of the log lines that have come, and what else has.
    [[nodiscard]] std::vector<std::string> log() {
        std::vector<std::string> texts;
        for (const std::string& line : std::exchange(lines, {})) {
            const Json json = Json::parse(line);
            texts.push_back(json.contains("line") ? json["line"]["message"].get<std::string>()
                                                  : line);
        }
        return texts;
    }

    bool open = true;
    std::vector<std::string> lines;
};

// The service of a daemon with a home of its own, and a terminal that asks it. Commands to devices
// of the plug-in "fake" go to that.
class ServiceHouse : public testing::Test {
  protected:
    ServiceHouse() {
        host_.set_command_sink("fake", [this](const home::DeviceCommand& command) {
            plugin_.SetIO(0, command.house_code, command.device_code, 19, command.value, 0, 0);
        });
    }

    std::vector<std::string> ask(const std::string& line) {
        service_.take(line, terminal_);
        return std::exchange(terminal_->lines, {});
    }

    std::vector<std::string> ask_log(const std::string& line) {
        service_.take(line, terminal_);
        return terminal_->log();
    }

    TemporaryFolder folder_;
    PostedEvents pump_;
    StillClock clock_;
    home::EmbeddedHost host_{pump_, clock_, {.home = laid_out(folder_.path())}};
    FakePlugin plugin_;
    ControlService service_{plugin_, host_};
    std::shared_ptr<Terminal> terminal_ = std::make_shared<Terminal>();

  private:
    static std::filesystem::path laid_out(const std::filesystem::path& home) {
        home::lay_out_home(home, home / "Data", {});
        return home;
    }
};

// The answer to a request that failed.
inline std::string error_line(int number, const std::string& text) {
    return R"({"error":{"number":)" + std::to_string(number) + R"(,"text":")" + text + R"("}})";
}

}  // namespace app
