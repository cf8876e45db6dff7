#include <gtest/gtest.h>

#include "webserver/server_house.h"

namespace webserver {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class ResponsesTest : public testing::Test {
  protected:
    ResponsesTest() { house_.start(); }

    ServerHouse house_;
};

TEST_F(ResponsesTest, EachRequestGetsOneResponseAndTheConnectionCloses) {
    house_.set_file("\\page.htm", "<p>page</p>");
    house_.set_file("\\look.css", "p{}");
    house_.set_file("\\Sub\\Pic.jpg", std::string(1000, 'j'));
    const std::string body_404 = "<html><h1>404 File Not Found</h1></html>";
    const std::string to_host = "Connection: close\r\nContent-Type: text/html\r\nLocation: http://";

    const struct {
        std::string target, status_line, end;
    } rows[] = {
        {"/status?x=1", "HTTP/1.0 200 OK\r\n", "\r\n\r\nstatus form  end"},
        {"/VeloraSlideshow.asp", "HTTP/1.0 307 NoSupport\r\n",
         to_host + "10.0.0.2:80/VeloraSlideshow.asp\r\n"},
        {"/page.htm", "HTTP/1.0 200 OK\r\n", "\r\nContent-Length: 11\r\n\r\n<p>page</p>"},
        {"/look.css", "HTTP/1.0 200 OK\r\n", "\r\nContent-Length: 3\r\n\r\np{}"},
        {"/none.htm", "HTTP/1.1 200 Object Not Found\r\n", "\r\n\r\n" + body_404},
        {"/sub/pic.jpg", "HTTP/1.1 200 OK\r\n",
         "Content-Type: image/jpg\r\n\r\n" + std::string(1000, 'j')},
        {"/x.txt?a=1", "HTTP/1.0 307 NoSupport\r\n", to_host + "10.0.0.2:80/x.txt?a=1\r\n"},
        {"/", "HTTP/1.0 307 NoSupport\r\n", to_host + "10.0.0.2:80/\r\n"},
    };

    for (const auto& row : rows) {
        const std::string response = house_.exchange("GET " + row.target + " HTTP/1.0\r\n\r\n");
        EXPECT_THAT(response, AllOf(StartsWith(row.status_line), EndsWith(row.end))) << row.target;
    }
    EXPECT_EQ(house_.server().SocketsOpen(), 0);
    EXPECT_THAT(house_.log(), IsEmpty());
}

TEST_F(ResponsesTest, UnitsPostTheirFormAgain) {
    const std::string response =
        house_.exchange("POST /p.asp?q=1 HTTP/1.0\r\nUser-Agent: My VELORA 2\r\n\r\nname=it's&x=2");
    EXPECT_THAT(response, StartsWith("HTTP/1.0 200 OK\r\n"));
    EXPECT_THAT(response, HasSubstr("Location: http://10.0.0.2:80/p.asp?q=1\r\n"));
    EXPECT_THAT(response,
                EndsWith("\r\n\r\n<HTML><HEAD><SCRIPT LANGUAGE=\"JavaScript\">"
                         "function initialize() {document.redo.submit();}"
                         "</script></HEAD><body onLoad='initialize()'>"
                         "<form name='redo' action='http://10.0.0.2:80/p.asp' method='POSTx'>"
                         "<input type='hidden' name='q' value='1'>"
                         "<input type='hidden' name='name' value='it's'>"
                         "<input type='hidden' name='x' value='2'>"
                         "</form></HTML>"));
}

TEST_F(ResponsesTest, BinaryFileGoesInPaddedPiecesOfAThousandBytes) {
    house_.set_file("\\a.jpg", std::string(2500, 'x'));
    house_.start_debug_log();
    const std::string response = house_.exchange("GET /a.jpg HTTP/1.0\r\n\r\n");
    EXPECT_THAT(response, HasSubstr("Content-Length: 2500\r\n"));
    EXPECT_THAT(response, EndsWith("\r\n\r\n" + std::string(2500, 'x') + std::string(500, ' ')));
    EXPECT_THAT(house_.debug_lines(),
                Contains(">>>>>>>>>>> SendingBinaryData \\a.jpg to socket 1").Times(3));
}

TEST_F(ResponsesTest, EmptyBinaryFileIsAHeaderAlone) {
    house_.set_file("\\a.wav", "");
    EXPECT_THAT(house_.exchange("GET /a.wav HTTP/1.0\r\n\r\n"),
                EndsWith("Content-Length: 0\r\nConnection: Close\r\nContent-Type: audio/wav\r\n"
                         "\r\n"));
}

TEST_F(ResponsesTest, SilentClientGetsAPieceEveryFiveSecondsAndHoldsUpTheRest) {
    house_.set_file("\\a.jpg", std::string(3000, 'x'));
    house_.start_debug_log();
    auto& silent = house_.connect();
    silent.hold_back();
    silent.send("GET /a.jpg HTTP/1.0\r\n\r\n");
    auto& behind = house_.connect();
    behind.send("GET /status HTTP/1.0\r\n\r\n");
    const auto pieces = [&] {
        return std::ranges::count(house_.debug_lines(),
                                  ">>>>>>>>>>> SendingBinaryData \\a.jpg to socket 1");
    };
    std::vector<std::ptrdiff_t> pieces_gone;
    for (const auto moment : {4900ms, 5100ms, 9900ms, 10100ms}) {
        house_.after(moment, [&] { pieces_gone.push_back(pieces()); });
    }
    house_.after(10s, [&] { EXPECT_EQ(behind.received(), ""); });
    house_.run_for(11s);
    EXPECT_THAT(pieces_gone, ElementsAre(1, 2, 2, 3));
    EXPECT_THAT(behind.received(), StartsWith("HTTP/1.0 200 OK"));
}

TEST_F(ResponsesTest, PeerThatClosesEndsTheFile) {
    house_.set_file("\\a.jpg", std::string(100'000, 'x'));
    auto& client = house_.connect();
    client.hold_back();
    client.send("GET /a.jpg HTTP/1.0\r\n\r\n");
    house_.run_for(6s);
    client.close();
    house_.run_for(1s);
    EXPECT_EQ(house_.server().SocketsOpen(), 0);
    EXPECT_THAT(house_.exchange("GET /status HTTP/1.0\r\n\r\n"), EndsWith(" end"));
    EXPECT_THAT(house_.log(), IsEmpty());
}

TEST_F(ResponsesTest, MissingBinaryFileIsNotAnswered) {
    auto& client = house_.connect();
    client.send("GET /none.gif HTTP/1.0\r\n\r\n");
    house_.run_for(1min);
    EXPECT_EQ(client.received(), "");
    EXPECT_FALSE(client.closed());
    EXPECT_THAT(house_.log(), ElementsAre(StartsWith("TCPServer_SendBinaryFile \\none.gif Line ")));
    EXPECT_THAT(house_.exchange("GET /status HTTP/1.0\r\n\r\n"), EndsWith(" end"));
}

TEST_F(ResponsesTest, SocketsAboveNineteenGetNoFilesAndStayOpen) {
    house_.set_file("\\a.jpg", std::string(2000, 'x'));
    house_.connect_until(20);
    auto& text = house_.client(19);
    text.send("GET /status HTTP/1.0\r\n\r\n");
    house_.run_for(1min);
    EXPECT_THAT(text.received(), EndsWith(" end"));
    EXPECT_FALSE(text.closed());
    EXPECT_THAT(house_.log(), IsEmpty());

    text.send("GET /a.jpg HTTP/1.0\r\n\r\n");
    house_.run_for(1min);
    EXPECT_THAT(text.received(), EndsWith("Content-Type: image/jpg\r\n\r\n"));
    EXPECT_THAT(house_.log(), ElementsAre(AllOf(StartsWith("TCPServer_SendBinaryFile \\a.jpg Line"),
                                                EndsWith("Subscript out of range"))));
}

// The page function takes a while, during which the client goes away.
TEST_F(ResponsesTest, ClosedSocketGetsNoBytesButALineInTheDebugLog) {
    const auto leave_while_page_is_made = [&] {
        auto& client = house_.connect();
        house_.during_page = [&] {
            client.close();
            house_.instance().platform().pump.run_until([] { return false; }, 10ms);
        };
        client.send("GET /status HTTP/1.0\r\n\r\n");
        house_.run_for(1s);
    };
    leave_while_page_is_made();
    EXPECT_THAT(house_.log(), ElementsAre(AllOf(StartsWith("TCPSever_SendTextString  Line "),
                                                EndsWith("variable not set"))));
    house_.start_debug_log();
    leave_while_page_is_made();
    EXPECT_THAT(house_.debug_lines(),
                Contains("Unable to send TextString to socket 2 because State is 0"));
    EXPECT_THAT(house_.log(), SizeIs(1));
}

TEST_F(ResponsesTest, HandoverTurnsBackslashesInTheLocationOnly) {
    house_.start_debug_log();
    EXPECT_THAT(house_.exchange("GET /a\\b.asp?x=1 HTTP/1.0\r\n\r\n"),
                EndsWith("Location: http://10.0.0.2:80/a/b.asp?x=1\r\n"));
    EXPECT_THAT(house_.debug_lines(),
                Contains(">>>>>>>>>>> Redirect to location 10.0.0.2:80/a\\b.asp socket 1"));
}

TEST_F(ResponsesTest, ScriptsRefuseWithRedirect) {
    house_.with_response = [](Response& response) {
        std::vector<automation::Value> arguments{automation::Value("/unauthorized.asp")};
        response.call("Redirect", arguments);
        EXPECT_THROW(response.call("index"), automation::RunTimeError);
    };
    EXPECT_THAT(house_.exchange("GET /status HTTP/1.0\r\n\r\n"),
                HasSubstr("Content-Length: 31\r\n\r\n<HTML>Unauthorized Access<HTML>"));
}

}  // namespace
}  // namespace webserver
