#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "devices/status_board.h"
#include "xap/endpoint_pattern.h"

namespace appliance {
class DeviceCommandTarget;
}

namespace devices {
class HostDevices;
}

namespace fleet {
class Fleet;
}

namespace xap {

class XapMessageQueue;

// The units' devices as endpoints of xAP's Basic Status and Control schema: the first nine of each
// unit, as far as the host has them. An endpoint exists by rule and is not stored. Part of the
// node. All members log their own errors; BSCCmd may pump.
class BscEndpoints final : public devices::EndpointListener {
  public:
    struct Services {
        core::Instance& instance;
        fleet::Fleet& fleet;
        devices::HostDevices& host_devices;
        appliance::DeviceCommandTarget& device_commands;
        XapMessageQueue& queue;
    };

    explicit BscEndpoints(const Services& services) : services_(services) {}

    // Answers with the values and the state of each endpoint that the target means, in turn.
    void BSCQuery(const std::string& target);

    // Sets an endpoint to the number at the start of `level`. `id` is its number in two hex digits,
    // or "*" for each that the target means; with a number the first of them decides. `state` is
    // not used (kept).
    void BSCCmd(const std::string& target, const std::string& id, const std::string& state,
                const std::string& level);

    // Tells the network of a device's new state, past the queue. Nothing outside xAP's program.
    void SendXapBSC(std::string_view code) override;

  private:
    struct Endpoint;
    class Answer;
    enum class Walk : bool { GoOn, End };

    void for_each_match(const std::string& target,
                        const std::function<Walk(const Endpoint&)>& visit);
    [[nodiscard]] Endpoint endpoint(std::string_view unit_name, std::string_view base,
                                    std::int32_t sub_device) const;
    [[nodiscard]] std::string state_body(std::string_view code, std::string_view divisor) const;
    void answer_for(const Endpoint& endpoint, Answer& answer);
    void send_event(const Endpoint& endpoint);
    void send_caller_event(std::string_view code);

    Services services_;
};

}  // namespace xap
