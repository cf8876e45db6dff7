#pragma once

#include <memory>

#include "appliance/queue_timer.h"
#include "appliance/timer_pools.h"
#include "appliance/udp_link.h"
#include "appliance/velora.h"
#include "core/instance.h"
#include "devices/host_devices.h"
#include "devices/status_board.h"
#include "fleet/fleet.h"
#include "media/sound_files.h"
#include "plugin/velora_utilities.h"
#include "webserver/page_functions.h"
#include "webserver/tcp_server_module.h"

namespace plugin {

// The parts of one plug-in instance, each made of those above it. Owned by the entry class; two
// instances share nothing. `queue_timer` is there between start-up and shut-down only.
struct Subsystems {
    explicit Subsystems(const host::Platform& platform)
        : instance(platform),
          host_devices(instance),
          status_board(instance),
          sound_files(instance),
          timer_pools(instance.log),
          fleet({instance, timer_pools, status_board, host_devices, sound_files, udp_link,
                 device_commands}),
          web_server(instance, pages),
          settings({instance, host_devices, timer_pools, fleet, web_server,
                    [this] { return queue_timer.get(); }}) {}

    core::Instance instance;
    devices::HostDevices host_devices;
    devices::StatusBoard status_board;
    media::SoundFiles sound_files;
    appliance::TimerPools timer_pools;
    appliance::UdpLink udp_link;
    appliance::DeviceCommandTarget device_commands;
    std::unique_ptr<appliance::QueueTimer> queue_timer;
    fleet::Fleet fleet;
    webserver::PageFunctions pages;
    webserver::TCPServerModule web_server;
    VeloraUtilities settings;
};

}  // namespace plugin
