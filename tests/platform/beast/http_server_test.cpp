#include "platform/beast/http_server.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <optional>
#include <stdexcept>
#include <vector>

#include "automation/run_time_error.h"
#include "home/temporary_folder.h"
#include "host/http.h"
#include "platform/beast/http_client.h"

namespace platform {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// Answers with what it was asked, or as the test says.
class Echo : public host::HttpHandler {
  public:
    host::HttpResponse answer(const host::HttpRequest& request) override {
        asked.push_back(request);
        const auto answer_with = answer_;
        return answer_with(request);
    }

    void answer_with(std::function<host::HttpResponse(const host::HttpRequest&)> answer) {
        answer_ = std::move(answer);
    }

    static host::HttpResponse text(const std::string& body) {
        host::HttpResponse response;
        response.add("Content-Type", "text/plain");
        response.body = body;
        return response;
    }

    std::vector<host::HttpRequest> asked;

  private:
    std::function<host::HttpResponse(const host::HttpRequest&)> answer_ =
        [](const host::HttpRequest& request) {
            return text(request.method + " " + request.target + " [" + request.body + "]");
        };
};

class HttpServerTest : public testing::Test {
  protected:
    void start(HttpLimits limits = {}) { server_.emplace(pump_, handler_, "127.0.0.1", 0, limits); }

    HttpClient client(int receive_buffer = 0) { return {pump_, server_->port(), receive_buffer}; }

    // The whole answer to one request, on a connection of its own.
    std::string ask(const std::string& request) {
        HttpClient one(pump_, server_->port());
        one.send(request);
        return one.rest();
    }

    std::size_t answered() const { return handler_.asked.size(); }

