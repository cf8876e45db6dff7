#include "webserver/request.h"

#include <gtest/gtest.h>

#include "webserver/request_text.h"
#include "webserver/server_house.h"

namespace webserver {
namespace {

class RequestTest : public testing::Test {
  protected:
    [[nodiscard]] std::shared_ptr<Request> parsed(const std::string& packet) {
        auto request = std::make_shared<Request>(house_.instance().log, house_.server().debug_log(),
                                                 "10.0.0.7");
        request->ParsePage(packet);
        return request;
    }

    ServerHouse house_;
};

std::string pairs_of(const ParameterCollection& collection) {
    std::string text;
    for (const KeyValuePair& pair : collection) {
        text += "[" + pair.key + "|" + pair.value + "]";
    }
    return text;
}

TEST_F(RequestTest, TakesThePacketApart) {
    const struct {
        std::string packet;
        std::string method, page, query, header, payload;
    } rows[] = {
        {"GET /status HTTP/1.0", "GET", "/status", "", "HTTP/1.0", ""},
        {"GET /a?b=1 HTTP/1.1\r\nHost: h\r\n\r\n", "GET", "/a", "?b=1", "HTTP/1.1\r\nHost: h", ""},
        {"GET /a%20b%3Fc%3D1+2 HTTP/1.1\r\n\r\n", "GET", "/a b", "?c=1 2", "HTTP/1.1", ""},
        {"GET /a  HTTP/1.0", "GET", "/a ", "", "HTTP/1.0", ""},
        {"GET /a http/1.0", "GET", "/a", "", "http/1.0", ""},
        {"GET /http/x HTTP/1.0", "GET", "", "", "http/x HTTP/1.0", ""},
        {"POST /p HTTP/1.0\r\n\r\n", "POST", "/p", "", "HTTP/1.0", ""},
        {"POST /p HTTP/1.0\r\n\r\nab", "POST", "/p", "", "HTTP/1.0", ""},
        {"POST /p HTTP/1.0\r\n\r\na=b", "POSTx", "/p", "", "HTTP/1.0", "a=b"},
        {"POST /p HTTP/1.0\r\n\r\n\r\na", "POSTx", "/p", "", "HTTP/1.0", "a"},
        {"PUT /p HTTP/1.0\r\n\r\na=b\r\nc", "PUT", "/p", "", "HTTP/1.0", "a=bc"},
        {"GET /no-protocol", "GET", "", "", "", ""},
        {"no_blank", "", "", "", "", ""},
        {"", "", "", "", "", ""},
    };

    for (const auto& row : rows) {
        const auto request = parsed(row.packet);
        EXPECT_EQ(request->Method(), row.method) << row.packet;
        EXPECT_EQ(request->page(), row.page) << row.packet;
        EXPECT_EQ(request->Query(), row.query) << row.packet;
        EXPECT_EQ(request->Header(), row.header) << row.packet;
        EXPECT_EQ(request->Payload(), row.payload) << row.packet;
    }
    EXPECT_THAT(house_.log(), testing::IsEmpty());
}

TEST_F(RequestTest, SplitsParametersWithTheFirstOfAKeyWinning) {
    constexpr struct {
        const char* query;
        const char* pairs;
    } kRows[] = {
        {"a=1&a=2&A=3", "[a|1]"},     {"a=b=c", "[a|b]"}, {"a=%26b", "[a|][b|]"},
        {"a+b=%2B&c", "[a b|+][c|]"}, {"x=%2f", "[x| ]"}, {"", ""},
    };

    for (const auto& row : kRows) {
        const auto request = parsed("GET /p?" + std::string(row.query) + " HTTP/1.0");
        EXPECT_EQ(pairs_of(request->QueryStringCol()), row.pairs) << row.query;
    }
}

TEST_F(RequestTest, FindsHeaderLinesByName) {
    const auto request = parsed(
        "GET / HTTP/1.0\r\nUser-Agent: Velora 1\r\nX: one\r\nx: two\r\nBad: a: b\r\nNone:\r\n\r\n");
    EXPECT_EQ(request->server_variable("HTTP_USER_AGENT"), "Velora 1");
    EXPECT_EQ(request->server_variable("user-agent"), "Velora 1");
    EXPECT_EQ(request->server_variable("X"), "one");
    EXPECT_EQ(request->server_variable("remote_addr"), "10.0.0.7");
    EXPECT_TRUE(request->ServerVariables("Bad").is_empty());
    EXPECT_TRUE(request->ServerVariables("PATH_INFO").is_empty());
    EXPECT_TRUE(parsed("GET / no protocol")->ServerVariables("REMOTE_ADDR").is_empty());
}

TEST_F(RequestTest, ReportsARequestLineWithoutAPath) {
    const auto request = parsed("GET HTTP/1.0\r\nX: 1\r\n\r\n");
    EXPECT_EQ(request->Method(), "GET");
    EXPECT_TRUE(request->ServerVariables("X").is_empty());
    EXPECT_THAT(house_.log(),
                testing::ElementsAre(testing::StartsWith(
                    "ParsePage i=4,j=5,len=22, Data=GET HTTP/1.0\r\nX: 1\r\n\r\n Line ")));
}

TEST_F(RequestTest, ScriptsSeeItsMembers) {
    const auto request = parsed("GET /p?a=1 HTTP/1.0\r\n\r\n");
    request->AddPostData("b=2&c=x+y");
    std::vector<automation::Value> key{automation::Value("C")};
    EXPECT_EQ(request->call("form", key), automation::Value("x y"));
    key = {automation::Value("missing")};
    EXPECT_EQ(request->call("QueryString", key), automation::Value(""));
    EXPECT_EQ(request->call("PAGE"), automation::Value("/p"));
    request->let("remoteip", automation::Value("1.2.3.4"));
    EXPECT_THROW(request->call("remoteip"), automation::RunTimeError);
    EXPECT_EQ(request->GetContent("h\r\n\r\nbody"), "ody");
    EXPECT_EQ(request->GetContent("h\r\n\r\n"), "");
    EXPECT_EQ(request->GetContent("h"), "");
}

TEST_F(RequestTest, TracesItsStepsWhileTheDebugLogIsOn) {
    house_.start_debug_log();
    const auto request = parsed("POST /p?q=1 HTTP/1.0\r\n\r\na=%41");
    EXPECT_EQ(request->Form("A"), "A");
    EXPECT_THAT(house_.debug_lines(),
                testing::ElementsAre("Decode % detected at 0 in string </p?q=1>", "AddQuery ",
                                     "KeyValue q = 1", "Decode % detected at 3 in string <a=%41>",
                                     "AddPayload", "KeyValue a = A", "Form A=A"));
}

TEST(Decode, UndoesTheCodingTolerantly) {
    constexpr struct {
        std::string_view coded;
        std::string_view text;
    } kRows[] = {
        {"a+b", "a b"},   {"%41%2B", "A+"},   {"%2f", " "},   {"%E9", "\xE9"},  {"%FF", "\xFF"},
        {"%00%0D", "  "}, {"%G1x", " x"},     {"%4gx", "?x"}, {"100%", "100 "}, {"%4", "?"},
        {"%%41", " 1"},   {"plain", "plain"}, {"", ""},
    };

    for (const auto& row : kRows) {
        EXPECT_EQ(decoded(row.coded), row.text) << row.coded;
    }
}

}  // namespace
}  // namespace webserver
