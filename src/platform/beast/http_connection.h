#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/file_posix.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/serializer.hpp>
#include <boost/beast/http/string_body.hpp>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "host/http.h"
#include "platform/beast/http_answer.h"
#include "platform/beast/http_server.h"

namespace platform {

// One client: reads a request, has it answered, sends the answer, and so on for as long as both
// sides keep the connection. Shared between the server and its own waits.
class HttpConnection : public std::enable_shared_from_this<HttpConnection> {
  public:
    // The server as its connections see it. Outlives every call.
    class Owner {
      public:
        virtual ~Owner() = default;
        [[nodiscard]] virtual host::HttpHandler& handler() = 0;
        virtual void on_closed(const std::shared_ptr<HttpConnection>& connection) = 0;
    };

    // `owner` is gone when the connection has been dropped.
    HttpConnection(boost::asio::ip::tcp::socket socket, const HttpLimits& limits,
                   std::weak_ptr<Owner> owner);
    HttpConnection(const HttpConnection&) = delete;
    HttpConnection& operator=(const HttpConnection&) = delete;
    ~HttpConnection();

    void start() { wait_for_request(); }

    // Ends the connection at once; the owner hears nothing of it.
    void drop() noexcept;

    // Since when it has waited for the first byte of a request; absent while it is busy.
    [[nodiscard]] std::optional<std::chrono::steady_clock::time_point> idle_since() const noexcept {
        return idle_since_;
    }

  private:
    using Error = boost::system::error_code;
    using Parser = boost::beast::http::request_parser<boost::beast::http::string_body>;
    using Serializer = boost::beast::http::response_serializer<boost::beast::http::empty_body>;

    // --- the request
    void wait_for_request();
    void on_first_bytes(const Error& error, std::size_t count);
    void read_header();
    void on_header(const Error& error, std::size_t count);
    void read_body(const Error& error, std::size_t count);
    void on_body(const Error& error, std::size_t count);
    void on_failed_read(const Error& error);
    void refuse(std::int32_t status);

    // --- the answer
    void answer();
    void send(host::HttpResponse response);
    void on_header_sent(const Error& error, std::size_t count);
    void send_piece();
    void on_piece_sent(const Error& error, std::size_t count);
    [[nodiscard]] bool fill_piece();

    // --- the end
    void linger();
    void on_late_bytes(const Error& error, std::size_t count);
    void close();

    // A completion handler that goes on with `step`, unless the connection has been dropped.
    [[nodiscard]] auto then(void (HttpConnection::*step)(const Error&, std::size_t));

    boost::beast::tcp_stream stream_;
    HttpLimits limits_;
    std::weak_ptr<Owner> owner_;
    std::string remote_address_;
    boost::beast::flat_buffer buffer_;
    std::optional<Parser> parser_;
    std::optional<std::chrono::steady_clock::time_point> idle_since_;
    bool is_dropped_ = false;
    unsigned int version_ = 0;  // of the present request, 10 or 11
    bool is_head_ = false;

    // The answer on its way.
    AnswerHeader header_;
    std::optional<Serializer> serializer_;
    std::string piece_;  // the body, or the present piece of the file
    std::size_t piece_sent_ = 0;
    boost::beast::file_posix file_;
    std::uint64_t file_rest_ = 0;  // bytes that are still to be read
    bool keeps_connection_ = false;
    std::size_t late_bytes_ = 0;
};

}  // namespace platform
