#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace core {
class Instance;
}

namespace callerid {

// The event of the host that brings the telephone add-on's calls to the plug-in. Made for the
// call. Errors are logged with their number.
class CidEvent {
  public:
    static constexpr std::string_view kName = "zynVelora CID";

    explicit CidEvent(core::Instance& instance) : instance_(instance) {}

    // Makes the event for a telephone line, from 1, in a group of events. One that is there stays
    // as it is, whatever its line and group.
    void CreateCIDEvent(const std::string& group, std::int16_t line);

    // Whether the host has an event of this name, without regard to case.
    [[nodiscard]] bool FindEvent(std::string_view name) const;

  private:
    [[nodiscard]] bool find_by_enumerator(const std::string& name) const;
    [[nodiscard]] bool find_by_number(const std::string& name) const;

    core::Instance& instance_;
};

}  // namespace callerid
