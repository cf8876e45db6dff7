#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "appliance/queue_timer.h"
#include "appliance/timer_pools.h"
#include "appliance/velora.h"
#include "callerid/caller_id.h"
#include "core/instance.h"
#include "devices/actions.h"
#include "devices/host_devices.h"
#include "devices/status_board.h"
#include "dialogs/server_options.h"
#include "dialogs/velora_setup.h"
#include "fleet/device_commands.h"
#include "fleet/fleet.h"
#include "fleet/supervision.h"
#include "media/sound_files.h"
#include "pages/convert_asp.h"
#include "pages/headers/host_page.h"
#include "pages/html_includes.h"
#include "pages/page_engine.h"
#include "pages/user_script.h"
#include "plugin/server_pages.h"
#include "plugin/velora_utilities.h"
#include "slideshow/slideshow.h"
#include "slideshow/slideshow_asp.h"
#include "status/status_asp.h"
#include "status/status_state.h"
#include "status/visitors.h"
#include "udp/client_link.h"
#include "webserver/tcp_server_module.h"
#include "xap/node.h"

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
          udp_link(instance),
          device_commands({instance, fleet, status_board, caller_id.dispatch()}),
          fleet({instance, timer_pools, status_board, host_devices, sound_files, udp_link,
                 device_commands}),
          caller_id({instance, fleet, udp_link, status_board, [this] { return timer4(); },
                     [this] { return timer5(); }}),
          supervision(instance, fleet),
          user_script(instance, [this] { return script_queue_timer(); }),
          xap_node({instance, fleet, host_devices, status_board, actions, device_commands,
                    caller_id, [this] { return bsc_timer(); },
                    [this](std::string_view tag) { user_script.add(tag); }}),
          host_page(instance, nullptr),
          page_engine(instance),
          html_includes(instance, page_engine, host_page),
          convert_asp(instance, page_engine, html_includes),
          slideshow(instance, fleet, [this] { return slideshow_timer(); }),
          slideshow_asp({instance, fleet, status_board, convert_asp, slideshow.lists()}),
          status_asp({instance, fleet, host_devices, device_commands, host_page, html_includes,
                      user_script, xap_node.filters(), xap_node.endpoints(), setup, status_state}),
          status_visitors(instance, fleet),
          server_pages(slideshow_asp, status_asp, status_visitors),
          web_server(instance, server_pages),
          settings({instance, host_devices, timer_pools, fleet, supervision, slideshow, page_engine,
                    web_server, caller_id, [this] { return queue_timer.get(); }}),
          setup({instance, fleet, [this] { settings.InitVeloraUtilities(); },
                 [this](std::string_view command) { jukebox(command); }}),
          server_options(udp_link) {}

    core::Instance instance;
    devices::StatusBoard status_board;
    devices::HostDevices host_devices;
    devices::Actions actions;
    media::SoundFiles sound_files;
    appliance::TimerPools timer_pools;
    udp::ClientLink udp_link;
    fleet::DeviceCommands device_commands;
    std::unique_ptr<appliance::QueueTimer> queue_timer;
    fleet::Fleet fleet;
    callerid::CallerId caller_id;
    fleet::Supervision supervision;
    pages::UserScript user_script;
    xap::Node xap_node;
    pages::HostPage host_page;
    pages::PageEngine page_engine;
    pages::HTMLIncludes html_includes;
    pages::ConvertASP convert_asp;
    slideshow::Slideshow slideshow;
    slideshow::SlideshowAsp slideshow_asp;
    status::StatusState status_state;
    status::StatusAsp status_asp;
    status::Visitors status_visitors;
    ServerPages server_pages;
    webserver::TCPServerModule web_server;
    VeloraUtilities settings;
    dialogs::VeloraSetup setup;
    dialogs::ServerOptions server_options;

    // A command to the jukebox of every unit, which is an operation of the entry class's.
    std::function<void(std::string_view command)> jukebox = [](std::string_view) {};

  private:
    [[nodiscard]] host::Timer* script_queue_timer() const {
        return queue_timer == nullptr ? nullptr : &queue_timer->ScriptQueueTimer();
    }

    [[nodiscard]] host::Timer* timer4() const {
        return queue_timer == nullptr ? nullptr : &queue_timer->Timer4();
    }

    [[nodiscard]] host::Timer* timer5() const {
        return queue_timer == nullptr ? nullptr : &queue_timer->Timer5();
    }

    [[nodiscard]] host::Timer* bsc_timer() const {
        return queue_timer == nullptr ? nullptr : &queue_timer->BSCTimer();
    }

    [[nodiscard]] host::Timer* slideshow_timer() const {
        return queue_timer == nullptr ? nullptr : &queue_timer->Timer3();
    }
};

}  // namespace plugin
