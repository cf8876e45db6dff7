#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace unit {

enum class Power { Off, Booting, On };

enum class Led { Off, On, Blink };

// What the browser of the appliance shows. `status` is the status line of the page's server, or
// "loading", or the reason why there is no page; `bytes` is the length of the page's body.
struct BrowserView {
    std::string url;
    std::string status;
    std::size_t bytes = 0;
};

// The sound that was played last. `file` is relative to the state directory; `seconds` is known
// for RIFF WAV files only.
struct PlayedSound {
    std::string file;
    std::size_t bytes = 0;
    std::optional<double> seconds;
};

// What the music player was told. `last` is the whole text of one connection.
struct Jukebox {
    std::string last;
    std::uint64_t commands = 0;
};

// What the client program beside the browser was told by datagrams, in UTF-8.
struct ClientState {
    bool is_subscribed = false;
    std::uint64_t messages = 0;
    std::string caller_name;
    std::string caller_number;
    std::string command;  // the last one, with its parameter
};

// All that an observer could see or hear of one appliance. A value: who owns one may copy it.
// The initial values are those after power-on; volumes are percentages from 0 to 100.
struct ApplianceState {
    std::string name;
    Power power = Power::On;
    bool awake = true;
    bool backlight = true;
    Led top_led = Led::Off;
    Led mail_led = Led::Off;
    bool full_screen = true;
    int sounds_volume = 50;
    int volume = 50;
    std::optional<int> last_sound;
    BrowserView browser;
    PlayedSound playing;
    Jukebox jukebox;
    ClientState client;
    std::uint64_t requests = 0;
};

// Puts everything but the name and the count of requests back to what it is after power-on.
void power_up(ApplianceState& state);

// The dark appliance: LEDs, backlight and browser are off. `power` is Off, or Booting while the
// appliance starts.
void power_down(ApplianceState& state, Power power);

// "off", "booting", "on".
[[nodiscard]] std::string_view to_text(Power power) noexcept;

// "off", "on", "blink".
[[nodiscard]] std::string_view to_text(Led led) noexcept;

}  // namespace unit
