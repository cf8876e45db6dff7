#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace host {
class Settings;
}

namespace app {

// Where and as whom a program takes part in the xAP network: section "xAP" of settings.ini.
struct XapSettings {
    std::string interface_address = "127.0.0.1";  // of this machine; "0.0.0.0" for all it has
    std::string broadcast_address;                // as the network knows it
    std::int32_t port = 3639;
    std::string instance;  // last part of "zyn.zynVelora.<instance>", else the machine's name
    std::chrono::seconds heartbeat_interval{60};

    // "zyn.<device>.<instance>"
    [[nodiscard]] std::string source(const std::string& device) const {
        return "zyn." + device + "." + instance;
    }
};

// Throws: RunTimeError 5 that names the file and the key.
[[nodiscard]] XapSettings read_xap_settings(host::Settings& settings);

// The device's part of the UIDs, made of its address, so that it is the same after each start.
[[nodiscard]] std::uint16_t unit_id_of(const std::string& source);

}  // namespace app
