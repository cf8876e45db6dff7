#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "core/instance.h"
#include "devices/actions.h"
#include "devices/host_devices.h"
#include "devices/status_board.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"

namespace devices {

// A host of either generation with the plug-in's way to its devices, and the house code "[".
class DevicesHouse {
  public:
    enum class Generation { Newer, Older, Hosted };

    explicit DevicesHouse(Generation generation = Generation::Newer) {
        instance.attach(host, &host);
        instance.HostIsV2 = generation == Generation::Newer;
        instance.XapHosted = generation == Generation::Hosted;
        instance.HouseCode = "[";
        instance.settings.FontColor = "white";
    }

    support::FakeMachine machine;
    support::MemoryHost host;
    core::Instance instance{machine.platform()};
    StatusBoard board{instance};
    HostDevices devices{instance, board};
    Actions actions{instance, devices};
};

}  // namespace devices
