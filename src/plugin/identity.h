#pragma once

#include <cstdint>
#include <string_view>

// What the plug-in tells a host of itself.
namespace plugin {

inline constexpr std::string_view kPluginName = "zynVelora";
inline constexpr std::int32_t kAccessLevel = 1;
inline constexpr std::int32_t kInputOutput = 4;  // kind of plug-in, as `Capabilities` tells it

}  // namespace plugin
