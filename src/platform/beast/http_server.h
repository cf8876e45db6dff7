#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace host {
class HttpHandler;
}

namespace platform {

class AsioPump;

// What one client may ask of the server.
struct HttpLimits {
    static constexpr std::size_t kKibibyte = 1024;

    std::size_t header_bytes = 16 * kKibibyte;
    std::size_t body_bytes = 8 * kKibibyte * kKibibyte;
    std::size_t connections = 64;
    std::chrono::milliseconds idle{15'000};     // between two requests, and before the first
    std::chrono::milliseconds request{30'000};  // from a request's first byte to its last
    std::chrono::milliseconds write{30'000};    // for each piece of an answer
};

// A web server, HTTP/1.0 and 1.1, on the program's pump. Each request is read whole and handed to
// the handler as an event; a file goes out in pieces, so that the pump carries other events
// between them. A client that falls silent is dropped when its time is over, and one that reads
// no more when the present piece does not go. When all connections are taken, the one that has
// been idle for longest makes room; when all are busy, the new one is closed. Owned by the
// program; its end drops all connections.
class HttpServer {
  public:
    // Port 0 takes a free one. The pump and the handler outlive the server.
    // Throws: RunTimeError 10048 "Address in use: <address>:<port>", 57 when the address or port
    // cannot be used, 5 for something that is no address.
    HttpServer(AsioPump& pump, host::HttpHandler& handler, const std::string& address,
               std::int32_t port, HttpLimits limits = {});
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;
    ~HttpServer();

    [[nodiscard]] std::int32_t port() const;

  private:
    class Core;

    std::shared_ptr<Core> core_;  // shared with its own waits
};

}  // namespace platform
