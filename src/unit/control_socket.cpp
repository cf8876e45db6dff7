#include "unit/control_socket.h"

#include <sys/stat.h>

#include <boost/asio.hpp>
#include <stdexcept>
#include <utility>

#include "unit/within.h"

namespace unit {
namespace {

namespace asio = boost::asio;
namespace fs = std::filesystem;
using asio::local::stream_protocol;

constexpr std::size_t kMostTasks = 17;
constexpr std::size_t kLongestLine = 4096;
constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

// Removes what a process that no longer lives left behind.
void remove_stale_socket(asio::io_context& loop, const fs::path& path) {
    if (fs::symlink_status(path).type() != fs::file_type::socket) {
        return;
    }
    stream_protocol::socket probe(loop);
    boost::system::error_code error;
    probe.connect(stream_protocol::endpoint(path.string()), error);
    if (error == asio::error::connection_refused) {
        fs::remove(path);
    } else if (!error) {
        throw std::runtime_error("a unit is already running in " + path.parent_path().string());
    }
}

}  // namespace

ControlSocket::ControlSocket(asio::io_context& loop, fs::path path, Handler handler)
    : path_(std::move(path)),
      handler_(std::move(handler)),
      acceptor_(loop),
      tasks_(loop.get_executor()) {
    try {
        remove_stale_socket(loop, path_);
        bind();
    } catch (const boost::system::system_error& error) {
        throw std::runtime_error("cannot use " + path_.string() + ": " + error.code().message());
    }
}

ControlSocket::~ControlSocket() {
    close();
}

void ControlSocket::bind() {
    const stream_protocol::endpoint endpoint(path_.string());
    acceptor_.open();
    // The file takes over the mode of the unbound socket, so that it is never open to others.
    if (::fchmod(acceptor_.native_handle(), kOwnerOnly) != 0) {
        throw std::runtime_error("cannot protect " + path_.string());
    }
    acceptor_.bind(endpoint);
    acceptor_.listen();
}

void ControlSocket::start() {
    tasks_.start(accept_connections());
}

void ControlSocket::close() noexcept {
    if (!acceptor_.is_open()) {
        return;
    }
    boost::system::error_code ignored;
    acceptor_.close(ignored);
    std::error_code also_ignored;
    fs::remove(path_, also_ignored);
    tasks_.cancel_all();
}

asio::awaitable<void> ControlSocket::accept_connections() {
    for (;;) {
        auto [error, socket] = co_await acceptor_.async_accept(kAsTuple);
        if (error == asio::error::operation_aborted || !acceptor_.is_open()) {
            co_return;
        }
        if (error) {
            asio::steady_timer pause(acceptor_.get_executor(), kAcceptPause);
            co_await pause.async_wait(asio::use_awaitable);
        } else if (tasks_.size() < kMostTasks) {
            tasks_.start(serve(std::move(socket)));
        }
    }
}

asio::awaitable<void> ControlSocket::serve(Protocol::socket socket) {
    std::string received;
    for (;;) {
        const auto [read_error, length] = co_await within(
            kIdleLimit, asio::async_read_until(socket, asio::dynamic_buffer(received, kLongestLine),
                                               '\n', kAsTuple));
        if (read_error) {
            co_return;
        }
        const std::string answer =
            handler_(std::string_view{received}.substr(0, length - 1)) + "\n";
        received.erase(0, length);
        const auto [write_error, written] =
            co_await within(kIdleLimit, asio::async_write(socket, asio::buffer(answer), kAsTuple));
        if (write_error) {
            co_return;
        }
    }
}

}  // namespace unit
