#pragma once

#include <string>
#include <string_view>

namespace appliance {

// The datagram link to client programs on units. A house without the link has no clients.
class UdpLink {
  public:
    virtual ~UdpLink() = default;

    // Whether a subscribed client runs at this address.
    [[nodiscard]] virtual bool UDPClientAvailable(std::string_view /*host*/) { return false; }

    // Both send to the clients that `host` names, "" for all, and give a text for people.
    virtual std::string UDPSendCommand(std::string_view /*command*/, std::string_view /*parameter*/,
                                       std::string_view /*host*/) {
        return "Error: No CID Clients Defined. Unable to send data.";
    }

    // Replaces the short codes of a withheld name or number in its arguments.
    virtual std::string UDPSendCID(std::string& /*name*/, std::string& /*number*/,
                                   std::string_view /*host*/) {
        return "Error: No CID Clients Defined. Unable to send data.";
    }
};

}  // namespace appliance
