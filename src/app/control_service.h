#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/device_requests.h"
#include "app/dialog_requests.h"
#include "app/event_requests.h"
#include "app/json.h"
#include "app/phone_requests.h"
#include "home/subscriptions.h"

namespace home {
class EmbeddedHost;
class SqliteLog;
}  // namespace home

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
//     {"do":"devices"}
//         {"devices":[{"code":"[4","name":"Velora Top LED","location":"hall","value":1,
//         "word":"Turn On Top LED","text":"Top LED On","last_change":"2026-11-24T16:03:03"}]}
//     {"do":"device","code":"[4"}
//         {"device":{...,"string":"<table>...","values":[{"number":0,"word":"..."}],
//         "buttons":["Turn Off Top LED @ hall Velora"]}}
//     {"do":"set","code":"[4","value":"Blink Top LED"}; a number or a word
//         the same as it is afterwards
//     {"do":"x10","code":"B2","command":"on","origin":"received"} or "sent"
//         {"done":"B2 on"}
//     {"do":"menu"}
//         {"menu":["Start Slideshow"]}
//     {"do":"select","entry":"Test"} or {"do":"press","button":"Awaken @ hall Velora"}
//         {"done":"Test"}
//
//     {"do":"events"}
//         {"events":[{"name":"dusk","enabled":true,"when":"at 17:30","actions":["set [4 = 1"],
//         "runs":3,"last_run":null}]}
//     {"do":"add_event","name":"dusk","when":"at 17:30","actions":["set [4 = 1"]}
//     {"do":"enable_event","name":"dusk"} or "disable_event"
//         {"event":{...}}
//     {"do":"run_event","name":"dusk"} or "remove_event"
//         {"done":"run"}
//
//     {"do":"modem"}
//         {"modem":{"open":true,"data":"...","status":"...","data_written":7031,
//         "status_written":210}}: both boxes, and the characters ever written to them
//     {"do":"modem_send","text":"ATI3\r\n"}
//         {"done":"sent"}
//     {"do":"phonebook"}
//         {"phonebook":[{"number":"...","name":"...","location":"home","sound":""}]}
//     {"do":"look_up","number":"503 555 1234"}
//         {"caller":"(503) 555-1234 : Anna Smith from home"}
//     {"do":"ring","number":"5035551234","name":"SMITH ANNA","line":1}
//         {"done":"line 1"}
//
//     {"do":"setup"} or {"do":"setup","page":"Power"}: fills the setup dialog from the settings
//         {"setup":{"labels":["Version 1.0.0"],"pages":["General"],"page":"General","controls":
//         [{"page":"General","name":"aServerPort","index":0,"count":1,"kind":"text",
//         "setting":"ServerPort","group":"","caption":"Server Port","text":"8080","value":false,
//         "enabled":true,"enabled_by":"aTCPServerOption","choices":[]}]}}
//     {"do":"setup_set","name":"aServerPort","index":0,"text":"8081"}; "1" and "0" for a check box
//         {"done":"set"}
//     {"do":"setup_press","button":"aPlay"}
//         {"done":"aPlay"}
//     {"do":"setup_ok"}, also with "controls":[{"name":...,"index":...,"text":...}] to set before
//         {"done":"saved"}
//     {"do":"setup_cancel"}
//         {"done":"cancelled"}
//     {"do":"server_options"}; {"do":"server_open"} shows it anew
//         {"server_options":{"open":true,"box":"...","debug":false,"buttons":["cmdArray(0)"]}}
//     {"do":"server_debug","value":true} or {"do":"server_press","button":"TestMessageButton"}
//         the same as it is afterwards
//
// A request that cannot be carried out gets an "error". Owned by the daemon; knows no socket.
class ControlService {
  public:
    static constexpr int kNestedCalls = 16;  // further ones are refused until one ends

    // Both must outlive the service.
    ControlService(host::Plugin& plugin, home::EmbeddedHost& host);
    ControlService(const ControlService&) = delete;
    ControlService& operator=(const ControlService&) = delete;

    // Carries one request out. A call may pump, and then other requests arrive meanwhile.
    void take(const std::string& line, const std::shared_ptr<AnswerSink>& sink);

    // Ends what is still under way for programs that are gone.
    void drop_closed();

  private:
    // Those that may wait are refused while too many of them do.
    enum class Waits : std::uint8_t { Never, Perhaps };

    // One kind of request: gives the whole answer, or throws RunTimeError.
    struct Kind {
        std::string name;
        Waits waits;
        std::function<Json(const Json& request)> answer;
    };

    [[nodiscard]] std::vector<Kind> make_kinds();
    void carry_out(const Json& request, const std::shared_ptr<AnswerSink>& sink);
    [[nodiscard]] Json answer(const Json& request, const std::string& action);
    [[nodiscard]] Json call(const Json& request);
    [[nodiscard]] Json operations() const;
    [[nodiscard]] Json status() const;
    void show_log(const Json& request, const std::shared_ptr<AnswerSink>& sink);
    [[nodiscard]] std::int64_t log_start(const Json& request);
    void follow_log(const std::shared_ptr<AnswerSink>& sink);

    host::Plugin& plugin_;
    home::SqliteLog& log_;
    DeviceRequests devices_;
    EventRequests events_;
    PhoneRequests phone_;
    DialogRequests dialogs_;
    std::vector<Kind> kinds_;
    int waiting_ = 0;  // requests that may wait and run, each on top of the one before
    std::vector<std::pair<std::shared_ptr<AnswerSink>, home::Subscription>> followers_;
};

}  // namespace app
