#pragma once

#include "app/json.h"

namespace home {
class EmbeddedHost;
}

namespace host {
class Plugin;
}

namespace app {

// The requests about modem, phonebook and calls; their lines stand in control_service.h. Each gives
// the whole answer and throws RunTimeError for what is wrong with the request, before anything has
// changed. Owned by the service.
class PhoneRequests {
  public:
    // Both must outlive this.
    PhoneRequests(host::Plugin& plugin, home::EmbeddedHost& host) : plugin_(plugin), host_(host) {}

    [[nodiscard]] Json modem() const;
    Json modem_send(const Json& request);
    [[nodiscard]] Json phonebook() const;
    [[nodiscard]] Json look_up(const Json& request);
    Json ring(const Json& request);  // may pump

  private:
    host::Plugin& plugin_;
    home::EmbeddedHost& host_;
};

}  // namespace app
