#include "appliance/jukebox_link.h"

#include <utility>

#include "automation/convert.h"
#include "automation/guarded.h"
#include "core/instance.h"

namespace appliance {

namespace {

using namespace std::chrono_literals;
using automation::guarded;
using host::SocketState;

constexpr auto kTimeLimit = 2000ms;  // of one attempt to connect, and of sending
constexpr std::int16_t kAttempts = 6;
constexpr int kOpenings = 2;

}  // namespace

JukeboxLink::JukeboxLink(core::Instance& instance, Tick on_connect_tick, Tick on_send_tick)
    : instance_(instance),
      connect_timer_(instance.platform().pump.make_timer(std::move(on_connect_tick))),
      send_timer_(instance.platform().pump.make_timer(std::move(on_send_tick))),
      phJukeWinsock_(instance.platform().network.make_tcp_socket(*this)) {}

// --- connecting ----------------------------------------------------------------------------------

bool JukeboxLink::ConnectPhJuke(const std::string& host, const std::string& port) {
    return guarded(instance_.log, "ConnectPhJuke ", [&] {
        connect_timer_->set_enabled(false);
        phJukeWinsock_->Close();
        remote_host_ = host;
        remote_port_ = automation::to_int32(automation::Value(port));
        for (int opening = 0; opening < kOpenings; ++opening) {
            if (OpenphJukePort()) {
                return true;
            }
        }
        return false;
    });
}

bool JukeboxLink::OpenphJukePort() {
    return guarded(instance_.log, "OpenphJukePort ", [&] {
        connect_attempts_ = 0;
        if (is_connected()) {
            return true;
        }
        if (is_shut_) {
            return false;
        }
        connect();
        connect_timer_->set_interval(kTimeLimit);
        connect_timer_->set_enabled(true);
        return wait_while(*connect_timer_, [this] { return is_connected(); });
    });
}

void JukeboxLink::ConnectTimer_Timer() {
    ++connect_attempts_;
    if (!is_connected() && connect_attempts_ < kAttempts) {
        connect();
    } else {
        connect_timer_->set_enabled(false);
    }
}

void JukeboxLink::Connect() {
    connect_timer_->set_enabled(false);
}

// To where the last `ConnectPhJuke` wanted, also when that was another one's (kept).
void JukeboxLink::connect() {
    phJukeWinsock_->Close();
    phJukeWinsock_->Connect(remote_host_, remote_port_);
}

bool JukeboxLink::is_connected() const {
    return phJukeWinsock_->State() == SocketState::Connected;
}

// --- sending -------------------------------------------------------------------------------------

void JukeboxLink::SendPhJuke(const std::string& text) {
    guarded(instance_.log, "SendPhJuke ", [&] {
        send_timer_->set_interval(kTimeLimit);
        send_timer_->set_enabled(true);
        phJukeWinsock_->SendData(text);
        wait_while(*send_timer_, [] { return false; });
    });
}

void JukeboxLink::SendTimer_Timer() {
    send_timer_->set_enabled(false);
    ClosePhJukePort();
}

void JukeboxLink::SendComplete() {
    SendTimer_Timer();
}

void JukeboxLink::ClosePhJukePort() noexcept {
    phJukeWinsock_->Close();
}

// --- both ----------------------------------------------------------------------------------------

void JukeboxLink::Error(std::int32_t number, std::string_view description) {
    if (!instance_.ShuttingDown && instance_.log.DebugLog()) {
        const int state = static_cast<int>(phJukeWinsock_->State());
        instance_.log.VeloraWriteLog(
            core::kLogType, "phJukeWinsock_Error at State " + std::to_string(state) + ", " +
                                std::to_string(number) + " " + std::string(description));
    }
}

// Pumps until it is done or the time limit has gone; says whether it is done.
bool JukeboxLink::wait_while(const host::Timer& timer, const std::function<bool()>& done) {
    host::Pump& pump = instance_.platform().pump;
    const auto ends = [&] { return done() || !timer.enabled(); };
    while (!pump.run_until(ends, kTimeLimit)) {
    }
    return done();
}

void JukeboxLink::shut() noexcept {
    is_shut_ = true;
    connect_timer_->set_enabled(false);
    send_timer_->set_enabled(false);
    ClosePhJukePort();
}

}  // namespace appliance
