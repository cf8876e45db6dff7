#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/instance.h"
#include "host/pump.h"
#include "host/sockets.h"
#include "webserver/debug_log.h"

namespace webserver {

// One received packet, unexamined.
struct QueuedPacket {
    std::int16_t socket = 0;
    std::string packet;

    // "<socket>~<packet>", as the debug log shows it.
    [[nodiscard]] std::string entry() const { return std::to_string(socket) + "~" + packet; }
};

// What the end of a send means for the connection; the debug log shows the character.
enum class SendTag : char { LastSend = '0', MoreFollows = '1' };

// The web server's sockets, timers and request queue. It listens on `ServerPort`, puts every
// packet into one queue, starts the queue's processing 50 ms after the first packet of a burst,
// and closes each connection after its one response. Owned by the dispatcher; entered by socket
// and timer events, none of whose handlers here pumps, but for the queue's processing.
//
// Sockets come and go while somebody waits: after a call that pumps, ask for a socket anew.
class TCPServer {
  public:
    static constexpr std::int16_t kHighestIndex = 50;    // of `Socket` and `SendDone`
    static constexpr std::size_t kGuardTimerCount = 20;  // of `TCPBinarySendTimer`
    static constexpr std::chrono::milliseconds kSendGuard{5000};

    // `process_request_queue` runs on each tick of `ServerTimer` and outlives the server.
    TCPServer(core::Instance& instance, std::function<void()> process_request_queue);
    ~TCPServer();

    // --- life -----------------------------------------------------------------------------------

    // Listens, and makes the first sockets and the data folders. Without a port in the settings
    // the server stands but is deaf. A failure, such as a taken port, is reported and leaves what
    // has been done so far.
    void Form_Load();

    // Closes and drops all sockets, the queue and the debug log.
    void Form_Unload();

    // True from `Form_Load` to `Form_Unload`, even when the port could not be opened.
    [[nodiscard]] bool loaded() const noexcept { return file_system_ != nullptr; }

    // Starts the debug log anew. Throws: RunTimeError of the file service.
    void open_debug_log() { debug_log_.open(); }

    // --- what the status command tells ----------------------------------------------------------

    // As of the last connection request, close and accept.
    [[nodiscard]] std::int16_t SocketsOpen() const noexcept { return sockets_open_; }

    // Highest index of the array `Socket`; -1 while not loaded.
    [[nodiscard]] std::int16_t upper_bound() const noexcept {
        return static_cast<std::int16_t>(static_cast<int>(sockets_.size()) - 1);
    }

    [[nodiscard]] std::size_t queue_length() const noexcept { return request_queue_.size(); }

    // --- for the dispatcher and the responses ---------------------------------------------------

    // Index 0 is the listener. Throws: RunTimeError 340 for an index that is not loaded.
    [[nodiscard]] host::TcpSocket& Socket(std::int16_t index) const;

    [[nodiscard]] bool has_socket(std::int16_t index) const noexcept;

    // False also for an index that is not loaded.
    [[nodiscard]] bool is_connected(std::int16_t index) const noexcept;

    // Throws: RunTimeError 340 as `Socket`.
    void set_tag(std::int16_t index, SendTag tag);

    // Whether the previous send is finished. Requires: an index from 0 to 50.
    [[nodiscard]] bool SendDone(std::int16_t index) const;
    void set_send_done(std::int16_t index, bool done);

    // Lets `SendDone` become true in 5 s at the latest. Throws: RunTimeError 9 for an index above
    // 19, whose connections have no guard.
    void arm_send_guard(std::int16_t index);

    [[nodiscard]] host::Timer& ServerTimer() noexcept { return *server_timer_; }

    // Filled by arriving data, drained by the dispatcher and by closing connections.
    [[nodiscard]] std::deque<QueuedPacket>& RequestQueue() noexcept { return request_queue_; }

    [[nodiscard]] TCPDebugLog& debug_log() noexcept { return debug_log_; }

    // Throws: RunTimeError 91 while not loaded.
    [[nodiscard]] host::Files& FileSystem() const;

    // Folder of all served files.
    [[nodiscard]] const std::string& HTMLRoot() const noexcept { return html_root_; }

    // --- events ---------------------------------------------------------------------------------

    void socket_ConnectionRequest(host::ConnectionRequestId request);
    void socket_DataArrival(std::int16_t index, std::int32_t bytes_total);

    // The peer has closed, or the response is complete: closes the socket and drops the oldest
    // packet that still waits for it.
    void socket_Close(std::int16_t index);

    // A send is finished: closes the connection unless more follows. Throws: RunTimeError 9 for an
    // index above 19, whose connections the server does not close by itself.
    void Socket_SendComplete(std::int16_t index);

  private:
    class Element;  // of the array `Socket`

    void listen();
    void load_socket(std::int16_t index);
    void unload_highest_socket() noexcept;
    void make_data_folders();
    void recount_open_sockets();
    void reset_after_overload();
    void grow();
    void choose_free_socket();
    void drop_oldest_packet_of(std::int16_t index);
    [[nodiscard]] Element& element(std::int16_t index) const;
    [[nodiscard]] host::Timer& TCPBinarySendTimer(std::int16_t index) const;

    core::Instance& instance_;
    TCPDebugLog debug_log_;
    host::Files* file_system_ = nullptr;
    std::string html_root_;
    std::string server_port_;

    std::deque<QueuedPacket> request_queue_;
    std::vector<bool> send_done_;
    std::int16_t sockets_open_ = 0;
    std::int16_t request_id_ = 0;  // socket last given out

    std::unique_ptr<host::Timer> server_timer_;
    std::vector<std::unique_ptr<host::Timer>> guard_timers_;
    std::vector<std::unique_ptr<Element>> sockets_;
};

}  // namespace webserver
