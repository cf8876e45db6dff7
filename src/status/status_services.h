#pragma once

namespace appliance {
class DeviceCommandTarget;
}

namespace core {
class Instance;
}

namespace devices {
class HostDevices;
}

namespace dialogs {
class Controls;
}

namespace fleet {
class Fleet;
}

namespace pages {
class HostPage;
class HTMLIncludes;
class UserScript;
}  // namespace pages

namespace xap {
class BscEndpoints;
class Filters;
}  // namespace xap

namespace status {

struct StatusState;

// What the status page shows and acts on. All of it outlives the page.
struct StatusServices {
    core::Instance& instance;
    fleet::Fleet& fleet;
    devices::HostDevices& host_devices;
    appliance::DeviceCommandTarget& device_commands;
    pages::HostPage& host_page;
    pages::HTMLIncludes& looks;
    pages::UserScript& user_script;
    xap::Filters& filters;
    xap::BscEndpoints& endpoints;
    dialogs::Controls& setup;
    StatusState& state;
};

}  // namespace status
