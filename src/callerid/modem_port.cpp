#include "callerid/modem_port.h"

#include <chrono>
#include <utility>

#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"
#include "callerid/echo_window.h"
#include "core/instance.h"

namespace callerid {

namespace {

using automation::guarded;
using automation::RunTimeError;

constexpr int kAttempts = 2;
constexpr std::chrono::seconds kPauseForLostDevice{5};

}  // namespace

ModemPort::ModemPort(core::Instance& instance, EchoWindow& echo,
                     std::function<void(std::string_view)> on_bytes)
    : instance_(instance), echo_(echo), on_bytes_(std::move(on_bytes)) {}

void ModemPort::open_from_settings() {
    if (comm_port_open_ || retry_ != nullptr) {
        return;
    }
    comm_port_open_ = InitCommPort(instance_.settings.CIDCommPort);
    send_init_string();
}

void ModemPort::send_init_string() {
    const std::string& text = instance_.settings.CIDModemInitString;
    if (comm_port_open_ && !text.empty()) {
        ModemSend(text + "\r\n");
    }
}

bool ModemPort::InitCommPort(const std::string& port) {
    if (!automation::is_numeric(port)) {
        return false;
    }
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (OpenCommPort(port, instance_.settings.CIDPortString)) {
            instance_.log.VeloraWriteLog(core::kLogType,
                                         "zynVelora Modem Comm Port " + port + " Opened");
            return true;
        }
        instance_.log.VeloraWriteLog(core::kLogType,
                                     "Error Opening zynVelora Modem Comm Port number  " + port);
        CloseCommPort(port);
    }
    return false;
}

bool ModemPort::OpenCommPort(const std::string& port, const std::string& line) {
    return guarded(instance_.log, "Open Comm Port ", [&] {
        open(port, line);
        return true;
    });
}

void ModemPort::open(const std::string& port, const std::string& line) {
    if (com1_ == nullptr) {
        com1_ = instance_.platform().serial_ports.make_serial_port(
            {.on_bytes = [this](std::string_view bytes) { on_bytes_(bytes); },
             .on_lost = [this](std::string_view reason) { on_lost(reason); }});
    }
    if (!com1_->is_open()) {
        com1_->open(automation::text_of(automation::numeric_prefix(port)), line);
        port_ = port;
    }
}

void ModemPort::CloseCommPort(const std::string& port) {
    if (com1_ != nullptr) {
        com1_->close();
    }
    instance_.log.VeloraWriteLog(core::kLogType, "Closed Comm Port " + port);
    instance_.log.clear_pending();
}

void ModemPort::ModemSend(const std::string& text) {
    if (!comm_port_open_) {
        return;
    }
    guarded(instance_.log, "ModemSend: ", [&] {
        instance_.log.debug([&] { return "Send=" + text; });
        echo_.add_data("\r\n[Sent to Modem:     " +
                       automation::replace_all(text, "\r\n", "<crlf>") + " ]\r\n");
        com1_->write(text);
    });
}

void ModemPort::release() {
    retry_.reset();
    com1_.reset();
    comm_port_open_ = false;
}

// --- a device that goes away --------------------------------------------------------------------

// By itself the reader stays deaf, and nobody hears of it.
void ModemPort::on_lost(std::string_view reason) {
    if (!instance_.platform().protection.lost_modem_comes_back) {
        return;
    }
    comm_port_open_ = false;
    instance_.log.VeloraWriteLog(
        core::kLogType,
        ("zynVelora Modem Comm Port " + port_ + " is gone").append(": ").append(reason));
    retry_ = instance_.platform().pump.make_timer([this] { try_again(); });
    retry_->set_interval(kPauseForLostDevice);
    retry_->set_enabled(true);
}

void ModemPort::try_again() {
    try {
        open(port_, instance_.settings.CIDPortString);
    } catch (const RunTimeError&) {  // it is still gone, as has been told
        return;
    }
    retry_.reset();
    comm_port_open_ = true;
    instance_.log.VeloraWriteLog(core::kLogType, "zynVelora Modem Comm Port " + port_ + " Opened");
    send_init_string();
}

}  // namespace callerid
