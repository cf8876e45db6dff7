#pragma once

#include "webserver/page_functions.h"
#include "webserver/request.h"
#include "webserver/response.h"
#include "webserver/tcp_server.h"

namespace webserver {

// The embedded web server: it owns the connections and answers their requests one after the other,
// in the order of arrival. It generates two pages, serves files of five kinds, and hands all else
// over to the host's web server. Owned by the plug-in.
class TCPServerModule {
  public:
    // Both outlive the server. Nothing is opened before `server().Form_Load()`.
    TCPServerModule(core::Instance& instance, PageFunctions& pages);

    TCPServerModule(const TCPServerModule&) = delete;
    TCPServerModule& operator=(const TCPServerModule&) = delete;

    [[nodiscard]] TCPServer& server() noexcept { return server_; }

    [[nodiscard]] const TCPServer& server() const noexcept { return server_; }

    // Empties the request queue; the tick of `ServerTimer`. May pump, and then more packets may
    // come in and others vanish; it is never entered twice, since the timer rests meanwhile. After
    // a failure it ends with the timer at rest for good, unless `stalled_queue_restarts`.
    void ProcessRequestQueue();

  private:
    void serve(const QueuedPacket& packet);
    [[nodiscard]] std::string whole_post(const QueuedPacket& first);
    [[nodiscard]] bool has_packet_of(std::int16_t index);
    void gather_post_body(Request& request, std::int16_t index);
    void answer(const std::shared_ptr<Request>& request, std::int16_t index);
    [[nodiscard]] bool answered_by_page(const std::optional<std::string>& page, Response& response,
                                        std::int16_t index) const;
    void hand_over_to_host(const Request& request, Response& response, std::int16_t index);

    core::Instance& instance_;
    PageFunctions& pages_;
    TCPServer server_;
};

}  // namespace webserver