    AsioPump pump_;
    Echo handler_;
    std::optional<HttpServer> server_;
};

TEST_F(HttpServerTest, HandsARequestOverAndSendsTheAnswer) {
    start();
    EXPECT_THAT(ask("POST /a%20b?c=1 HTTP/1.1\r\nHost: h\r\nX-One: 1\r\nConnection: close\r\n"
                    "Content-Length: 4\r\n\r\nbody"),
                AllOf(StartsWith("HTTP/1.1 200 OK\r\n"), HasSubstr("Content-Type: text/plain\r\n"),
                      HasSubstr("Content-Length: 22\r\n"), HasSubstr("Date: "),
                      EndsWith("\r\n\r\nPOST /a%20b?c=1 [body]")));
    ASSERT_EQ(answered(), 1U);
    EXPECT_EQ(handler_.asked[0].remote_address, "127.0.0.1");
    EXPECT_EQ(handler_.asked[0].header("x-one"), "1");
    EXPECT_EQ(handler_.asked[0].header("x-two"), std::nullopt);
}

TEST_F(HttpServerTest, KeepsAConnectionAsBothSidesWant) {
    start();
    HttpClient keeping = client();
    keeping.send("GET /1 HTTP/1.1\r\n\r\n");
    EXPECT_THAT(keeping.read_until("]"), EndsWith("GET /1 []"));
    keeping.send("GET /2 HTTP/1.1\r\n\r\nGET /3 HTTP/1.1\r\n\r\n");
    EXPECT_THAT(keeping.read_until("GET /3 []"), HasSubstr("GET /2 []"));
    EXPECT_FALSE(keeping.is_closed());
    EXPECT_THAT(ask("GET /4 HTTP/1.0\r\n\r\n"), StartsWith("HTTP/1.0 200 OK\r\n"));
    EXPECT_THAT(ask("GET /5 HTTP/1.1\r\nConnection: close\r\n\r\n"), EndsWith("GET /5 []"));
}

TEST_F(HttpServerTest, AHeadGetsNoBody) {
    start();
    EXPECT_THAT(ask("HEAD / HTTP/1.1\r\nConnection: close\r\n\r\n"),
                AllOf(HasSubstr("Content-Length: 9\r\n"), EndsWith("\r\n\r\n")));
    handler_.answer_with([](const auto&) {
        host::HttpResponse response = Echo::text("not seen");
        response.status = 304;
        return response;
    });
    EXPECT_THAT(
        ask("GET / HTTP/1.1\r\nConnection: close\r\n\r\n"),
        AllOf(StartsWith("HTTP/1.1 304 "), Not(HasSubstr("Content-Length")), EndsWith("\r\n\r\n")));
}

struct Refused {
    const char* name;
    std::string request;
    const char* answer;
};

class RefusedRequest : public HttpServerTest, public testing::WithParamInterface<Refused> {};

INSTANTIATE_TEST_SUITE_P(
    Requests, RefusedRequest,
    testing::Values(
        Refused{"NoHttp", "hello\r\n\r\n", "HTTP/1.1 400 "},
        Refused{"LongHeader", "GET / HTTP/1.1\r\nX: " + std::string(20'000, 'x') + "\r\n\r\n",
                "HTTP/1.1 431 "},
        Refused{"LongBody",
                "POST / HTTP/1.1\r\nContent-Length: 9000000\r\n\r\n" + std::string(100'000, 'x'),
                "HTTP/1.1 413 "},
        Refused{"BadLength", "POST / HTTP/1.1\r\nContent-Length: x\r\n\r\n", "HTTP/1.1 400 "},
        Refused{"OtherMethod", "DELETE / HTTP/1.1\r\n\r\n", "HTTP/1.1 405 "}),
    [](const auto& row) { return row.param.name; });

TEST_P(RefusedRequest, IsToldWhyAndReachesNobody) {
    start();
    EXPECT_THAT(ask(GetParam().request),
                AllOf(StartsWith(GetParam().answer), HasSubstr("Connection: close\r\n")));
    EXPECT_EQ(answered(), 0U);
    EXPECT_THAT(ask("GET / HTTP/1.0\r\n\r\n"), EndsWith("GET / []")) << "and the next one is heard";
}

TEST_F(HttpServerTest, TellsAClientThatAsksToGoOn) {
    start();
    HttpClient asking = client();
    asking.send("POST / HTTP/1.1\r\nExpect: 100-continue\r\nContent-Length: 2\r\n\r\n");
    EXPECT_EQ(asking.read_until("\r\n\r\n"), "HTTP/1.1 100 Continue\r\n\r\n");
    asking.send("ab");
    EXPECT_THAT(asking.read_until("]"), EndsWith("POST / [ab]"));
}

TEST_F(HttpServerTest, SendsPartsOfFiles) {
    start();
    const TemporaryFolder folder;
    folder.write("a.bin", std::string(300'000, 'a') + "middle" + std::string(300'000, 'z'));
    const auto file = [&](std::uint64_t begin, std::uint64_t size) {
        return host::HttpFile{.path = folder.path() / "a.bin", .begin = begin, .size = size};
    };
    host::HttpResponse response;
    handler_.answer_with([&](const auto&) { return response; });
    response.file = file(300'000, 6);
    EXPECT_THAT(ask("GET / HTTP/1.0\r\n\r\n"),
                AllOf(HasSubstr("Content-Length: 6\r\n"), EndsWith("\r\n\r\nmiddle")));
    response.file = file(0, 600'006);
    EXPECT_THAT(ask("GET / HTTP/1.0\r\n\r\n"), EndsWith(folder.read("a.bin")));
    response.file = file(0, 700'000);
    EXPECT_THAT(ask("GET / HTTP/1.1\r\n\r\n"), EndsWith("zzz"))
        << "a file that has become shorter ends the connection";
    response.file = host::HttpFile{.path = folder.path() / "none", .begin = 0, .size = 1};
    EXPECT_THAT(ask("GET / HTTP/1.0\r\n\r\n"), StartsWith("HTTP/1.0 404 "));
}

TEST_F(HttpServerTest, AFailureOfTheHandlerIsAnsweredAndGoesOn) {
    start();
    handler_.answer_with([](const auto&) -> host::HttpResponse { throw std::logic_error("ours"); });
    HttpClient one = client();
    one.send("GET / HTTP/1.0\r\n\r\n");
    EXPECT_THROW(pump_.run_until([] { return false; }, 5s), std::logic_error);
    EXPECT_THAT(one.rest(), StartsWith("HTTP/1.0 500 "));
}

TEST_F(HttpServerTest, OthersAreServedWhileAHandlerWaits) {
    start();
    HttpClient waiting = client();
    std::string meanwhile;
    handler_.answer_with([&](const host::HttpRequest& request) {
        if (request.target == "/wait") {
            meanwhile = ask("GET /other HTTP/1.0\r\n\r\n");
        }
        return Echo::text(request.target);
    });
    waiting.send("GET /wait HTTP/1.0\r\n\r\n");
    EXPECT_THAT(waiting.rest(), EndsWith("\r\n\r\n/wait"));
    EXPECT_THAT(meanwhile, EndsWith("\r\n\r\n/other"));
}

TEST_F(HttpServerTest, ASilentClientIsDropped) {
    start({.idle = 20ms, .request = 20ms});
    EXPECT_EQ(client().rest(), "") << "has said nothing";
    HttpClient half = client();
    half.send("GET / HT");
    EXPECT_EQ(half.rest(), "");
    EXPECT_TRUE(half.is_closed());
    EXPECT_EQ(answered(), 0U);
}

TEST_F(HttpServerTest, AClientThatNeverReadsIsDropped) {
    start({.write = 50ms});
    const std::string large(20'000'000, 'x');
    handler_.answer_with([&](const auto&) { return Echo::text(large); });
    HttpClient deaf = client(4096);
    deaf.send("GET / HTTP/1.1\r\n\r\n");
    pump_.run_until([] { return false; }, 300ms);
    const std::string got = deaf.rest();
    EXPECT_TRUE(deaf.is_closed());
    EXPECT_LT(got.size(), large.size());
}

TEST_F(HttpServerTest, TheIdlestConnectionMakesRoom) {
    start({.connections = 2});
    HttpClient first = client();
    pump_.run_until([] { return false; }, 20ms);
    HttpClient second = client();
    pump_.run_until([] { return false; }, 20ms);
    HttpClient third = client();
    third.send("GET /3 HTTP/1.1\r\n\r\n");
    EXPECT_THAT(third.read_until("]"), EndsWith("GET /3 []"));
    EXPECT_EQ(first.rest(), "");
    EXPECT_TRUE(first.is_closed());
    second.send("GET /2 HTTP/1.1\r\n\r\n");
    EXPECT_THAT(second.read_until("]"), EndsWith("GET /2 []"));
}

TEST_F(HttpServerTest, WhenAllAreBusyTheNewOneIsClosed) {
    start({.connections = 1});
    HttpClient busy = client();
    busy.send("GET / HTTP/1.1\r\n");
    pump_.run_until([] { return false; }, 20ms);
    HttpClient next = client();
    EXPECT_EQ(next.rest(), "");
    busy.send("\r\n");
    EXPECT_THAT(busy.read_until("]"), EndsWith("GET / []"));
}

TEST_F(HttpServerTest, ItsEndDropsAllEvenWithinARequest) {
    start();
    HttpClient idle = client();
    HttpClient asking = client();
    handler_.answer_with([&](const auto&) {
        server_.reset();
        return Echo::text("late");
    });
    asking.send("GET / HTTP/1.1\r\n\r\n");
    EXPECT_EQ(asking.rest(), "");
    EXPECT_EQ(idle.rest(), "");
}

TEST_F(HttpServerTest, APlaceThatCannotBeUsedIsNamed) {
    start();
    const auto error_of = [&](const std::string& address, std::int32_t port) {
        try {
            const HttpServer other(pump_, handler_, address, port);
        } catch (const automation::RunTimeError& error) {
            return error.description();
        }
        return std::string("no error");
    };
    const std::string port = std::to_string(server_->port());
    EXPECT_EQ(error_of("127.0.0.1", server_->port()), "Address in use: 127.0.0.1:" + port);
    EXPECT_EQ(error_of("house", 80), "Invalid address: house");
    EXPECT_EQ(error_of("127.0.0.1", 70'000), "Not a port: 70000");
}

}  // namespace
}  // namespace platform
