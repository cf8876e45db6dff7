#include "home/event_board.h"

#include <algorithm>

namespace home {

void EventBoard::RegisterEventCB(std::int32_t kind, host::EventListener& listener) {
    const Registration registration{kind, &listener};
    if (!is_registered(registration)) {
        registrations_.push_back(registration);
    }
}

void EventBoard::UnregisterEventCB(host::EventListener& listener) noexcept {
    std::erase_if(registrations_, [&](const Registration& registration) {
        return registration.listener == &listener;
    });
}

void EventBoard::deliver(std::int32_t kind, std::span<const automation::Value> parms) {
    const std::vector<Registration> at_start = registrations_;
    for (const Registration& registration : at_start) {
        if (registration.kind == kind && is_registered(registration)) {
            registration.listener->HSEvent(parms);
        }
    }
}

bool EventBoard::is_registered(const Registration& registration) const {
    return std::ranges::find(registrations_, registration) != registrations_.end();
}

}  // namespace home
