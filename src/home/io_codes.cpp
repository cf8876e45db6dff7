#include "home/io_codes.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "automation/run_time_error.h"

namespace home {
namespace {

// Without ',', '=', '/', ';', '#', '~' and quotes, which settings lines use, and without '\'.
constexpr std::string_view kIoCodes = "[]^_`{|}!$%&()*+-.:<>?@";

}  // namespace

std::int32_t next_free_io_code(std::span<const DeviceRecord> devices) {
    for (const char code : kIoCodes) {
        const bool taken = std::ranges::any_of(devices, [&](const DeviceRecord& device) {
            return device.fields.hc == std::string_view(&code, 1);
        });
        if (!taken) {
            return code;
        }
    }
    throw automation::RunTimeError(automation::ErrorNumber::DeviceUnavailable,
                                   "No house code is free");
}

}  // namespace home
