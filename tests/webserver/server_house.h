#pragma once

#include <gmock/gmock.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/instance.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"
#include "webserver/page_functions.h"
#include "webserver/tcp_server_module.h"

namespace webserver {

// Room for this many more lines in the debug log, then the disk is full.
struct LogLines {
    std::size_t count = 0;
};

// A house whose plug-in is nothing but the web server, with its clients. Its status page is
// "status form <the form as [key=value] pairs> end"; there is no slideshow page.
class ServerHouse : public PageFunctions {
  public:
    static constexpr const char* kPort = "8080";

    explicit ServerHouse(host::Protection protection = {});

    // --- before the start -----------------------------------------------------------------------

    // The setting, as it stands in the file.
    void set_port(std::string_view port);

    void start() { server().Form_Load(); }

    // --- what clients do ------------------------------------------------------------------------

    // One more client; its connection request has been heard when the call returns.
    support::TcpPeer& connect();

    // Clients are added until this many have ever connected.
    void connect_until(std::size_t clients);

    // In the order of their connecting, from 0.
    [[nodiscard]] support::TcpPeer& client(std::size_t index) { return *clients_.at(index); }

    // What a new client gets for this packet within a second.
    std::string exchange(std::string_view packet);

    // One more client tries.
    [[nodiscard]] bool hears_a_new_connection() { return connect().connected(); }

    void run_for(std::chrono::milliseconds duration) { machine_.pump.run_for(duration); }

    // Runs `look` in so much time, also while the server waits.
    void after(std::chrono::milliseconds delay, std::function<void()> look) {
        machine_.pump.call_later(delay, std::move(look));
    }

    // --- what the pages do ----------------------------------------------------------------------

    bool page_fails = false;
    std::function<void()> during_page;  // runs once
    std::function<void(Response&)> with_response;
    std::function<bool(const Request&)> admits;  // everybody without one

    std::optional<std::string> StatusPage(Request& request, Response& response) override;

    [[nodiscard]] bool admits_to_status(const Request& request) override {
        return admits == nullptr || admits(request);
    }

    // --- what can be seen -----------------------------------------------------------------------

    void set_file(std::string_view below_html, std::string_view content);
    void start_debug_log();
    void start_debug_log(LogLines room);

    // Without their times.
    [[nodiscard]] std::vector<std::string> debug_lines();

    // Lines of the host's log, without the type that all of them should have.
    [[nodiscard]] std::vector<std::string> log() const;

    [[nodiscard]] core::Instance& instance() { return *instance_; }

    [[nodiscard]] TCPServer& server() { return module_->server(); }

    [[nodiscard]] support::MemoryFiles& files() { return machine_.files; }

  private:
    support::FakeMachine machine_;
    support::MemoryHost host_;
    std::optional<core::Instance> instance_;
    std::optional<TCPServerModule> module_;
    std::vector<support::TcpPeer*> clients_;
};

}  // namespace webserver
