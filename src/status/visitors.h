#pragma once

#include <string>

namespace core {
class Instance;
}

namespace fleet {
class Fleet;
}

namespace status {

// What a request of the status page tells of its sender, "" where it tells nothing.
struct Visitor {
    std::string address;  // of the connection's other end
    std::string method;
    std::string host;     // header "Host"
    std::string origin;   // header "Origin"
    std::string referer;  // header "Referer"
};

// Who may see the status page and send forms to it, as far as the protections say so: the machine
// itself, the units and the networks of the setting `StatusNetworks`, "10.0.0.5,10.1.0.0/16"; and
// forms of the page's own site alone. Owned by the plug-in.
class Visitors {
  public:
    // Both outlive it.
    Visitors(core::Instance& instance, const fleet::Fleet& fleet)
        : instance_(instance), fleet_(fleet) {}

    // Whether the page is made for this visitor. A refusal is logged in one line.
    // Throws: RunTimeError of the log.
    [[nodiscard]] bool admits(const Visitor& visitor);

  private:
    [[nodiscard]] bool is_of_the_house(const std::string& address) const;
    [[nodiscard]] bool is_unit(const std::string& address) const;

    core::Instance& instance_;
    const fleet::Fleet& fleet_;
};

}  // namespace status
