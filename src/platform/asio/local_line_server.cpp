#include "platform/asio/local_line_server.h"

#include <boost/asio/local/stream_protocol.hpp>
#include <boost/system/system_error.hpp>
#include <set>
#include <utility>

#include "automation/run_time_error.h"
#include "platform/asio/accept_loop.h"
#include "platform/asio/asio_pump_internal.h"
#include "platform/asio/local_line_transfer.h"
#include "platform/asio/socket_errors.h"

namespace platform {

namespace asio = boost::asio;
using asio::local::stream_protocol;
using boost::system::error_code;

namespace {

stream_protocol::endpoint endpoint_of(const std::filesystem::path& path) {
    try {
        return {path.string()};
    } catch (const boost::system::system_error& error) {
        throw automation::RunTimeError(automation::ErrorNumber::DeviceIoError,
                                       error.code().message() + ": " + path.string());
    }
}

void remove_if_left_behind(asio::io_context& context, const stream_protocol::endpoint& endpoint) {
    stream_protocol::socket probe(context);
    error_code error;
    probe.connect(endpoint, error);
    if (error == asio::error::connection_refused) {
        std::error_code ignored;
        std::filesystem::remove(endpoint.path(), ignored);
    } else if (!error) {
        throw_if_failed(asio::error::address_in_use, endpoint.path());
    }
}

}  // namespace

bool LineConnection::is_open() const {
    const auto transfer = transfer_.lock();
    return transfer && transfer->is_open();
}

void LineConnection::send_line(std::string_view line) const {
    if (const auto transfer = transfer_.lock()) {
        transfer->send_line(line);
    }
}

void LineConnection::close() const {
    if (const auto transfer = transfer_.lock()) {
        transfer->close_when_sent();
    }
}

class LocalLineServer::Acceptor : public LocalLineTransfer::Owner {
  public:
    Acceptor(asio::io_context& context, LineEvents events)
        : context_(context),
          loop_(std::make_shared<Loop>(
              context, [this](stream_protocol::socket socket) { take_up(std::move(socket)); })),
          events_(std::move(events)) {}

    Acceptor(const Acceptor&) = delete;
    Acceptor& operator=(const Acceptor&) = delete;

    ~Acceptor() override { close(); }

    void open(const std::filesystem::path& path) {
        const auto endpoint = endpoint_of(path);
        remove_if_left_behind(context_, endpoint);
        loop_->bind(endpoint, path.string());
        path_ = path;
        // Nobody can connect before the call of listen.
        std::error_code file_error;
        std::filesystem::permissions(
            path, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write,
            file_error);
        throw_if_failed(file_error, path.string());
        loop_->listen(path.string());
    }

    void close() noexcept {
        loop_->close();
        for (const auto& transfer : transfers_) {
            transfer->drop();
        }
        transfers_.clear();
        if (!path_.empty()) {
            std::error_code file_error;
            std::filesystem::remove(std::exchange(path_, {}), file_error);
        }
    }

    void on_line(const std::shared_ptr<LocalLineTransfer>& transfer,
                 const std::string& line) override {
        events_.on_line(LineConnection(transfer), line);
    }

    void on_closed(const std::shared_ptr<LocalLineTransfer>& transfer) override {
        transfers_.erase(transfer);
        events_.on_closed(LineConnection(transfer));
    }

  private:
    using Loop = AcceptLoop<stream_protocol>;

    void take_up(stream_protocol::socket socket) {
        const auto transfer = std::make_shared<LocalLineTransfer>(std::move(socket), *this);
        transfers_.insert(transfer);
        transfer->start();
    }

    asio::io_context& context_;
    std::shared_ptr<Loop> loop_;
    LineEvents events_;
    std::filesystem::path path_;  // of the socket file, once it is ours
    std::set<std::shared_ptr<LocalLineTransfer>> transfers_;
};

LocalLineServer::LocalLineServer(AsioPump& pump, const std::filesystem::path& path,
                                 LineEvents events)
    : acceptor_(
          std::make_unique<Acceptor>(AsioPumpAccess::io_context_of(pump), std::move(events))) {
    acceptor_->open(path);
}

LocalLineServer::~LocalLineServer() {
    acceptor_->close();
}

}  // namespace platform
