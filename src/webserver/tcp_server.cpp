#include "webserver/tcp_server.h"

#include <algorithm>

#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "host/files.h"

namespace webserver {

using automation::ErrorNumber;
using automation::RunTimeError;
using host::SocketState;

namespace {

constexpr std::int16_t kFirstConnections = 5;  // indices 1 to 5 are loaded from the start
constexpr std::int16_t kSpareSockets = 4;
constexpr std::int16_t kOverload = 49;
constexpr std::chrono::milliseconds kBurst{50};  // lets a body catch up with its header

constexpr std::int32_t kNoSuchElement = 340;
constexpr std::int32_t kAlreadyLoaded = 360;

// Runs `step` with its failure passed over, and nothing of it left for the next log line.
template <typename Step>
void without_report(core::VeloraLog& log, Step&& step) {
    core::ignoring_errors(log, std::forward<Step>(step));
    log.clear_pending();
}

}  // namespace

// One socket of the array, with its events and what it is in the middle of sending.
class TCPServer::Element final : public host::TcpSocketEvents {
  public:
    Element(TCPServer& server, std::int16_t index)
        : server_(server),
          index_(index),
          socket_(server.instance_.platform().network.make_tcp_socket(*this)) {}

    [[nodiscard]] host::TcpSocket& socket() const noexcept { return *socket_; }

    SendTag tag = SendTag::LastSend;

    void ConnectionRequest(host::ConnectionRequestId request) override {
        server_.socket_ConnectionRequest(request);
    }

    void DataArrival(std::int32_t bytes_total) override {
        server_.socket_DataArrival(index_, bytes_total);
    }

    void Close() override { server_.socket_Close(index_); }

    void SendComplete() override {
        without_report(server_.instance_.log, [&] { server_.Socket_SendComplete(index_); });
    }

