#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "automation/value.h"

namespace host {

// What sets an event off, and which call does so, by their numbers in the host.
inline constexpr std::int32_t kSetOffByTelephone = 10;
inline constexpr std::int32_t kCallComesIn = 4;

// What an event of the host is.
struct EventFields {
    std::string name;
    std::string scripts;           // lines of script, each behind "&", or names of script files
    std::int32_t ev_abs_time = 0;  // kind of what sets it off
    std::int16_t phone_line = 0;   // from 1
    std::int32_t phone_event = 0;  // kind of telephone call
    std::string Group;
    std::int32_t misc = 0;  // flags, kept as given

    friend bool operator==(const EventFields&, const EventFields&) = default;
};

// One event of the host. The object stays valid when the event is deleted; writes are then lost.
class HostEvent {
  public:
    virtual ~HostEvent() = default;
    [[nodiscard]] virtual EventFields fields() const = 0;
    virtual void set_fields(const EventFields& fields) = 0;
};

// A walk over all events. When `CountChanged` turns true the walk has missed or repeated some.
class EventEnumerator {
  public:
    virtual ~EventEnumerator() = default;
    [[nodiscard]] virtual bool Finished() const = 0;
    [[nodiscard]] virtual bool CountChanged() const = 0;
    virtual std::shared_ptr<HostEvent> GetNext() = 0;  // none at the end
};

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

    // Older generation of the host: events by number, from 1; none for a number that is not there.
    [[nodiscard]] virtual std::int32_t EventCount() = 0;
    [[nodiscard]] virtual std::shared_ptr<HostEvent> GetEvent(std::int32_t number) = 0;
    virtual std::int32_t NewEvent(std::string_view name) = 0;

    // Newer generation. Both generations throw RunTimeError 58 for a name that is taken.
    [[nodiscard]] virtual std::unique_ptr<EventEnumerator> GetEventEnumerator() = 0;
    virtual std::shared_ptr<HostEvent> NewEventEx(std::string_view name) = 0;
};

}  // namespace host
