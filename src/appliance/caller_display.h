#pragma once

#include <string>
#include <string_view>

namespace appliance {

class Velora;

// Who has called last, for units whose display device asks. A house without caller-ID knows no
// callers.
class CallerDisplay {
  public:
    enum class Datagram : bool { None, ToClients };

    virtual ~CallerDisplay() = default;

    // The last caller's number and name; also sent, if so wanted, to the UDP clients that `ip`
    // names.
    virtual std::string MessageCIDEvent(Datagram /*datagram*/, std::string_view /*ip*/) {
        return {};
    }

    // Shows the last caller on the unit's screen.
    virtual void CID(Velora& /*unit*/) {}
};

}  // namespace appliance
