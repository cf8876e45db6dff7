#pragma once

#include "app/json.h"

namespace home {
class EmbeddedHost;
}

namespace host {
class Plugin;
}

namespace app {

// The requests about devices, power line, menu and buttons; their lines stand in
// control_service.h. Each gives the whole answer and throws RunTimeError for what is wrong with
// the request, before anything has changed. Owned by the service. All that set something off may
// pump.
class DeviceRequests {
  public:
    // Both must outlive this.
    DeviceRequests(host::Plugin& plugin, home::EmbeddedHost& host) : plugin_(plugin), host_(host) {}

    [[nodiscard]] Json devices() const;
    [[nodiscard]] Json device(const Json& request) const;
    Json set(const Json& request);
    Json x10(const Json& request);
    [[nodiscard]] Json menu() const;
    Json select(const Json& request);
    Json press(const Json& request);

  private:
    host::Plugin& plugin_;
    home::EmbeddedHost& host_;
};

}  // namespace app
