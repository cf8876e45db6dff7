#pragma once

#include <string>
#include <string_view>

#include "core/instance.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"

namespace pages {

// A host and a machine with the real script engine, and the folder C:\House\Scripts.
struct PagesHouse {
    PagesHouse() {
        instance.attach(host, &host);
        instance.log.attach(&host);
        instance.application_path = "C:\\House";
    }

    void put_script(std::string_view name, std::string_view text) {
        machine.files.put("C:\\House\\Scripts\\" + std::string(name), text);
    }

    support::FakeMachine machine;
    support::MemoryHost host;
    core::Instance instance{machine.platform()};
};

}  // namespace pages
