#include <chrono>

#include "appliance/command_queue.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "host/files.h"
#include "host/host_interface.h"
#include "host/page_fetch.h"
#include "host/pump.h"

// What the command timer's tick means: a power phase is over, a wait is over, or the unit is
// silent.
namespace appliance {

namespace {

using automation::guarded;
using std::chrono::milliseconds;

constexpr std::int32_t kMillisecondsPerMinute = 60000;
constexpr std::int32_t kBootRemainderExtra = 5;
constexpr std::int16_t kTimeoutsBeforePowerCycle = 6;
constexpr std::int16_t kCyclesBeforeGivingUp = 3;

}  // namespace

void CommandQueue::TimerTimeout() {
    guarded(log_, "TimerTimeout ", [&] {
        log_.debug([&] {
            return "TimeoutCount=" + std::to_string(state_.TimeoutCount) +
                   ", Timeout Value for This Command=" + std::to_string(state_.CurrentTimeout) +
                   ", Command Was=" + state_.CurrentCommand +
                   ", Power Turnon Status=" + automation::text_of(state_.PowerWait) +
                   ", Power Wait Status =" + automation::text_of(state_.PowerCycleInProgress) +
                   ", PowerUpTime=" + std::to_string(instance_.settings.PowerUpTime);
        });
        if (state_.DisablePlugin) {
            return;
        }
        if (!state_.PowerCycleInProgress) {
            command_timed_out();
        } else if (state_.PowerWait) {
            off_phase_ended();
        } else {
            boot_minute_passed();
        }
    });
}

void CommandQueue::ForcePowerCycle(Waiting waiting_commands) {
    state_.PowerCycleInProgress = true;
    if (waiting_commands == Waiting::Forget) {
        ResetQueue();
    } else {
        state_.PowerWait = true;  // a tick within the host's call finds the off phase
    }
    owner_.hsExecX10(owner_.PowerDevice(), "off");
    state_.PowerWait = true;
    arm(milliseconds(instance_.settings.PowerCycleTime));
}

void CommandQueue::off_phase_ended() {
    host::Files& files = instance_.platform().files;
    if (!instance_.settings.WindowsShare.empty() && files.FileExists(owner_.BrowserFlagFile())) {
        files.DeleteFile(owner_.BrowserFlagFile());
    }
    owner_.hsExecX10(owner_.PowerDevice(), "on");
    const std::int32_t boot_time = instance_.settings.PowerUpTime;
    const std::int32_t minutes = boot_time / kMillisecondsPerMinute + 1;
    state_.PowerUpMinutes = automation::checked_int16(minutes);
    state_.PowerWait = false;
    arm(milliseconds(boot_time % kMillisecondsPerMinute + kBootRemainderExtra));
    owner_.power_came_back();
}

bool CommandQueue::unit_reports_browser() {
    if (instance_.settings.WindowsShare.empty()) {
        return false;
    }
    host::Files& files = instance_.platform().files;
    const std::string& flag = owner_.BrowserFlagFile();
    return files.FileExists(flag) &&
           automation::find_ignoring_case(files.read(flag), "BROWSER") != std::string::npos;
}

void CommandQueue::boot_minute_passed() {
    if (unit_reports_browser()) {
        state_.PowerUpMinutes = 0;
    }
    state_.PowerUpMinutes = automation::add_int16(state_.PowerUpMinutes, -1);
    if (state_.PowerUpMinutes > 0) {
        arm(milliseconds(kMillisecondsPerMinute));
        return;
    }
    state_.PowerCycleInProgress = false;
    owner_.boot_finished();
    command_timer_.get().set_enabled(false);
    DoNextCommand();
}

void CommandQueue::command_timed_out() {
    state_.WaitActive = false;
    command_timer_.get().set_enabled(false);
    if (state_.UDPGap) {
        state_.UDPGap = false;
        DoNextCommand();
        return;
    }
    state_.RetriesLeft = automation::add_int16(state_.RetriesLeft, -1);
    if (state_.RetriesLeft > 0) {
        SendTheCommand();
    } else {
        DoNextCommand();
    }
    if (!owner_.PowerDevice().empty() && instance_.settings.noResponseAction) {
        count_silence();
    }
}

void CommandQueue::count_silence() {
    state_.TimeoutCount = automation::add_int16(state_.TimeoutCount, 1);
    // A page-fetch object can hang on a dead connection. The command just sent dies with it, and
    // its running timer counts that as one more time-out.
    replace_page_fetch();
    if (state_.TimeoutCount < kTimeoutsBeforePowerCycle) {
        return;
    }
    state_.PowerCycleCount = automation::add_int16(state_.PowerCycleCount, 1);
    if (state_.PowerCycleCount < kCyclesBeforeGivingUp) {
        ForcePowerCycle(Waiting::Forget);
    } else if (state_.PowerCycleCount == kCyclesBeforeGivingUp) {
        shrink_to_placeholder();
        ResetQueue();
        state_.QueueEmpty = true;
        instance_.log.VeloraWriteLog(
            core::kLogType,
            owner_.Name() +
                " Velora has been disabled following three power cylces without response");
    } else {
        state_.PowerCycleCount = kCyclesBeforeGivingUp + 1;
    }
}

}  // namespace appliance
