#include "app/control_client.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "app/home_path.h"
#include "automation/run_time_error.h"

namespace app {
namespace {

CommandFailure no_daemon(const std::filesystem::path& home, const automation::RunTimeError& error) {
    return CommandFailure("no daemon answers in " + home.string() + " (" + error.description() +
                          "); ./run.sh or \"zynvelora serve\" starts one");
}

// The program that is asked first, and the one that answers when that one does not run.
platform::LocalLineClient connected(const std::filesystem::path& home, Wanted wanted) {
    const bool is_for_host = wanted == Wanted::Host;
    try {
        return platform::LocalLineClient(
            control_socket_path(home, is_for_host ? HomeProgram::Daemon : HomeProgram::XapNode));
    } catch (const automation::RunTimeError&) {
        // The other one is asked.
    }
    try {
        return platform::LocalLineClient(
            control_socket_path(home, is_for_host ? HomeProgram::XapNode : HomeProgram::Daemon));
    } catch (const automation::RunTimeError& error) {
        throw no_daemon(home, error);
    }
}

}  // namespace

ControlClient::ControlClient(const std::filesystem::path& home, Wanted wanted)
    : line_(connected(home, wanted)) {}

void ControlClient::send(const Json& request) {
    try {
        line_.send_line(one_line(request));
    } catch (const automation::RunTimeError&) {
        throw CommandFailure("the daemon has ended");
    }
}

Json ask(const std::filesystem::path& home, const Json& request, Wanted wanted) {
    ControlClient client(home, wanted);
    client.send(request);
    return client.receive();
}

Json ControlClient::receive() {
    const std::optional<std::string> line = line_.read_line();
    if (!line) {
        throw CommandFailure("the daemon has ended");
    }
    Json answer = Json::parse(*line, nullptr, false);
    if (!answer.is_object()) {
        throw CommandFailure("the daemon's answer makes no sense: " + *line);
    }
    if (const auto error = answer.find("error"); error != answer.end()) {
        throw DaemonError(error->at("number").get<std::int32_t>(),
                          error->at("text").get<std::string>());
    }
    return answer;
}

}  // namespace app
