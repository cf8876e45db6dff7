#pragma once

#include "host/plugin.h"

namespace plugin {

struct Subsystems;

// What a person wants to know of the running instance.
[[nodiscard]] host::PluginStatus plugin_status(const Subsystems& parts);

}  // namespace plugin
