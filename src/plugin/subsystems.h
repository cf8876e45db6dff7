#pragma once

#include <memory>

#include "appliance/caller_display.h"
#include "appliance/queue_timer.h"
#include "appliance/timer_pools.h"
#include "appliance/udp_link.h"
#include "appliance/velora.h"
#include "core/instance.h"
#include "devices/actions.h"
#include "devices/host_devices.h"
#include "devices/status_board.h"
#include "fleet/device_commands.h"
#include "fleet/fleet.h"
#include "fleet/supervision.h"
#include "media/sound_files.h"
#include "pages/user_script.h"
#include "plugin/velora_utilities.h"
#include "webserver/page_functions.h"
#include "webserver/tcp_server_module.h"

namespace plugin {

// The parts of one plug-in instance, each made of those above it. Owned by the entry class; two
// instances share nothing. `queue_timer` is there between start-up and shut-down only.
struct Subsystems {
    explicit Subsystems(const host::Platform& platform)
        : instance(platform),
          status_board(instance),
          host_devices(instance, status_board),
          actions(instance, host_devices),
          sound_files(instance),
          timer_pools(instance.log),
          device_commands({instance, fleet, status_board, caller_display}),
          fleet({instance, timer_pools, status_board, host_devices, sound_files, udp_link,
                 device_commands}),
          supervision(instance, fleet),
          user_script(instance, [this] { return script_queue_timer(); }),
          web_server(instance, pages),
          settings({instance, host_devices, timer_pools, fleet, supervision, web_server,
                    [this] { return queue_timer.get(); }}) {}

    core::Instance instance;
    devices::StatusBoard status_board;
    devices::HostDevices host_devices;
    devices::Actions actions;
    media::SoundFiles sound_files;
    appliance::TimerPools timer_pools;
    appliance::UdpLink udp_link;
    appliance::CallerDisplay caller_display;
    fleet::DeviceCommands device_commands;
    std::unique_ptr<appliance::QueueTimer> queue_timer;
    fleet::Fleet fleet;
    fleet::Supervision supervision;
    pages::UserScript user_script;
    webserver::PageFunctions pages;
    webserver::TCPServerModule web_server;
    VeloraUtilities settings;

  private:
    [[nodiscard]] host::Timer* script_queue_timer() const {
        return queue_timer == nullptr ? nullptr : &queue_timer->ScriptQueueTimer();
    }
};

}  // namespace plugin
