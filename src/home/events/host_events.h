#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "host/events.h"

namespace home {

class EventEngine;

// The events of the house as a plug-in sees and makes them. Owned by the host; the engine outlives
// it.
//
// An event that a plug-in makes is a draft, which counts as the last one, until its fields say what
// the engine can carry out: a telephone line that rings, and one line of script. From then on it is
// an event of the engine like those that a person writes, and survives the program. Group and flags
// have no counterpart there and are not kept.
class HostEvents {
  public:
    explicit HostEvents(EventEngine& engine) : engine_(engine) {}

    [[nodiscard]] std::int32_t EventCount() const;
    [[nodiscard]] std::shared_ptr<host::HostEvent> GetEvent(std::int32_t number) const;
    std::int32_t NewEvent(std::string_view name);
    [[nodiscard]] std::unique_ptr<host::EventEnumerator> GetEventEnumerator() const;
    std::shared_ptr<host::HostEvent> NewEventEx(std::string_view name);

  private:
    class Draft;
    class Existing;
    class Walk;

    using Drafts = std::vector<std::shared_ptr<Draft>>;

    [[nodiscard]] bool is_taken(std::string_view name) const;

    EventEngine& engine_;
    // Shared with the drafts, which leave it when they become events.
    std::shared_ptr<Drafts> drafts_ = std::make_shared<Drafts>();
};

}  // namespace home
