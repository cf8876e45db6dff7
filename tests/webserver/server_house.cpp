#include "webserver/server_house.h"

#include <utility>

#include "automation/run_time_error.h"

namespace webserver {

namespace {

constexpr std::string_view kApplicationPath = "C:\\HomeSeer";
constexpr std::string_view kDebugLogFolder = "C:\\HomeSeer\\Data\\zynVelora";
constexpr std::string_view kDebugLogFile =
    "C:\\HomeSeer\\Data\\zynVelora\\zynVelora_TCPServerDebug.txt";

}  // namespace

ServerHouse::ServerHouse(host::Protection protection) {
    machine_.protection = protection;
    machine_.files.put_folder(kApplicationPath);
    instance_.emplace(machine_.platform());
    instance_->attach(host_, &host_);
    instance_->application_path = kApplicationPath;
    instance_->settings.HomeseerIP = support::MemoryNetwork::kHouse;
    instance_->settings.HomeseerPort = "80";
    module_.emplace(*instance_, *this);
    set_port(kPort);
}

void ServerHouse::set_port(std::string_view port) {
    host_.put_setting("Velora Utilities", "ServerPort", port);
}

std::vector<std::string> ServerHouse::log() const {
    constexpr std::string_view kType = "zynVelora: ";
    std::vector<std::string> lines = host_.log();
    for (std::string& line : lines) {
        if (line.starts_with(kType)) {
            line.erase(0, kType.size());
        }
    }
    return lines;
}

// --- clients ------------------------------------------------------------------------------------

support::TcpPeer& ServerHouse::connect() {
    clients_.push_back(&machine_.network.connect(std::stoi(kPort)));
    machine_.pump.run_for(std::chrono::milliseconds::zero());
    return *clients_.back();
}

void ServerHouse::connect_until(std::size_t clients) {
    while (clients_.size() < clients) {
        connect();
    }
}

std::string ServerHouse::exchange(std::string_view packet) {
    support::TcpPeer& client = connect();
    client.send(packet);
    machine_.pump.run_for(std::chrono::seconds(1));
    return client.received();
}

// --- pages --------------------------------------------------------------------------------------

std::optional<std::string> ServerHouse::StatusPage(Request& request, Response& response) {
    if (page_fails) {
        throw automation::RunTimeError(automation::ErrorNumber::TypeMismatch);
    }
    if (during_page) {
        std::exchange(during_page, nullptr)();
    }
    if (with_response) {
        with_response(response);
    }
    std::string page = "status form ";
    for (const KeyValuePair& pair : request.FormCol()) {
        page += "[" + pair.key + "=" + pair.value + "]";
    }
    return page + " end";
}

// --- files --------------------------------------------------------------------------------------

void ServerHouse::set_file(std::string_view below_html, std::string_view content) {
    files().put(core::html_root(*instance_) + std::string(below_html), content);
}

void ServerHouse::start_debug_log() {
    files().put_folder(kDebugLogFolder);
    instance_->settings.TCPDebug = true;
    server().open_debug_log();
}

void ServerHouse::start_debug_log(LogLines room) {
    start_debug_log();
    files().fail_after(room.count, automation::ErrorNumber::DiskFull);
}

std::vector<std::string> ServerHouse::debug_lines() {
    std::vector<std::string> lines;
    std::string text = files().read(kDebugLogFile);
    for (auto end = text.find("\r\n"); end != std::string::npos; end = text.find("\r\n")) {
        const auto behind_time = text.find(" | ") + 3;
        lines.push_back(text.substr(behind_time, end - behind_time));
        text.erase(0, end + 2);
    }
    return lines;
}

}  // namespace webserver
