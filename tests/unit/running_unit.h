#pragma once

#include <stdlib.h>

#include <boost/asio.hpp>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>

#include "unit/tell_unit.h"
#include "unit/unit.h"

namespace unit::testing {

// A directory of its own for one test, removed with all that is in it.
class TemporaryDirectory {
  public:
    TemporaryDirectory() {
        std::string pattern = (std::filesystem::temp_directory_path() / "unit_XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("no temporary directory");
        }
        path_ = pattern;
    }

    ~TemporaryDirectory() { std::filesystem::remove_all(path_); }

    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

// The loopback address of the tested unit, another than that of the servers it fetches from.
inline const std::string kUnitAddress = "127.0.0.2";

// A client connection to the unit.
class Client {
  public:
    // Connects to the web server, or to another port of the unit.
    explicit Client(std::uint16_t port) {
        socket_.connect({boost::asio::ip::make_address(kUnitAddress), port}, connect_error_);
    }

    [[nodiscard]] bool is_connected() const { return !connect_error_; }

    void close() { socket_.close(); }

    void send(std::string_view bytes) { boost::asio::write(socket_, boost::asio::buffer(bytes)); }

    // All that comes until the server closes.
    std::string rest() {
        std::string received;
        boost::system::error_code end;
        boost::asio::read(socket_, boost::asio::dynamic_buffer(received), end);
        return received;
    }

    [[nodiscard]] std::size_t available() const { return socket_.available(); }

  private:
    boost::asio::io_context loop_;
    boost::asio::ip::tcp::socket socket_{loop_};
    boost::system::error_code connect_error_;
};

// A unit that runs in a thread, with a state directory of its own.
class RunningUnit {
  public:
    // With a client program where there is a daemon.
    explicit RunningUnit(const std::string& daemon = {}, std::uint16_t client_port = 0)
        : unit_({"hall", kUnitAddress + ":0", directory_.path(), std::chrono::seconds(0), 0, daemon,
                 client_port}),
          thread_([this] { unit_.run(); }) {}

    ~RunningUnit() { stop(); }

    RunningUnit(const RunningUnit&) = delete;
    RunningUnit& operator=(const RunningUnit&) = delete;

    void stop() {
        unit_.stop();
        if (thread_.joinable()) {
            thread_.join();
        }
    }

    [[nodiscard]] const std::filesystem::path& directory() const { return directory_.path(); }

    [[nodiscard]] std::string address() const { return unit_.address(); }

    [[nodiscard]] Client connect() const { return Client(unit_.port()); }

    [[nodiscard]] Client connect_to_jukebox() const { return Client(unit_.jukebox_port()); }

    // The whole answer to a request for the page.
    [[nodiscard]] std::string get(const std::string& page) const {
        Client client = connect();
        client.send("GET /" + page + " HTTP/1.1\r\nHost: hall\r\n\r\n");
        return client.rest();
    }

    [[nodiscard]] std::string tell(std::string_view command) const {
        return tell_unit(directory(), command);
    }

    [[nodiscard]] nlohmann::json state() const { return nlohmann::json::parse(tell("state")); }

    // The state as soon as it fulfils the condition, or after many looks.
    template <typename Condition>
    [[nodiscard]] nlohmann::json state_when(Condition condition) const {
        nlohmann::json current = state();
        for (int looks = 0; looks < 20000 && !condition(current); ++looks) {
            current = state();
        }
        return current;
    }

    [[nodiscard]] std::string file(const std::string& name) const {
        std::ifstream stream(directory() / name, std::ios::binary);
        std::ostringstream content;
        content << stream.rdbuf();
        return content.str();
    }

  private:
    TemporaryDirectory directory_;
    Unit unit_;
    std::thread thread_;
};

// A web server that gives the same bytes to one request, and keeps that request.
class OneAnswerServer {
  public:
    explicit OneAnswerServer(std::string answer)
        : acceptor_(loop_, {boost::asio::ip::address_v4::loopback(), 0}),
          thread_([this, answer = std::move(answer)] { serve(answer); }) {}

    ~OneAnswerServer() { wait(); }

    OneAnswerServer(const OneAnswerServer&) = delete;
    OneAnswerServer& operator=(const OneAnswerServer&) = delete;

    [[nodiscard]] std::string url(const std::string& path) const {
        return "http://127.0.0.1:" + std::to_string(acceptor_.local_endpoint().port()) + path;
    }

    // The request, once it has been answered.
    const std::string& request() {
        wait();
        return request_;
    }

    // Where that request came from.
    const std::string& client_address() {
        wait();
        return client_address_;
    }

  private:
    void serve(const std::string& answer) {
        boost::asio::ip::tcp::socket socket = acceptor_.accept();
        client_address_ = socket.remote_endpoint().address().to_string();
        boost::asio::read_until(socket, boost::asio::dynamic_buffer(request_), "\r\n\r\n");
        boost::asio::write(socket, boost::asio::buffer(answer));
    }

    void wait() {
        if (thread_.joinable()) {
            thread_.join();
        }
    }

    boost::asio::io_context loop_;
    boost::asio::ip::tcp::acceptor acceptor_;
    std::string request_;
    std::string client_address_;
    std::thread thread_;
};

}  // namespace unit::testing
