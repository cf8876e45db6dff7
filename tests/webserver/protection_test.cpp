#include <gtest/gtest.h>

#include "webserver/server_house.h"

namespace webserver {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

constexpr std::string_view kStatusRequest = "GET /status HTTP/1.0\r\n\r\n";

TEST(FilesOnlyBelowHtml, RefusesPathsThatLeaveIt) {
    for (const bool is_protected : {false, true}) {
        ServerHouse house({.files_only_below_html = is_protected});
        house.start();
        house.set_file("\\..\\secret.htm", "secret");
        house.set_file("\\..\\secret.jpg", "secret");
        for (const char* target : {"/../secret.htm", "/%2E%2E/secret.jpg"}) {
            const auto response =
                house.exchange("GET " + std::string(target) + " HTTP/1.0\r\n\r\n");
            EXPECT_THAT(response, HasSubstr(is_protected ? "404 File Not Found" : "secret"))
                << target;
        }
    }
}

TEST(ListenerOutlivesOverload, HearsTheNextConnection) {
    ServerHouse house({.listener_outlives_overload = true});
    house.start();
    house.connect_until(50);
    EXPECT_TRUE(house.client(0).closed());
    EXPECT_FALSE(house.client(49).closed());
    EXPECT_TRUE(house.hears_a_new_connection());
    EXPECT_THAT(house.exchange(std::string(kStatusRequest)), EndsWith(" end"));
}

TEST(MissingBodyEndsTheWait, BothRequestsAreAnswered) {
    ServerHouse house({.missing_body_ends_the_wait = true});
    house.start();
    auto& post = house.connect();
    auto& other = house.connect();
    post.send("POST /status HTTP/1.0\r\n\r\n");
    other.send(kStatusRequest);
    house.run_for(1s);
    EXPECT_THAT(post.received(), EndsWith("status form  end"));
    EXPECT_THAT(other.received(), EndsWith("status form  end"));
}

TEST(StalledQueueRestarts, FailedRequestsConnectionIsClosedAndTheNextOneServed) {
    ServerHouse house({.stalled_queue_restarts = true});
    house.start();
    house.page_fails = true;
    auto& failed = house.connect();
    failed.send(kStatusRequest);
    auto& missing = house.connect();
    missing.send("GET /none.gif HTTP/1.0\r\n\r\n");
    house.run_for(1s);
    EXPECT_TRUE(failed.closed());
    EXPECT_TRUE(missing.closed());
    EXPECT_THAT(house.log(), ElementsAre(StartsWith("ProcessRequestQueue  Line "),
                                         StartsWith("TCPServer_SendBinaryFile \\none.gif Line ")));
    house.page_fails = false;
    EXPECT_THAT(house.exchange(std::string(kStatusRequest)), EndsWith(" end"));
}

// Packets of sockets that the overload has unloaded fail, one after the other.
TEST(StalledQueueRestarts, OutlivesPacketsOfVanishedSockets) {
    ServerHouse house({.listener_outlives_overload = true, .stalled_queue_restarts = true});
    house.start();
    house.connect_until(49);
    house.client(48).send(kStatusRequest);
    house.run_for(1ms);
    house.connect();
    house.run_for(1s);
    EXPECT_THAT(house.log(), ElementsAre(EndsWith("Control array element '49' doesn't exist")));
    EXPECT_THAT(house.exchange(std::string(kStatusRequest)), EndsWith(" end"));
}

TEST(EveryConnectionIsClosed, AboveTheGuardTimersToo) {
    ServerHouse house({.every_connection_is_closed = true});
    house.start();
    house.set_file("\\a.jpg", std::string(2000, 'x'));
    house.connect_until(21);
    house.client(19).send(kStatusRequest);
    house.client(20).send("GET /a.jpg HTTP/1.0\r\n\r\n");
    house.run_for(1s);
    EXPECT_THAT(house.client(19).received(), EndsWith(" end"));
    EXPECT_TRUE(house.client(19).closed());
    EXPECT_THAT(house.client(20).received(), EndsWith(std::string(2000, 'x')));
    EXPECT_TRUE(house.client(20).closed());
    EXPECT_THAT(house.log(), SizeIs(0));
}

TEST(PostsAreGatheredWhole, WhereverTheirPacketsEndAndWhoeverSendsBetweenThem) {
    const std::string header = "POST /status HTTP/1.0\r\nContent-length: 17\r\n\r\n";
    const std::string body = "first=%41&last=end";  // one more than is promised
    for (const std::size_t cut : {5, 30, 44, 45, 46, 52, 56, 61}) {
        ServerHouse house({.posts_are_gathered_whole = true});
        house.start();
        auto& post = house.connect();
        auto& other = house.connect();
        const std::string text = header + body.substr(0, 17);
        post.send(text.substr(0, cut));
        other.send(kStatusRequest);
        house.after(600ms, [&] { post.send(text.substr(cut)); });
        house.run_for(1s);
        EXPECT_THAT(post.received(), EndsWith("status form [first=A][last=en] end")) << cut;
        EXPECT_THAT(other.received(), EndsWith("status form  end")) << cut;
    }
}

TEST(PostsAreGatheredWhole, WhatDoesNotComeIsNotWaitedForLong) {
    ServerHouse house({.missing_body_ends_the_wait = true, .posts_are_gathered_whole = true});
    house.start();
    auto& post = house.connect();
    auto& gone = house.connect();
    post.send("POST /status HTTP/1.0\r\nContent-Length: 1E9\r\n\r\nkey=value");
    gone.send("POST /status HTTP/1.0\r\nContent-Length: 50\r\n\r\n");
    house.after(3s, [&] { gone.close(); });
    house.run_for(10s);
    EXPECT_THAT(post.received(), EndsWith("status form [key=value] end"));
    EXPECT_THAT(house.exchange(std::string(kStatusRequest)), EndsWith(" end"));
}

TEST(FormValuesKeepTheirMarks, InOnePacketAndInMore) {
    for (const bool is_protected : {false, true}) {
        ServerHouse house({.form_values_keep_their_marks = is_protected});
        house.start();
        const std::string_view form = is_protected ? "status form [a=b=c&d][e==][f=][%=%] end"
                                                   : "status form [a=b][d=][e=][f=][%=%][=] end";
        const std::string body = "a=b%3Dc%26d&e=%3D&f&%25=%25&&a=2";
        EXPECT_THAT(house.exchange("POST /status HTTP/1.0\r\n\r\n" + body), EndsWith(form));
        auto& client = house.connect();
        client.send("POST /status HTTP/1.0\r\n\r\n");
        client.send(body);
        house.run_for(1s);
        EXPECT_THAT(client.received(), EndsWith(form));
    }
}

TEST(StatusPage, WhoIsNotAdmittedGetsThe404Response) {
    ServerHouse house;
    house.start();
    house.admits = [](const Request& request) { return request.remoteip().empty(); };
    EXPECT_THAT(house.exchange(std::string(kStatusRequest)), HasSubstr("404 File Not Found"));
    house.set_file("\\page.htm", "page");
    EXPECT_THAT(house.exchange("GET /page.htm HTTP/1.0\r\n\r\n"), EndsWith("page"));
}

}  // namespace
}  // namespace webserver
