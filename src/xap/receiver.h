#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace appliance {
class Velora;
}

namespace callerid {
struct CallState;
class CallerDispatch;
}  // namespace callerid

namespace core {
class Instance;
}

namespace devices {
class Actions;
class StatusBoard;
}  // namespace devices

namespace fleet {
class Fleet;
}

namespace host {
class XapMessage;
}

namespace xap {

class BscEndpoints;
class Filters;

// The one way in for messages of the xAP network: the user's filters record them, then the first
// class of a table that fits acts on them. Part of the node.
class Receiver {
  public:
    struct Services {
        core::Instance& instance;
        fleet::Fleet& fleet;
        devices::Actions& actions;
        devices::StatusBoard& status_board;
        callerid::CallState& call;
        callerid::CallerDispatch& dispatch;
        Filters& filters;
        BscEndpoints& endpoints;
    };

    explicit Receiver(const Services& services) : services_(services) {}

    // Logs its errors; one of the filters keeps the message from being acted on. May pump.
    void OnXapMessage(const host::XapMessage& message);

    // Shows the state of an X10 device that is the power switch or the motion sensor of a unit;
    // others are not touched. Logs its errors.
    void UpdateDeviceStatus(std::string_view device, std::string_view state);

  private:
    struct Rule;

    [[nodiscard]] static bool is_on_duty(const Rule& rule, const core::Instance& instance);
    [[nodiscard]] std::shared_ptr<appliance::Velora> addressed_unit(
        const host::XapMessage& message) const;

    void on_display(const host::XapMessage& message);
    void on_speak(const host::XapMessage& message);
    void on_caller(const host::XapMessage& message);
    void on_query(const host::XapMessage& message);
    void on_command(const host::XapMessage& message);
    void on_x10(const host::XapMessage& message);
    void on_time(const host::XapMessage& message);
    void on_button(const host::XapMessage& message);

    Services services_;
};

}  // namespace xap
