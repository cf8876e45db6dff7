#pragma once

#include "app/json.h"

namespace host {
class Plugin;
class ServerDialog;
class SetupDialog;
}  // namespace host

namespace app {

// The requests about the plug-in's two dialogs; their lines stand in control_service.h. Each gives
// the whole answer and throws RunTimeError: 5 for what is wrong with the request, 438 for a plug-in
// that has no dialogs, and what the dialog throws. Owned by the service.
class DialogRequests {
  public:
    // Must outlive this.
    explicit DialogRequests(host::Plugin& plugin) : plugin_(plugin) {}

    Json setup(const Json& request);
    Json setup_set(const Json& request);
    Json setup_press(const Json& request);  // may pump

    // May pump. Throws: RunTimeError 57 when not everything could be stored.
    Json setup_ok(const Json& request);
    Json setup_cancel();

    Json server_open();
    [[nodiscard]] Json server_options() const;
    Json server_debug(const Json& request);
    Json server_press(const Json& request);  // may pump

  private:
    [[nodiscard]] host::SetupDialog& setup_dialog() const;
    [[nodiscard]] host::ServerDialog& server_dialog() const;

    host::Plugin& plugin_;
};

}  // namespace app
