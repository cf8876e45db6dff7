#include "dialogs/server_options.h"

#include <array>
#include <utility>

#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "devices/host_devices.h"
#include "udp/client_link.h"

namespace dialogs {

namespace {

using Level = udp::StatusLog::Level;

constexpr std::size_t kStars = 56;

// Runs `test` as if debugging were on.
template <typename Test>
void while_debugging(udp::StatusLog& log, Test&& test) {
    const bool before = log.is_debugging();
    log.set_debugging(true);
    std::forward<Test>(test)();
    log.set_debugging(before);
}

struct Button {
    std::string_view name;
    void (*press)(ServerOptions& dialog);
};

constexpr std::array<Button, 6> kButtons{{
    {"cmdArray(0)", [](ServerOptions& dialog) { dialog.cmdArray_Click(0); }},
    {"cmdArray(1)", [](ServerOptions& dialog) { dialog.cmdArray_Click(1); }},
    {"TestMessageButton", [](ServerOptions& dialog) { dialog.TestMessageButton_Click(); }},
    {"TestCommandButton", [](ServerOptions& dialog) { dialog.TestCommandButton_Click(); }},
    {"AdvancedInfoButton", [](ServerOptions& dialog) { dialog.AdvancedInfoButton_Click(); }},
    {"txtArray", [](ServerOptions& dialog) { dialog.txtArray_DblClick(); }},
}};

}  // namespace

void ServerOptions::write_line(std::string_view text) {
    link_.log().append(std::string(text) + "\r\n");
}

// Dropped by the link's log unless the saved debug flag is on.
void ServerOptions::log(std::string_view text) {
    link_.log().ServerLog(text, Level::Debug);
}

void ServerOptions::Form_Load() {
    log("Entered Form_Load() subroutine.");
    fill_in();
}

void ServerOptions::fill_in() {
    chkArray_ = link_.log().is_debugging();
    list_clients();
}

void ServerOptions::list_clients() {
    write_line("Registered CID clients:");
    for (std::int32_t number = 1; number <= link_.clients().ClientMax(); ++number) {
        write_line("--> " + link_.clients().entry(number));
    }
}

void ServerOptions::cmdArray_Click(std::size_t index) {
    log("Entered cmdArray_Click() subroutine.");
    if (index == 0) {
        link_.log().set_debugging(chkArray_);
    }
    is_open_ = false;
}

void ServerOptions::TestMessageButton_Click() {
    link_.log().ServerLog("Sending Test Message.", Level::Info);
    while_debugging(link_.log(), [this] {
        std::string name = "Test Caller";
        std::string number = "(123)456-7890";
        link_.UDPSendCID(name, number, "");
    });
}

void ServerOptions::TestCommandButton_Click() {
    link_.log().ServerLog("Sending Test Command.", Level::Info);
    is_on_ = !is_on_;
    // To all clients, as `SendCommand` does whatever address it is given.
    while_debugging(link_.log(),
                    [this] { link_.UDPSendCommand("TopLed", is_on_ ? "on" : "off", ""); });
}

void ServerOptions::AdvancedInfoButton_Click() {
    const std::string stars(kStars, '*');
    write_line(stars);
    write_line("                  Velora Server");
    write_line(stars);
    write_line("zynVelora " + std::string(devices::kProgramVersion));
    write_line("Callers and commands for client programs, by UDP");
    write_line(stars);
    list_clients();
}

void ServerOptions::txtArray_DblClick() {
    log("Entered txtArray_DblClick() subroutine.");
    link_.log().empty_box();
}

void ServerOptions::open() {
    is_open_ = true;
    fill_in();
}

std::string ServerOptions::status_box() const {
    return link_.log().status_box();
}

std::vector<std::string> ServerOptions::buttons() const {
    std::vector<std::string> names;
    names.reserve(kButtons.size());
    for (const Button& button : kButtons) {
        names.emplace_back(button.name);
    }
    return names;
}

void ServerOptions::press(std::string_view button) {
    for (const Button& row : kButtons) {
        if (automation::equals_ignoring_case(row.name, button)) {
            row.press(*this);
            return;
        }
    }
    throw automation::RunTimeError(automation::ErrorNumber::PropertyOrMethodNotSupported,
                                   "There is no button '" + std::string(button) + "'");
}

}  // namespace dialogs
