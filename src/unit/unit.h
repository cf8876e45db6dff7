#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace unit {

struct UnitOptions {
    std::string name;
    std::string listen;                     // "IP:PORT" in figures; port 0 takes any free port
    std::filesystem::path state_directory;  // made when it does not exist
    std::chrono::seconds boot_time{3};      // from power-on until the ports are open
    std::uint16_t jukebox_port = 0;         // of the music player, at the same IP; 0 as above
    std::string daemon = {};                // "IP:PORT" at which a client program subscribes
    std::uint16_t client_port = 4550;       // of that program, at the IP of `listen`
};

// One simulated appliance without screen and loudspeaker: a web server that carries out the
// command pages, fetches the sounds and pages that it is told to, and a music player that takes
// texts, and a client program where it is told of a daemon. It shows what it does in the files of
// its state directory (see recorder.h). tell_unit() gives it faults and switches its power. Owned
// by the sub-command, or by a test that runs it in a thread; several can live in one process, each
// with its own state directory.
class Unit {
  public:
    // The appliance is on: all sockets are open and the state is recorded.
    // Throws: std::runtime_error when the address is malformed or in use, when a unit already
    // runs in the state directory, or when that cannot be written.
    explicit Unit(const UnitOptions& options);

    ~Unit();

    Unit(const Unit&) = delete;
    Unit& operator=(const Unit&) = delete;

    // "IP:PORT" with the real port.
    [[nodiscard]] std::string address() const;

    [[nodiscard]] std::uint16_t port() const noexcept;

    // The real port of the music player.
    [[nodiscard]] std::uint16_t jukebox_port() const noexcept;

    // Serves until stop(), then ends when everything is closed and control.sock is removed; that
    // takes longer only while a host name is being looked up. Requires: called once.
    void run();

    // Ends run(), also before it has begun. May be called from any thread.
    void stop();

    // Lets SIGINT and SIGTERM of the process do what stop() does. Requires: before run().
    void stop_on_signals();

  private:
    class Implementation;
    std::unique_ptr<Implementation> implementation_;
};

}  // namespace unit
