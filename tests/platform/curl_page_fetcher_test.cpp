#include "platform/curl/curl_page_fetcher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "automation/run_time_error.h"
#include "platform/asio/asio_pump.h"
#include "platform/curl/page_load.h"
#include "platform/curl/page_url.h"
#include "platform/one_reply_server.h"

namespace platform {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

std::string page_with(const std::string& text) {
    return "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(text.size()) + "\r\n\r\n" + text;
}

class CurlFetch : public testing::Test {
  protected:
    std::unique_ptr<host::PageFetch> page(std::function<void()> on_complete = [] {}) {
        return fetcher_.create([this, on_complete](const std::string& url) {
            urls_.push_back(url);
            on_complete();
        });
    }

    [[nodiscard]] bool wait_for_events(std::size_t count) {
        return pump_.run_until([&] { return urls_.size() >= count; }, 10s);
    }

    // The server's thread wakes no pump: it is asked again after each millisecond of running.
    [[nodiscard]] bool run_until_served(const OneReplyServer& server) {
        constexpr int kSlices = 10'000;
        for (int slice = 0; slice < kSlices && !server.has_served(); ++slice) {
            (void)pump_.run_until([] { return false; }, 1ms);
        }
        return server.has_served();
    }

    // Whatever was under way before has come by the time that this page has come.
    void load_another_page() {
        OneReplyServer server(page_with("other"));
        const std::size_t before = urls_.size();
        const auto other = page();
        other->Navigate2(server.url("/other"));
        ASSERT_TRUE(pump_.run_until(
            [&] { return urls_.size() > before && urls_.back() == server.url("/other"); }, 10s));
        urls_.pop_back();
    }

