#include "platform/beast/http_connection.h"

#include <algorithm>
#include <boost/asio/buffer.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/http/error.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/rfc7230.hpp>
#include <boost/beast/http/verb.hpp>
#include <boost/beast/http/write.hpp>
#include <exception>
#include <string_view>
#include <utility>

#include "host/pump.h"

namespace platform {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = boost::beast::http;

namespace {

constexpr unsigned int kNewestVersion = 11;
constexpr std::size_t kReadBytes = 4096;
constexpr std::size_t kPieceBytes = std::size_t{64} * 1024;
constexpr std::string_view kContinue = "HTTP/1.1 100 Continue\r\n\r\n";

// How long, and for how many bytes, a client that sends more than is wanted is heard, so that it
// finds the answer and not a connection that was reset.
constexpr std::chrono::seconds kLinger{2};
constexpr std::size_t kLateBytes = std::size_t{1024} * 1024;

std::string address_of(const asio::ip::tcp::socket& socket) {
    boost::system::error_code ignored;
    const asio::ip::address address = socket.remote_endpoint(ignored).address();
    if (address.is_v6() && address.to_v6().is_v4_mapped()) {
        return asio::ip::make_address_v4(asio::ip::v4_mapped, address.to_v6()).to_string();
    }
    return address.to_string();
}

// The status of a request that cannot be read; absent when there is nobody to tell it.
std::optional<std::int32_t> status_of(const boost::system::error_code& error) {
    if (error == http::error::header_limit || error == http::error::buffer_overflow) {
        return 431;
    }
    if (error == http::error::body_limit) {
        return 413;
    }
    const bool is_ours = error.category() == make_error_code(http::error::bad_target).category();
    if (!is_ours || error == http::error::end_of_stream || error == http::error::partial_message) {
        return std::nullopt;
    }
    return 400;
}

bool is_answered(http::verb method) {
    return method == http::verb::get || method == http::verb::head || method == http::verb::post;
}

}  // namespace

HttpConnection::HttpConnection(asio::ip::tcp::socket socket, const HttpLimits& limits,
                               std::weak_ptr<Owner> owner)
    : stream_(std::move(socket)),
      limits_(limits),
      owner_(std::move(owner)),
      remote_address_(address_of(stream_.socket())) {
    Error ignored;
    stream_.socket().set_option(asio::ip::tcp::no_delay(true), ignored);
}

HttpConnection::~HttpConnection() = default;

void HttpConnection::drop() noexcept {
    is_dropped_ = true;
    Error ignored;
    stream_.socket().close(ignored);
}

auto HttpConnection::then(void (HttpConnection::*step)(const Error&, std::size_t)) {
    return [self = shared_from_this(), step](const Error& error, std::size_t count) {
        if (!self->is_dropped_) {
            (self.get()->*step)(error, count);
        }
    };
}

// --- the request --------------------------------------------------------------------------------

// The bytes of a next request may have come with the present one.
void HttpConnection::wait_for_request() {
    if (buffer_.size() > 0) {
        read_header();
        return;
    }
    idle_since_ = std::chrono::steady_clock::now();
    stream_.expires_after(limits_.idle);
    stream_.async_read_some(buffer_.prepare(kReadBytes), then(&HttpConnection::on_first_bytes));
}

void HttpConnection::on_first_bytes(const Error& error, std::size_t count) {
    idle_since_.reset();
    if (error) {
        close();
        return;
    }
    buffer_.commit(count);
    read_header();
}

void HttpConnection::read_header() {
    stream_.expires_after(limits_.request);
    version_ = kNewestVersion;
    is_head_ = false;
    parser_.emplace();
    parser_->header_limit(static_cast<std::uint32_t>(limits_.header_bytes));
    parser_->body_limit(limits_.body_bytes);
    http::async_read_header(stream_, buffer_, *parser_, then(&HttpConnection::on_header));
}

void HttpConnection::on_header(const Error& error, std::size_t /*count*/) {
    if (error) {
        on_failed_read(error);
        return;
    }
    const auto& header = parser_->get();
    version_ = std::min(header.version(), kNewestVersion);
    is_head_ = header.method() == http::verb::head;
    if (!is_answered(header.method())) {
        refuse(405);
    } else if (beast::iequals(header[http::field::expect], "100-continue")) {
        asio::async_write(stream_, asio::buffer(kContinue), then(&HttpConnection::read_body));
    } else {
        read_body({}, 0);
    }
}

void HttpConnection::read_body(const Error& error, std::size_t /*count*/) {
    if (error) {
        close();
    } else {
        http::async_read(stream_, buffer_, *parser_, then(&HttpConnection::on_body));
    }
}

void HttpConnection::on_body(const Error& error, std::size_t /*count*/) {
    if (error) {
        on_failed_read(error);
    } else {
        answer();
    }
}

void HttpConnection::on_failed_read(const Error& error) {
    if (const auto status = status_of(error)) {
        refuse(*status);
    } else {
        close();
    }
}

// What else the client sends belongs to a request that is not understood.
void HttpConnection::refuse(std::int32_t status) {
    host::HttpResponse response = error_answer(status);
    if (status == 405) {
        response.add("Allow", "GET, HEAD, POST");
    }
    keeps_connection_ = false;
    send(std::move(response));
}

// --- the answer ---------------------------------------------------------------------------------

// The handler may pump: the connection may be dropped, and its owner end, before it returns.
void HttpConnection::answer() {
    const std::shared_ptr<HttpConnection> alive = shared_from_this();
    const std::shared_ptr<Owner> owner = owner_.lock();
    if (owner == nullptr) {
        return;
    }
    keeps_connection_ = parser_->get().keep_alive();
    stream_.expires_never();
    host::HttpResponse response;
    std::exception_ptr failure;
    try {
        host::HttpRequest request = plain_request(parser_->release());
        request.remote_address = remote_address_;
        response = owner->handler().answer(request);
    } catch (const host::PumpStopped&) {
        throw;
    } catch (...) {
        failure = std::current_exception();
        response = error_answer(500);
    }
    if (!is_dropped_) {
        send(std::move(response));
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
}

void HttpConnection::send(host::HttpResponse response) {
    file_rest_ = 0;
    if (response.file) {
        Error error;
        file_.open(response.file->path.c_str(), beast::file_mode::scan, error);
        if (!error) {
            file_.seek(response.file->begin, error);
        }
        if (error) {
            response = error_answer(404);
        }
    }
    header_ = answer_header(response, version_, keeps_connection_);
    const bool sends_body = !is_head_ && has_body(response.status);
    file_rest_ = sends_body && response.file ? response.file->size : 0;
    piece_ = sends_body && !response.file ? std::move(response.body) : std::string();
    piece_sent_ = 0;
    serializer_.emplace(header_);
    stream_.expires_after(limits_.write);
    http::async_write_header(stream_, *serializer_, then(&HttpConnection::on_header_sent));
}

void HttpConnection::on_header_sent(const Error& error, std::size_t /*count*/) {
    if (error) {
        close();
    } else {
        send_piece();
    }
}

// False when the file has become shorter: what was promised cannot be sent.
bool HttpConnection::fill_piece() {
    piece_.resize(static_cast<std::size_t>(std::min<std::uint64_t>(file_rest_, kPieceBytes)));
    Error error;
    const std::size_t count = file_.read(piece_.data(), piece_.size(), error);
    if (error || count == 0) {
        return false;
    }
    piece_.resize(count);
    piece_sent_ = 0;
    file_rest_ -= count;
    return true;
}

void HttpConnection::send_piece() {
    if (piece_sent_ == piece_.size() && file_rest_ > 0 && !fill_piece()) {
        close();
        return;
    }
    if (piece_sent_ < piece_.size()) {
        const std::size_t size = std::min(piece_.size() - piece_sent_, kPieceBytes);
        stream_.expires_after(limits_.write);
        stream_.async_write_some(asio::buffer(piece_.data() + piece_sent_, size),
                                 then(&HttpConnection::on_piece_sent));
        return;
    }
    Error ignored;
    file_.close(ignored);
    if (keeps_connection_) {
        wait_for_request();
    } else {
        linger();
    }
}

void HttpConnection::on_piece_sent(const Error& error, std::size_t count) {
    if (error) {
        close();
        return;
    }
    piece_sent_ += count;
    send_piece();
}

// --- the end ------------------------------------------------------------------------------------

void HttpConnection::linger() {
    Error ignored;
    stream_.socket().shutdown(asio::ip::tcp::socket::shutdown_send, ignored);
    stream_.expires_after(kLinger);
    buffer_.clear();
    on_late_bytes({}, 0);
}

void HttpConnection::on_late_bytes(const Error& error, std::size_t count) {
    late_bytes_ += count;
    if (error || late_bytes_ > kLateBytes) {
        close();
        return;
    }
    stream_.async_read_some(buffer_.prepare(kReadBytes), then(&HttpConnection::on_late_bytes));
}

void HttpConnection::close() {
    const std::shared_ptr<HttpConnection> alive = shared_from_this();
    drop();
    if (const auto owner = owner_.lock()) {
        owner->on_closed(alive);
    }
}

}  // namespace platform
