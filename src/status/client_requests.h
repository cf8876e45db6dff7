#pragma once

#include <string>

#include "status/form.h"
#include "status/status_services.h"

namespace status {

// What a posted form of the status page asks for. Part of the page, which then shows the outcome.
// All members may pump, and log their own errors.
class ClientRequests {
  public:
    explicit ClientRequests(const StatusServices& services) : services_(services) {}

    // Carries out what the form asks: a refresh, a sort, a command for a device, a button at the
    // foot of the page, or a save of all that the page shows.
    void ClientRequest(const Form& form);

    // Switches a device of the power line: `sCommand` is "ON" or "OFF". In the network's own
    // program that goes by the unit whose device it is.
    void hsExec(const std::string& sDC, const std::string& sCommand);

    // Forgets the commands that wait for the unit of a device. Only the first unit's base is found
    // by the rule that is used (kept).
    void ResetVeloraQueue(const std::string& sDC);

  private:
    // Whether the rest of the form counts, too.
    enum class Then : bool { Stop, GoOn };

    [[nodiscard]] Then table_request(const Form& form);
    void control_device(const std::string& code, const std::string& value);
    void set_device(const std::string& code, const std::string& word);
    void foot_request(const Form& form);
    void save_setup(const Form& form);
    void save_options(const Form& form);

    StatusServices services_;
};

}  // namespace status