    AsioPump pump_;
    CurlPageFetcher fetcher_{pump_};
    std::vector<std::string> urls_;
};

TEST_F(CurlFetch, PageOfAnyStatusAndShapeCompletes) {
    const struct {
        std::string what;
        std::string reply;
        std::string text;
    } rows[] = {
        {"length", page_with("<body>1</body>"), "1"},
        {"status 404", "HTTP/1.0 404 Not Found\r\n\r\nno", "no"},
        {"status 500 without body", "HTTP/1.1 500 Oops\r\nContent-Length: 0\r\n\r\n", ""},
        {"closed without length", "HTTP/1.1 200 OK\r\n\r\n<html>on", "on"},
        {"no header at all", "<html><body>old</body></html>", "old"},
        {"bare line feeds", "HTTP/1.0 200 OK\nServer: unit\n\nlf", "lf"},
        {"odd header lines", "HTTP/1.0 200 OK\r\nX Y : z\r\n folded\r\n:\r\n\r\nodd", "odd"},
        {"header line without colon", "HTTP/1.0 200 OK\r\nX\r\n\r\nlost", ""},
        {"code page 1252", page_with("caf\xE9"), "caf\xE9"},
        {"declared UTF-8",
         "HTTP/1.1 200 OK\r\nContent-Type: text/html; Charset=UTF-8\r\n\r\n\xC3\xA9\xFF", "\xE9?"},
    };

    std::size_t events = 0;
    for (const auto& row : rows) {
        OneReplyServer server(row.reply);
        const auto fetch = page();
        EXPECT_EQ(fetch->body_inner_text(), "");
        fetch->Navigate2(server.url("/a"));
        ASSERT_TRUE(wait_for_events(++events)) << row.what;
        EXPECT_EQ(urls_.back(), server.url("/a")) << row.what;
        EXPECT_EQ(fetch->body_inner_text(), row.text) << row.what;
    }
}

TEST_F(CurlFetch, LongPageCompletesWithItsBeginning) {
    OneReplyServer server("HTTP/1.0 200 OK\r\nContent-Length: 999999999\r\n\r\nbegin " +
                          std::string(kLongestBody, ' '));
    const auto fetch = page();
    fetch->Navigate2(server.url("/"));
    ASSERT_TRUE(wait_for_events(1));
    EXPECT_EQ(fetch->body_inner_text(), "begin");
}

TEST_F(CurlFetch, RedirectIsFollowed) {
    OneReplyServer target(page_with("here"));
    OneReplyServer origin("HTTP/1.1 301 Moved\r\nLocation: " + target.url("/b") + "\r\n\r\nthere");
    const auto fetch = page();
    fetch->Navigate2(origin.url("/a"));
    ASSERT_TRUE(wait_for_events(1));
    EXPECT_EQ(urls_.back(), target.url("/b"));
    EXPECT_EQ(fetch->body_inner_text(), "here");
}

TEST_F(CurlFetch, RedirectToNoWebPageIsAnAnswerToo) {
    OneReplyServer server("HTTP/1.1 302 Go\r\nLocation: file:///etc/passwd\r\n\r\n");
    const auto fetch = page();
    fetch->Navigate2(server.url("/"));
    ASSERT_TRUE(wait_for_events(1));
    EXPECT_EQ(fetch->body_inner_text(), "");
}

TEST_F(CurlFetch, FailedConnectionGivesNoEvent) {
    std::string refusing;
    { refusing = OneReplyServer("").url("/"); }
    OneReplyServer silent("");
    OneReplyServer breaking("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf");
    std::vector<std::unique_ptr<host::PageFetch>> fetches;
    for (const std::string& url : {refusing, silent.url("/"), breaking.url("/")}) {
        fetches.push_back(page());
        fetches.back()->Navigate2(url);
    }
    ASSERT_TRUE(run_until_served(silent) && run_until_served(breaking));
    load_another_page();
    EXPECT_TRUE(urls_.empty());
}

TEST_F(CurlFetch, DestroyedAndReplacedLoadsGiveNoEvent) {
    OneReplyServer never(OneReplyServer::Silence::KeepOpen);
    OneReplyServer late(OneReplyServer::Silence::KeepOpen);
    OneReplyServer wanted(page_with("wanted"));
    auto destroyed = page();
    destroyed->Navigate2(never.url("/never"));
    const auto replaced = page();
    replaced->Navigate2(late.url("/late"));
    ASSERT_TRUE(run_until_served(late));
    replaced->Navigate2(wanted.url("/wanted"));
    destroyed.reset();
    load_another_page();
    ASSERT_TRUE(wait_for_events(1));
    load_another_page();
    EXPECT_THAT(urls_, testing::ElementsAre(wanted.url("/wanted")));
    EXPECT_EQ(replaced->body_inner_text(), "wanted");
}

TEST_F(CurlFetch, ObjectMayGoWithinItsOwnEventWhileOthersRunOnTop) {
    OneReplyServer server(page_with("first"));
    std::unique_ptr<host::PageFetch> fetch;
    bool done = false;
    fetch = page([&] {
        if (!done) {
            done = true;
            fetch.reset();
            load_another_page();
        }
    });
    fetch->Navigate2(server.url("/"));
    ASSERT_TRUE(wait_for_events(1));
    EXPECT_TRUE(done);
    EXPECT_EQ(fetch, nullptr);
}

TEST_F(CurlFetch, RequestIsPlain) {
    OneReplyServer server(page_with(""));
    const auto fetch = page();
    fetch->Navigate2(server.url("/beep.shtml?0 5\r\nX: y"));
    ASSERT_TRUE(wait_for_events(1));
    EXPECT_THAT(server.request(), HasSubstr("GET /beep.shtml?0%205%0D%0AX:%20y HTTP/1.1\r\n"));
    EXPECT_THAT(server.request(), HasSubstr("User-Agent: zynVelora\r\n"));
}

TEST(PageUrl, HasASchemeAndNoCharacterOutsideAscii) {
    EXPECT_EQ(page_url("10.0.0.5/gotoURL.shtml?http://x/ \xE9"),
              "http://10.0.0.5/gotoURL.shtml?http://x/%20%E9");
    EXPECT_EQ(page_url("HTTPS://unit"), "HTTPS://unit");
    for (const char* text : {"", "ftp://unit/", "file:///etc/passwd", "about:blank", "http://",
                             "http://unit:99999/", "javascript:alert(1)"}) {
        EXPECT_THROW((void)page_url(text), automation::RunTimeError) << text;
    }
}

}  // namespace
}  // namespace platform
