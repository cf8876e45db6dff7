#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "automation/value.h"
#include "host/events.h"

namespace home {

// Who wants to hear of which kind of event. Owned by the host.
class EventBoard {
  public:
    static constexpr std::int32_t kX10 = 1;

    // A listener that is registered twice for a kind hears each event once.
    void RegisterEventCB(std::int32_t kind, host::EventListener& listener);
    void UnregisterEventCB(host::EventListener& listener) noexcept;

    // Tells those that are registered now and still are when their turn comes, in the order of
    // registration. May pump.
    void deliver(std::int32_t kind, std::span<const automation::Value> parms);

  private:
    struct Registration {
        std::int32_t kind;
        host::EventListener* listener;
        friend bool operator==(const Registration&, const Registration&) = default;
    };

    [[nodiscard]] bool is_registered(const Registration& registration) const;

    std::vector<Registration> registrations_;
};

}  // namespace home
