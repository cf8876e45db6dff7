#include <array>
#include <optional>

#include "appliance/velora.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "devices/status_board.h"
#include "host/pump.h"

// Sleeping, waking, and what the unit says of it.
namespace appliance {

namespace {

using automation::guarded;
using devices::SubDevice;

constexpr std::int32_t kCommandTimeout = 5000;  // milliseconds
constexpr std::string_view kSleepStatusCommand = "screen.shtml?p";
constexpr std::int16_t kReplyAwaited = 3;
constexpr int kReplyPolls = 50;
constexpr std::int32_t kReplyPollMilliseconds = 100;

struct SleepAction {
    std::string_view action;
    std::string_view page;
    std::string_view client_command;  // in place of the page where a client runs; "" for none
    std::optional<bool> is_awake;     // absent: flipped
    std::optional<std::int16_t> sleep_state;  // absent: as the flag then says
    std::int16_t backlight_code;
};

constexpr std::array<SleepAction, 5> kSleepActions{{
    {"sleep", "screen.shtml?0", "screencmdoff", false, std::int16_t{0}, 0},
    {"awake", "screen.shtml?1", "screencmdon", true, std::int16_t{1}, 1},
    {"always awake", "screen.shtml?1", "screencmdon", true, std::int16_t{2}, 1},
    {"power cycle", "power", "", true, std::int16_t{3}, 1},
    {"toggle", "screen.shtml?t", "", std::nullopt, std::nullopt, 1},
}};

const SleepAction* sleep_action(const std::string& word) {
    const std::string wanted = automation::to_lower(word);
    for (const SleepAction& row : kSleepActions) {
        if (row.action == wanted) {
            return &row;
        }
    }
    return nullptr;
}

}  // namespace

std::string_view Velora::Sleep() const {
    switch (static_cast<SleepState>(sleep_state_)) {
        case SleepState::Awake:
            return "awake";
        case SleepState::AlwaysAwake:
            return "always awake";
        case SleepState::PowerCycle:
            return "power cycle";
        case SleepState::Sleep:
            break;
    }
    return "sleep";
}

std::string Velora::SetSleep(const std::string& action, const std::string& tag) {
    return SleepControl(action, tag);
}

std::string Velora::SleepControl(const std::string& action, const std::string& tag) {
    return guarded(log_, "SleepControl ", [&] {
        std::string command;  // an unknown word queues an empty command
        std::int16_t backlight_code = 0;
        if (const SleepAction* const row = sleep_action(action)) {
            const bool by_client = !row->client_command.empty() && HasClient();
            command = by_client ? row->client_command : row->page;
            is_awake_ = row->is_awake.value_or(!is_awake_);
            sleep_state_ = row->sleep_state.value_or(is_awake_ ? std::int16_t{1} : std::int16_t{0});
            backlight_code = row->backlight_code;
        }
        if (!device_code(SubDevice::Awake).empty()) {
            show_status(SubDevice::Awake, sleep_state_ + devices::kStatusSleeping);
            show_status(SubDevice::Backlight, devices::kStatusBacklightOff + backlight_code);
        }
        return AsyncCommand(command, kCommandTimeout, tag);
    });
}

std::string Velora::RefreshSleepStatus(const std::string& tag) {
    return SendSleepStatus(tag);
}

std::string Velora::SendSleepStatus(const std::string& tag) {
    return guarded(log_, "SendSleepStatus ", [&] {
        log_.debug([&] { return "sleep tag=" + tag; });
        return AsyncCommand(std::string(kSleepStatusCommand), kCommandTimeout, tag);
    });
}

bool Velora::AwakeStatus() {
    return guarded(log_, "AwakeStatus ", [&] {
        pending_sleep_state_ = kReplyAwaited;
        AsyncCommand(std::string(kSleepStatusCommand), kCommandTimeout, "");
        for (int poll = 0; poll < kReplyPolls && pending_sleep_state_ == kReplyAwaited; ++poll) {
            queue_.Wait(kReplyPollMilliseconds);
            services_.instance.platform().pump.run_ready();
        }
        const bool is_answered = pending_sleep_state_ >= 0 && pending_sleep_state_ < kReplyAwaited;
        if (!device_code(SubDevice::Awake).empty() && is_answered) {
            show_status(SubDevice::Awake, pending_sleep_state_ + devices::kStatusSleeping);
            show_status(SubDevice::Backlight, pending_sleep_state_ != 0
                                                  ? devices::kStatusBacklightOn
                                                  : devices::kStatusBacklightOff);
        }
        return pending_sleep_state_ != 0;
    });
}

void Velora::ReceiveData() {
    guarded(log_, "ReceiveData ", [&] {
        if (queue_.state().CurrentCommand == kSleepStatusCommand) {
            read_sleep_answer(queue_.page_text());
        }
        queue_.DoNextCommand();
    });
}

void Velora::read_sleep_answer(const std::string& body) {
    // A page that the unit's browser cancelled is no sign of life.
    if (!body.starts_with("Action cancelled")) {
        queue_.clear_timeout_count();
    }
    log_.debug([&] { return "Sleep Result Body " + body; });
    is_awake_ = automation::trim(body) == "1";
    const bool stays_awake = static_cast<SleepState>(sleep_state_) == SleepState::AlwaysAwake;
    pending_sleep_state_ = !is_awake_    ? std::int16_t{0}
                           : stays_awake ? std::int16_t{2}
                                         : std::int16_t{1};
    if (!device_code(SubDevice::Awake).empty() && pending_sleep_state_ != sleep_state_) {
        show_status(SubDevice::Awake, pending_sleep_state_ + devices::kStatusSleeping);
        show_status(SubDevice::Backlight,
                    is_awake_ ? devices::kStatusBacklightOn : devices::kStatusBacklightOff);
    }
    sleep_state_ = pending_sleep_state_;
}

}  // namespace appliance
