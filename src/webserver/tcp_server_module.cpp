#include "webserver/tcp_server_module.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "automation/guarded.h"
#include "webserver/failed_request.h"
#include "webserver/request_text.h"
#include "webserver/routing.h"

namespace webserver {

namespace {

QueuedPacket take_oldest(std::deque<QueuedPacket>& queue) {
    QueuedPacket oldest = std::move(queue.front());
    queue.pop_front();
    return oldest;
}

}  // namespace

TCPServerModule::TCPServerModule(core::Instance& instance, PageFunctions& pages)
    : instance_(instance), pages_(pages), server_(instance, [this] { ProcessRequestQueue(); }) {}

void TCPServerModule::ProcessRequestQueue() {
    server_.ServerTimer().set_interval(std::chrono::milliseconds::zero());
    while (!server_.RequestQueue().empty()) {
        const QueuedPacket packet = take_oldest(server_.RequestQueue());
        FailedRequest failed(instance_, server_, packet.socket);
        const bool served = automation::guarded(failed, "ProcessRequestQueue ", [&] {
            serve(packet);
            return true;
        });
        if (!served && !instance_.platform().protection.stalled_queue_restarts) {
            return;
        }
    }
    server_.ServerTimer().set_enabled(false);
}

void TCPServerModule::serve(const QueuedPacket& packet) {
    const host::Protection& protection = instance_.platform().protection;
    const auto request = std::make_shared<Request>(
        instance_.log, server_.debug_log(), server_.Socket(0).RemoteHostIP(),
        protection.form_values_keep_their_marks ? FormReading::SplitFirst
                                                : FormReading::DecodedFirst);
    request->set_remoteip(server_.Socket(packet.socket).RemoteHostIP());
    request->ParsePage(protection.posts_are_gathered_whole ? whole_post(packet) : packet.packet);
    if (request->Method() == "POST") {
        gather_post_body(*request, packet.socket);
    }
    answer(request, packet.socket);
}

// The packet with those that follow it, as far as they come in time. Whoever sends slowly holds up
// the requests behind, as a file does that goes out slowly.
std::string TCPServerModule::whole_post(const QueuedPacket& first) {
    constexpr std::chrono::seconds kLongestPause{2};
    std::string post = first.packet;
    while (lacks_more_of_post(post)) {
        instance_.platform().pump.run_until(
            [&] { return has_packet_of(first.socket) || !server_.is_connected(first.socket); },
            kLongestPause);
        if (!has_packet_of(first.socket)) {
            break;
        }
        const auto next =
            std::ranges::find(server_.RequestQueue(), first.socket, &QueuedPacket::socket);
        post += next->packet;
        server_.RequestQueue().erase(next);
    }
    return post;
}

bool TCPServerModule::has_packet_of(std::int16_t index) {
    return std::ranges::count(server_.RequestQueue(), index, &QueuedPacket::socket) > 0;
}

// Takes the packets that stand next in the queue. As designed, a packet of another connection at
// its head keeps this loop turning for ever.
void TCPServerModule::gather_post_body(Request& request, std::int16_t index) {
    std::deque<QueuedPacket>& queue = server_.RequestQueue();
    while (!queue.empty()) {
        server_.debug_log().debug(
            [&] { return "Poping socket for post data for socket " + std::to_string(index); });
        const std::int16_t other = queue.front().socket;
        if (other == index) {
            request.AddPostData(take_oldest(queue).packet);
            continue;
        }
        server_.debug_log().debug([&] {
            return "Post data expected from socket " + std::to_string(index) +
                   " but next packet was from socket " + std::to_string(other);
        });
        if (instance_.platform().protection.missing_body_ends_the_wait) {
            return;
        }
    }
}

void TCPServerModule::answer(const std::shared_ptr<Request>& request, std::int16_t index) {
    const auto response = std::make_shared<Response>(instance_, server_);
    const std::string page = routing_page(request->page());
    const Route route = route_of(page);
    server_.debug_log().debug([&] {
        return "Poping socket " + std::to_string(index) + " type=" + route.type + " for page " +
               page;
    });
    response->set_index(index);
    switch (route.destination) {
        case Destination::SlideshowPage:
            if (answered_by_page(pages_.VeloraSlideshowASP(*request, *response), *response,
                                 index)) {
                return;
            }
            break;
        case Destination::StatusPage:
            if (!pages_.admits_to_status(*request)) {
                response->SendErrorResponse(index);
                return;
            }
            if (answered_by_page(pages_.StatusPage(*request, *response), *response, index)) {
                return;
            }
            break;
        case Destination::BinaryFile:
            response->SendBinaryFile(route.file, index);
            return;
        case Destination::TextFile:
            response->SendTextFile(route.file, index);
            return;
        case Destination::Host:
            break;
    }
    hand_over_to_host(*request, *response, index);
}

bool TCPServerModule::answered_by_page(const std::optional<std::string>& page, Response& response,
                                       std::int16_t index) const {
    if (page) {
        response.SendTextString(*page, index);
    }
    return page.has_value();
}

void TCPServerModule::hand_over_to_host(const Request& request, Response& response,
                                        std::int16_t index) {
    server_.debug_log().debug(
        [&] { return "User Agent " + request.server_variable("http_user_agent"); });
    response.RedirectToHS(instance_.settings.HomeseerIP + ":" + instance_.settings.HomeseerPort,
                          request, index);
}

}  // namespace webserver
