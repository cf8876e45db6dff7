#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace host {
class CallbackObject;
class Timer;
}  // namespace host

namespace plugin {

struct Subsystems;
class TimerEvents;

// From registration to the end: the role of the instance, its start-up and its shut-down. Owned by
// the entry class. A stopped instance does not start again.
class Lifecycle {
  public:
    Lifecycle(Subsystems& parts, TimerEvents& timer_events)
        : parts_(parts), timer_events_(timer_events) {}

    Lifecycle(const Lifecycle&) = delete;
    Lifecycle& operator=(const Lifecycle&) = delete;
    ~Lifecycle();

    // Takes the host over and decides the role. Throws: RunTimeError 91 when the host gives no
    // interface.
    void RegisterCallback(host::CallbackObject& frm);

    // All three give "" and act once; whoever comes first of them keeps `InitIO` from starting the
    // instance up. May pump. Errors are logged.
    std::string InitIO(std::int32_t port);
    std::string InitX10(std::int32_t port);
    std::string InitIR(std::int32_t port);

    void ShutdownIO();

  private:
    void start_up();
    void begin();
    void create_slideshow_stub();
    void load_queue_timer();
    void load_filters();
    void sync_with_host();
    void use_menu_database();
    void register_menus();

    Subsystems& parts_;
    TimerEvents& timer_events_;
    std::unique_ptr<host::Timer> save_timer_;  // of recorded values, under protection
    bool x10_init_done_ = false;
    bool ir_init_done_ = false;
    bool io_init_done_ = false;
};

}  // namespace plugin
