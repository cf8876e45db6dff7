#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "home/subscriptions.h"
#include "home/x10_code.h"
#include "host/x10.h"

namespace host {
class Devices;
class Log;
class Pump;
}  // namespace host

namespace home {

class EventBoard;

// Who has sent a command: this program, or somebody else whom we have heard.
enum class X10Origin : std::uint8_t { Sent, Received };

// A command that was on the line, the state already taken.
struct X10Command {
    std::string code;     // "A1"
    std::string command;  // in lower case: "on", "off", "dim 40"
    X10Origin origin = X10Origin::Sent;
};

// The power line of the house, in this program: switches are modules that are attached to a code,
// sensors are whoever calls `receive`. Owned by the host. Codes and the commands "on" and "off" are
// taken without regard to case.
class X10Line : public host::X10 {
  public:
    // A switch or a unit's power supply. An error that it throws is logged; nobody on a power line
    // hears whether a command arrived.
    using Module = std::function<void(std::string_view command)>;

    // All four must outlive the line.
    X10Line(host::Pump& pump, host::Devices& devices, host::Log& log, EventBoard& events);

    // We send: the state is set, the line logged with type "X10" ("A1 off"), the modules act, and
    // listeners hear of it as an event of its own. Other commands than "on" and "off" change no
    // state and make no event. Throws: RunTimeError 5 for what is no X10 code.
    void ExecX10(std::string_view code, std::string_view command) override;

    // Somebody else has sent, such as a motion sensor. As `ExecX10`, but listeners hear of it at
    // once, while the line still shows the old state, which tells them the start of a motion. May
    // pump. Throws: RunTimeError 5 as above.
    void receive(std::string_view code, std::string_view command);

    // The state of a code is known from elsewhere, such as from an xAP network; nothing is sent.
    // Other texts than X10 codes and other states than on and off are passed over.
    void note_status(std::string_view code, std::int32_t status);

    // Told of each command once the state is taken and the modules have acted. May pump.
    [[nodiscard]] Subscription follow(std::function<void(const X10Command&)> follower);

    // The status of the device with the code counts where there is one that is on or off.
    [[nodiscard]] bool isOn(std::string_view code) override;
    [[nodiscard]] bool IsOff(std::string_view code) override;

    // Calls `module` with each command to the code until the subscription ends.
    // Throws: RunTimeError 5.
    [[nodiscard]] Subscription attach(std::string_view code, Module module);

  private:
    // One command on the line; no status for others than "on" and "off".
    struct Message {
        X10Code code;
        std::string command;
        std::optional<std::int32_t> status;
    };

    [[nodiscard]] static Message parse_message(std::string_view code, std::string_view command);
    void take_state(const Message& message);
    void operate_modules(const Message& message);
    void tell_followers(const Message& message, X10Origin origin);
    void announce(const Message& message);
    [[nodiscard]] std::int32_t status_of(std::string_view code) const;

    host::Pump& pump_;
    host::Devices& devices_;
    host::Log& log_;
    EventBoard& events_;
    std::map<std::string, std::int32_t, std::less<>> states_;  // by code
    std::map<std::string, Subscriptions<std::string_view>, std::less<>> modules_;
    Subscriptions<const X10Command&> followers_;
    // Gone when the line is; posted events look for it.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace home
