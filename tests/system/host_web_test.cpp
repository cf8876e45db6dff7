#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <regex>

#include "system/house_process.h"
#include "system/web_client.h"

// The host's own web server, and the way to it from the plug-in's.
namespace system_tests {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kFormPage =
    "<%= Request.ServerVariables(\"REQUEST_METHOD\") & \" \" & Request(\"name\") & \" \" & "
    "Request.QueryString(\"from\") & \" \" & Request.TotalBytes %>";

std::string header_of(const std::string& answer, const std::string& name) {
    std::smatch found;
    std::regex_search(answer, found, std::regex("\r\n" + name + ": ([^\r]*)"));
    return found.empty() ? "" : found[1].str();
}

std::string body_of(const std::string& answer) {
    const std::size_t end = answer.find("\r\n\r\n");
    return end == std::string::npos ? "" : answer.substr(end + 4);
}

class HostWeb : public testing::Test {
  protected:
    void write(const std::string& page, const std::string& content) const {
        std::ofstream(house_.home() / "HTML" / page, std::ios::binary) << content;
    }

    [[nodiscard]] std::string get(const std::string& target) const {
        return system_tests::get(house_.host_port(), target);
    }

    [[nodiscard]] static std::string ask(const std::string& port, const std::string& request) {
        WebClient client(port);
        client.send(request);
        return client.rest();
    }

    [[nodiscard]] std::string post(const std::string& port, const std::string& target,
                                   const std::string& body,
                                   const std::string& agent = "test") const {
        return ask(port, "POST " + target + " HTTP/1.0\r\nUser-Agent: " + agent +
                             "\r\nContent-Type: application/x-www-form-urlencoded\r\n"
                             "Content-Length: " +
                             std::to_string(body.size()) + "\r\n\r\n" + body);
    }

    // The place behind "http://127.0.0.1:port" of a location on the host's server.
    [[nodiscard]] std::string place_of(const std::string& location) const {
        const std::string start = "http://127.0.0.1:" + house_.host_port();
        EXPECT_THAT(location, StartsWith(start));
        return location.substr(std::min(start.size(), location.size()));
    }

    House house_{"Kitchen"};
};

TEST_F(HostWeb, ServesTheFilesOfTheHouseAndItsDevices) {
    house_.start();
    EXPECT_THAT(house_.daemon().out(),
                HasSubstr("host's web server http://127.0.0.1:" + house_.host_port() + "/"));
    EXPECT_THAT(get("/veloratestmessage.html"), StartsWith("HTTP/1.0 200 OK\r\n"));
    EXPECT_THAT(get("/../Config/settings.ini"), StartsWith("HTTP/1.0 404 Not Found\r\n"));
    EXPECT_THAT(get("/"),
                AllOf(StartsWith("HTTP/1.0 200 OK\r\n"),
                      HasSubstr("<td>kitchen</td><td>Velora Display</td>"),
                      HasSubstr("href=\"http://127.0.0.1:" + house_.server_port() + "/status\"")));
    write("bad.asp", "\n<% x = 1 / 0 %>");
    EXPECT_THAT(get("/bad.asp"), AllOf(StartsWith("HTTP/1.0 500 "),
                                       HasSubstr("/bad.asp, line 2: error 11, Division by zero")));
    EXPECT_THAT(house_.log("Web server"), Contains(HasSubstr("/bad.asp, line 2: error 11")));
}

TEST_F(HostWeb, ShowsTheSlideshow) {
    house_.start();
    EXPECT_THAT(get("/VeloraSlideshow.asp"),
                AllOf(StartsWith("HTTP/1.0 200 OK\r\n"), HasSubstr("<html>"),
                      HasSubstr("/VeloraSlideshow.asp")));
}

// What the plug-in's server does not serve arrives here, with its form.
TEST_F(HostWeb, TakesWhatThePluginsServerPassesOn) {
    house_.start();
    write("form.asp", kFormPage);
    const std::string to_start = system_tests::get(house_.server_port(), "/");
    EXPECT_THAT(get(place_of(header_of(to_start, "Location"))), HasSubstr("Velora Display"));

    const std::string body = "name=two+words";
    const std::string redirect = post(house_.server_port(), "/form.asp?from=here", body);
    EXPECT_THAT(redirect, StartsWith("HTTP/1.0 307 "));
    const std::string place = place_of(header_of(redirect, "Location"));
    EXPECT_EQ(body_of(post(house_.host_port(), place, body)), "POST two words here 14");
    EXPECT_EQ(body_of(post(house_.host_port(), place, "")), "POST  here 0");
    EXPECT_EQ(body_of(get(place)), "GET  here 0");
}

// A unit's browser gets the form as a page that posts itself.
TEST_F(HostWeb, TakesTheFormThatAUnitPostsAgain) {
    house_.start();
    write("form.asp", kFormPage);
    const std::string page =
        body_of(post(house_.server_port(), "/form.asp?from=unit", "name=Kitchen", "Velora"));
    std::smatch form;
    ASSERT_TRUE(std::regex_search(page, form, std::regex("action='([^']*)' method='([^']*)'")));
    std::string fields;
    const std::regex field("name='([^']*)' value='([^']*)'");
    for (std::sregex_iterator each(page.begin(), page.end(), field), end; each != end; ++each) {
        fields += (fields.empty() ? "" : "&") + (*each)[1].str() + "=" + (*each)[2].str();
    }
    const std::string place = place_of(form[1].str());
    // A browser takes the unknown method of such a form for a GET.
    EXPECT_EQ(form[2].str(), "POSTx");
    EXPECT_EQ(body_of(get(place + "?" + fields)), "GET Kitchen unit 0");
    EXPECT_EQ(body_of(post(house_.host_port(), place, fields)), "POST Kitchen  22");
}

TEST_F(HostWeb, ATakenPortDoesNotStopTheHouse) {
    House other{"Hall"};
    other.start();
    house_.start_unit("Kitchen");
    house_.take_host_port(other.host_port());
    house_.start_daemon();
    EXPECT_THAT(house_.daemon().out(), HasSubstr("no host's web server"));
    EXPECT_THAT(house_.log("Web server"),
                Contains(EndsWith("Address in use: 127.0.0.1:" + other.host_port())));
    house_.call({"VeloraTopLed", "Kitchen", "on"});
    EXPECT_TRUE(house_.shows("Kitchen", "top_led", "on"));
}

}  // namespace
}  // namespace system_tests