  private:
    TCPServer& server_;
    std::int16_t index_;
    std::unique_ptr<host::TcpSocket> socket_;
};

TCPServer::TCPServer(core::Instance& instance, std::function<void()> process_request_queue)
    : instance_(instance),
      debug_log_(instance),
      send_done_(kHighestIndex + 1),
      server_timer_(instance.platform().pump.make_timer(std::move(process_request_queue))) {
    const std::size_t guards = instance.platform().protection.every_connection_is_closed
                                   ? send_done_.size()
                                   : kGuardTimerCount;
    for (std::size_t index = 0; index < guards; ++index) {
        guard_timers_.push_back(instance.platform().pump.make_timer([this, index] {
            guard_timers_[index]->set_enabled(false);
            send_done_[index] = true;
        }));
    }
}

TCPServer::~TCPServer() = default;

// --- life ---------------------------------------------------------------------------------------

void TCPServer::Form_Load() {
    automation::guarded(instance_.log, "Server Form_Load ", [&] {
        if (sockets_.empty()) {
            load_socket(0);
        }
        file_system_ = &instance_.platform().files;
        html_root_ = core::html_root(instance_);
        server_port_ = core::read_setting(instance_, core::kSettingsSection, "ServerPort", "");
        listen();
        server_timer_->set_enabled(false);
        server_timer_->set_interval(std::chrono::milliseconds::zero());
        make_data_folders();
    });
}

void TCPServer::listen() {
    if (server_port_.empty()) {
        return;
    }
    const std::int32_t port = automation::checked_int32(automation::numeric_prefix(server_port_));
    if (port == Socket(0).LocalPort()) {
        return;
    }
    Socket(0).set_local_port(port);
    Socket(0).Listen();
    for (std::int16_t index = 1; index <= kFirstConnections; ++index) {
        load_socket(index);
    }
    sockets_open_ = 0;
    request_id_ = 0;
}

void TCPServer::make_data_folders() {
    const std::string data = instance_.application_path + "\\Data";
    for (const std::string& folder : {data, data + "\\zynVelora"}) {
        if (!FileSystem().FolderExists(folder)) {
            FileSystem().CreateFolder(folder);
        }
    }
}

void TCPServer::Form_Unload() {
    file_system_ = nullptr;
    debug_log_.close();
    request_queue_.clear();
    server_timer_->set_enabled(false);
    for (const auto& timer : guard_timers_) {
        timer->set_enabled(false);
    }
    for (const auto& loaded : sockets_) {
        if (loaded->socket().State() != SocketState::Closed) {
            loaded->socket().Close();
        }
    }
    sockets_.clear();
    sockets_open_ = 0;
}

// --- the array ----------------------------------------------------------------------------------

void TCPServer::load_socket(std::int16_t index) {
    if (index <= upper_bound()) {
        throw RunTimeError(kAlreadyLoaded, "Object already loaded");
    }
    sockets_.push_back(std::make_unique<Element>(*this, index));
}

void TCPServer::unload_highest_socket() noexcept {
    sockets_.pop_back();
}

bool TCPServer::has_socket(std::int16_t index) const noexcept {
    return index >= 0 && index <= upper_bound();
}

TCPServer::Element& TCPServer::element(std::int16_t index) const {
    if (!has_socket(index)) {
        throw RunTimeError(kNoSuchElement,
                           "Control array element '" + std::to_string(index) + "' doesn't exist");
    }
    return *sockets_[static_cast<std::size_t>(index)];
}

host::TcpSocket& TCPServer::Socket(std::int16_t index) const {
    return element(index).socket();
}

bool TCPServer::is_connected(std::int16_t index) const noexcept {
    return has_socket(index) &&
           sockets_[static_cast<std::size_t>(index)]->socket().State() == SocketState::Connected;
}

void TCPServer::set_tag(std::int16_t index, SendTag tag) {
    element(index).tag = tag;
}

bool TCPServer::SendDone(std::int16_t index) const {
    return send_done_[static_cast<std::size_t>(index)];
}

void TCPServer::set_send_done(std::int16_t index, bool done) {
    send_done_[static_cast<std::size_t>(index)] = done;
}

host::Timer& TCPServer::TCPBinarySendTimer(std::int16_t index) const {
    const auto position = static_cast<std::size_t>(index);
    if (position >= guard_timers_.size()) {
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return *guard_timers_[position];
}

void TCPServer::arm_send_guard(std::int16_t index) {
    host::Timer& timer = TCPBinarySendTimer(index);
    if (SendDone(index)) {
        return;  // nobody will wait, and a timer for each 1000 bytes costs more than their send
    }
    timer.set_interval(kSendGuard);
    timer.set_enabled(true);
}

host::Files& TCPServer::FileSystem() const {
    if (file_system_ == nullptr) {
        throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    }
    return *file_system_;
}

// --- a connection comes -------------------------------------------------------------------------

void TCPServer::socket_ConnectionRequest(host::ConnectionRequestId request) {
    automation::guarded(instance_.log, "socket_ConnectionRequest ", [&] {
        recount_open_sockets();
        if (sockets_open_ >= kOverload) {
            reset_after_overload();
        }
        grow();
        choose_free_socket();
        ++sockets_open_;
        debug_log_.debug([&] {
            return "ConnectionRequest for socket " + std::to_string(request_id_) +
                   " RequestID=" + std::to_string(request) +
                   ", Sockets Defined=" + std::to_string(upper_bound()) +
                   ", Sockets Open=" + std::to_string(sockets_open_);
        });
        Socket(request_id_).Accept(request);
    });
}

void TCPServer::recount_open_sockets() {
    sockets_open_ = 0;
    for (std::int16_t index = 1; index <= upper_bound(); ++index) {
        const SocketState state = Socket(index).State();
        if (state == SocketState::Error) {
            Socket(index).Close();
        } else if (state != SocketState::Closed) {
            ++sockets_open_;
        }
    }
}

void TCPServer::reset_after_overload() {
    const bool keeps_listening = instance_.platform().protection.listener_outlives_overload;
    for (std::int16_t index = keeps_listening ? 1 : 0; index <= kHighestIndex; ++index) {
        without_report(instance_.log, [&] { Socket(index).Close(); });
    }
    while (upper_bound() > kFirstConnections) {
        unload_highest_socket();
    }
    sockets_open_ = 0;
}

void TCPServer::grow() {
    while (sockets_open_ >= upper_bound() - kSpareSockets && upper_bound() < kHighestIndex) {
        load_socket(static_cast<std::int16_t>(upper_bound() + 1));
    }
}

void TCPServer::choose_free_socket() {
    do {
        request_id_ = static_cast<std::int16_t>((request_id_ + 1) % (upper_bound() + 1));
        request_id_ = std::max<std::int16_t>(request_id_, 1);
    } while (Socket(request_id_).State() != SocketState::Closed);
}

// --- a connection speaks ------------------------------------------------------------------------

void TCPServer::socket_DataArrival(std::int16_t index, std::int32_t bytes_total) {
    automation::guarded(instance_.log, "socket_DataArrival ", [&] {
        request_queue_.push_back({index, Socket(index).GetData(bytes_total)});
        debug_log_.debug([&] {
            return "Pushing Index " + std::to_string(request_queue_.size()) + " for socket " +
                   std::to_string(index);
        });
        if (!server_timer_->enabled()) {
            server_timer_->set_interval(kBurst);
            server_timer_->set_enabled(true);
        }
    });
}

// --- a connection ends --------------------------------------------------------------------------

void TCPServer::socket_Close(std::int16_t index) {
    automation::guarded(instance_.log, "socket_Close ", [&] {
        const std::int16_t open_before = sockets_open_;
        const SocketState state = Socket(index).State();
        if (state != SocketState::Closed) {
            --sockets_open_;
            Socket(index).Close();
        }
        drop_oldest_packet_of(index);
        debug_log_.debug([&] {
            return "ConnectionClose for socket " + std::to_string(index) +
                   ", Sockets Open=" + std::to_string(sockets_open_) + ", state was " +
                   std::to_string(static_cast<int>(state)) + ", open count was " +
                   std::to_string(open_before);
        });
    });
}

void TCPServer::drop_oldest_packet_of(std::int16_t index) {
    const auto oldest = std::ranges::find(request_queue_, index, &QueuedPacket::socket);
    if (oldest == request_queue_.end()) {
        return;
    }
    debug_log_.debug([&] {
        return "Pending Request Removed for socket " + std::to_string(index) + ", " +
               oldest->entry();
    });
    request_queue_.erase(oldest);
}

void TCPServer::Socket_SendComplete(std::int16_t index) {
    host::Timer& guard = TCPBinarySendTimer(index);
    if (guard.enabled()) {
        guard.set_enabled(false);
    }
    const SendTag tag = element(index).tag;
    debug_log_.debug([&] {
        return "SendComplete for socket " + std::to_string(index) +
               ", tag=" + static_cast<char>(tag);
    });
    set_send_done(index, true);
    if (tag != SendTag::MoreFollows) {
        socket_Close(index);
    }
}

}  // namespace webserver
