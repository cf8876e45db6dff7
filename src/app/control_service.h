#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/json.h"
#include "home/subscriptions.h"

namespace automation {
class Object;
}

namespace home {
class SqliteLog;
}

namespace host {
class Plugin;
}

namespace app {

// Where the answers to one program go. Shared by the connection and by what still answers on it.
class AnswerSink {
  public:
    virtual ~AnswerSink() = default;

    // Does nothing once the program is gone.
    virtual void send(const std::string& line) = 0;
    [[nodiscard]] virtual bool is_open() const = 0;
};

// What a program may ask of the running daemon, as one JSON object a line, in UTF-8:
//
//     {"do":"call","operation":"VeloraSpeak","arguments":["Kitchen","Hello"]}
//         {"result":1.705547} or {"error":{"number":13,"text":"Type mismatch"}}
//     {"do":"operations"}
//         {"operations":["VeloraSpeak(whichVeloras, text)"]}
//     {"do":"status"}
//         {"status":{"role":"normal","flags":[],"units":[],"timers":[]}}
//     {"do":"log","lines":50} or {"do":"log","after":1234}
//         {"line":{"id":1235,"time":"...","type":"...","message":"..."}} for each, then
//         {"end":{"after":1240,"more":false}}; with "more" ask again for what lies behind.
//         With "follow":true new lines go on to come in the place of such an end.
//
// A request that cannot be carried out gets an "error". Owned by the daemon; knows no socket.
class ControlService {
  public:
    static constexpr int kNestedCalls = 16;  // further ones are refused until one ends

    // Both must outlive the service.
    ControlService(host::Plugin& plugin, home::SqliteLog& log) : plugin_(plugin), log_(log) {}

    // Carries one request out. A call may pump, and then other requests arrive meanwhile.
    void take(const std::string& line, const std::shared_ptr<AnswerSink>& sink);

    // Ends what is still under way for programs that are gone.
    void drop_closed();

  private:
    void carry_out(const Json& request, const std::shared_ptr<AnswerSink>& sink);
    [[nodiscard]] Json call(const Json& request);
    [[nodiscard]] Json operations() const;
    [[nodiscard]] Json status() const;
    void show_log(const Json& request, const std::shared_ptr<AnswerSink>& sink);
    [[nodiscard]] std::int64_t log_start(const Json& request);
    void follow_log(const std::shared_ptr<AnswerSink>& sink);

    host::Plugin& plugin_;
    home::SqliteLog& log_;
    int calls_ = 0;  // running, each on top of the one before
    std::vector<std::pair<std::shared_ptr<AnswerSink>, home::Subscription>> followers_;
};

}  // namespace app
