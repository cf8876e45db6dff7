#pragma once

#include "app/json.h"

namespace home {
class EventEngine;
}

namespace app {

// The requests about the house's events; their lines stand in control_service.h. Each gives the
// whole answer and throws RunTimeError for what is wrong with the request, before anything has
// changed. Owned by the service.
class EventRequests {
  public:
    // Must outlive this.
    explicit EventRequests(home::EventEngine& engine) : engine_(engine) {}

    [[nodiscard]] Json events() const;
    Json add(const Json& request);
    Json remove(const Json& request);
    Json run(const Json& request);  // may pump
    Json enable(const Json& request);
    Json disable(const Json& request);

  private:
    home::EventEngine& engine_;
};

}  // namespace app
