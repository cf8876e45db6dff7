#pragma once

#include <cstdint>
#include <span>

#include "automation/value.h"

namespace host {

// Receives the host's events.
class EventListener {
  public:
    virtual ~EventListener() = default;

    // Element 0 is the kind of event; for X10: 1 the house letter's number part, 2 the house
    // letter, 3 the status (2 on, 3 off). May pump.
    virtual void HSEvent(std::span<const automation::Value> parms) = 0;
};

// The host's event engine, as far as a plug-in sees it.
class Events {
  public:
    virtual ~Events() = default;

    // Kind 1 is X10. The listener must outlive its registration.
    virtual void RegisterEventCB(std::int32_t kind, EventListener& listener) = 0;
    virtual void UnregisterEventCB(EventListener& listener) noexcept = 0;
};

}  // namespace host
