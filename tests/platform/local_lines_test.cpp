#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "automation/run_time_error.h"
#include "platform/asio/asio_pump.h"
#include "platform/asio/local_line_client.h"
#include "platform/asio/local_line_server.h"

namespace platform {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::StartsWith;

constexpr auto kPatience = 5000ms;

class LocalLines : public testing::Test {
  protected:
    LocalLines() {
        std::string folder = testing::TempDir() + "linesXXXXXX";
        folder_ = mkdtemp(folder.data());
        path_ = folder_ / "control";
        start();
    }

    ~LocalLines() override {
        server_.reset();
        std::filesystem::remove_all(folder_);
    }

    void start() { server_.emplace(pump_, path_, events()); }

    LineEvents events() {
        return {.on_line =
                    [this](const LineConnection& connection, const std::string& line) {
                        trace_.push_back(line);
                        connection_ = connection;
                    },
                .on_closed = [this](const LineConnection&) { trace_.emplace_back("closed"); }};
    }

    void run_until_traced(std::size_t entries) {
        EXPECT_TRUE(pump_.run_until([&] { return trace_.size() >= entries; }, kPatience));
    }

    [[nodiscard]] static std::string error_text(const std::function<void()>& action) {
        try {
            action();
        } catch (const automation::RunTimeError& error) {
            return std::to_string(error.number()) + " " + error.description();
        }
        return "no error";
    }

    AsioPump pump_;
    std::filesystem::path folder_;
    std::filesystem::path path_;
    std::optional<LocalLineServer> server_;
    std::optional<LineConnection> connection_;
    std::vector<std::string> trace_;
};

TEST_F(LocalLines, LinesGoBothWaysUntilTheServerCloses) {
    LocalLineClient client(path_);
    client.send_line("one\ntwo");
    client.send_line("");
    run_until_traced(3);
    connection_->send_line("answer");
    connection_->send_line("end");
    connection_->close();
    run_until_traced(4);
    EXPECT_THAT(trace_, ElementsAre("one", "two", "", "closed"));
    EXPECT_EQ(client.read_line(kPatience), "answer");
    EXPECT_EQ(client.read_line(kPatience), "end");
    EXPECT_EQ(client.read_line(kPatience), std::nullopt);
    EXPECT_FALSE(connection_->is_open());
    connection_->send_line("too late");
}

TEST_F(LocalLines, TheClientMayLeaveOrLoseItsPatience) {
    std::optional<LocalLineClient> client(path_);
    client->send_line("last");
    EXPECT_THAT(error_text([&] { (void)client->read_line(1ms); }), StartsWith("57 "));
    client.reset();
    run_until_traced(2);
    EXPECT_THAT(trace_, ElementsAre("last", "closed"));
}

TEST_F(LocalLines, AnUnreadAnswerOrTooLongALineEndsTheConnection) {
    LocalLineClient sleeper(path_);
    sleeper.send_line("hello");
    run_until_traced(1);
    for (int line = 0; line < 6; ++line) {
        connection_->send_line(std::string(1'000'000, 'x'));
    }
    run_until_traced(2);

    std::string failure;
    std::jthread talker([&] {
        LocalLineClient client(path_);
        failure = error_text([&] { client.send_line(std::string(5'000'000, 'x')); });
    });
    run_until_traced(3);
    talker.join();
    EXPECT_THAT(failure, StartsWith("57 "));
    EXPECT_THAT(trace_, ElementsAre("hello", "closed", "closed"));
}

TEST_F(LocalLines, TheSocketFileIsPrivateAndLivesWithItsServer) {
    struct stat status {};

    ASSERT_EQ(stat(path_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    EXPECT_EQ(error_text([&] { LocalLineServer(pump_, path_, events()); }),
              "10048 Address in use: " + path_.string());

    const std::filesystem::path left_behind = folder_ / "left behind";
    std::filesystem::create_hard_link(path_, left_behind);
    server_.reset();
    EXPECT_FALSE(std::filesystem::exists(path_));
    EXPECT_EQ(error_text([&] { LocalLineClient client(path_); }),
              "57 No such file or directory: " + path_.string());
    std::filesystem::rename(left_behind, path_);
    EXPECT_EQ(error_text([&] { start(); }), "no error");
    LocalLineClient(path_).send_line("alive");
    run_until_traced(1);
    EXPECT_EQ(trace_.front(), "alive");
}

}  // namespace
}  // namespace platform
