#include "appliance/command_queue.h"

#include <array>
#include <chrono>
#include <utility>

#include "appliance/udp_link.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "host/clock.h"
#include "host/host_interface.h"
#include "host/page_fetch.h"
#include "host/pump.h"

// The queue itself: what goes in, what comes out, and what a caller can ask. How a command is sent
// stands in command_sending.cpp, what happens on silence in command_timeout.cpp.
namespace appliance {

namespace {

using automation::guarded;

constexpr std::int32_t kPlaceholderTimeout = 5000;
constexpr std::int16_t kGivenUp = 3;
constexpr int kBusyPolls = 10;
constexpr std::int16_t kPollMillisecondsPerSecond = 100;
constexpr auto kRestInterval = std::chrono::milliseconds(100);
constexpr std::string_view kIdleTag = "0";
constexpr std::string_view kWaitWord = "waitsecs";

}  // namespace

CommandQueue::CommandQueue(core::Instance& instance, QueueOwner& owner, UnitLog& log, UdpLink& udp)
    : instance_(instance), owner_(owner), log_(log), udp_(udp) {}

CommandQueue::~CommandQueue() = default;

void CommandQueue::set_timers(LentTimer command_timer, LentTimer browser_timer) {
    command_timer_ = command_timer;
    browser_timer_ = browser_timer;
}

void CommandQueue::create_page_fetch() {
    IEObj_ = instance_.platform().page_fetcher.create(
        [this](const std::string& url) { IEObj_DocumentComplete(url); });
}

void CommandQueue::create_wait() {
    wait_ = std::make_unique<CWaitNDispatch>(instance_.platform().pump);
}

void CommandQueue::drop_all() {
    for (const LentTimer& lent : {command_timer_, browser_timer_}) {
        if (lent.exists()) {
            lent.timer->set_enabled(false);
        }
    }
    set_timers({}, {});
    IEObj_.reset();
    wait_.reset();
}

void CommandQueue::replace_page_fetch() {
    IEObj_.reset();
    create_page_fetch();
}

void CommandQueue::arm(std::chrono::milliseconds interval) {
    host::Timer& timer = command_timer_.get();
    timer.set_interval(interval);
    timer.set_enabled(true);
}

std::string CommandQueue::AsyncCommand(const std::string& command, std::int32_t timeout_ms,
                                       const std::string& /*tag*/) {
    return guarded(log_, "AsyncCommand ", [&]() -> std::string {
        // The caller's tag has never reached the queue: every command gets one of its own.
        std::string tag = core::MakeTag(instance_);
        log_.debug([&] { return "Async Command, " + command + "," + tag; });
        if (state_.DisablePlugin) {
            return {};
        }
        const std::string word = automation::to_lower(command.substr(0, kWaitWord.size()));
        if (URLBusy()) {
            PutInQueue(command, tag, timeout_ms);
        } else if (word == kWaitWord) {
            begin_timed_wait(command.substr(kWaitWord.size()), tag, timeout_ms);
        } else {
            state_.RetriesLeft = instance_.settings.CommandRetries;
            SendCommandWithTag(command, tag, timeout_ms);
        }
        return tag;
    });
}

void CommandQueue::begin_timed_wait(const std::string& argument, const std::string& tag,
                                    std::int32_t timeout_ms) {
    const auto seconds = automation::parse_number(automation::trim(argument));
    if (!seconds || !command_timer_.exists()) {
        return;
    }
    state_.WaitActive = true;
    state_.RetriesLeft = 0;
    arm(std::chrono::milliseconds(automation::checked_int32(*seconds * 1000)));
    SendCommandWithTag("waitdone", tag, timeout_ms);
}

void CommandQueue::SendCommandWithTag(const std::string& command, const std::string& tag,
                                      std::int32_t timeout_ms) {
    guarded(log_, "SendCommandWithTag ", [&] {
        state_.CurrentTimeout = timeout_ms;
        state_.CurrentTag = tag;
        state_.CurrentCommand = command;
        SendTheCommand();
    });
}

bool CommandQueue::URLBusy() {
    return guarded(log_, "URLBusy ",
                   [&] { return !state_.QueueEmpty || state_.PowerCycleInProgress; });
}

void CommandQueue::DoNextCommand() {
    guarded(log_, "DoNextCommand ", [&] {
        log_.debug([&] {
            return "DoNextCOmmand, questat=" + automation::text_of(state_.QueueEmpty) +
                   ", powerupWait=" + automation::text_of(state_.PowerCycleInProgress);
        });
        if (state_.WaitActive || state_.PowerCycleInProgress) {
            return;
        }
        command_timer_.get().set_enabled(false);
        if (waiting() < 1) {
            state_.QueueEmpty = true;
            state_.CurrentTag = kIdleTag;
            return;
        }
        if (GetFromQueue()) {
            SendTheCommand();
        }
    });
}

void CommandQueue::PutInQueue(const std::string& command, const std::string& tag,
                              std::int32_t timeout_ms) {
    guarded(log_, "PutInQueue ", [&] {
        state_.QueueUpdating = true;
        if (state_.PowerCycleCount >= kGivenUp) {
            forget_given_up_queue();
        } else if (waiting() < kMaximumWaiting) {
            append({command, tag, timeout_ms});
        } else {
            ForcePowerCycle(Waiting::Forget);
        }
        state_.QueueUpdating = false;
        log_.debug([&] { return "PutQue " + command + "," + tag + state_.QueueTags; });
    });
}

void CommandQueue::forget_given_up_queue() {
    shrink_to_placeholder();
    entries_[0] = {"", "", kPlaceholderTimeout};
    state_.QueueEmpty = true;
    if (!owner_.queue_device().empty()) {
        instance_.hs().SetDeviceString(owner_.queue_device(), "");
        instance_.hs().SetDeviceLastChange(owner_.queue_device(), instance_.platform().clock.now());
    }
}

void CommandQueue::append(Entry entry) {
    entries_.push_back(std::move(entry));
    state_.QueueEmpty = false;
    update_queue_tags();
    show_waiting_commands();
}

bool CommandQueue::GetFromQueue() {
    return guarded(log_, "GetFromQueue ", [&] {
        log_.debug([&] {
            return "GetFromQueueUpdatePending= " + automation::text_of(state_.QueueUpdating);
        });
        const bool obtained = !state_.QueueUpdating;
        std::string tag;
        if (obtained) {
            tag = take_first();
        } else {
            // The timer is off by now and stays so: the queue rests until something moves it.
            state_.RetriesLeft = 0;
            command_timer_.get().set_interval(kRestInterval);
            state_.QueueEmpty = false;
        }
        log_.debug(
            [&] { return "GetFromQue Command Obtained Status=" + automation::text_of(obtained); });
        state_.CurrentTag = tag;
        return obtained;
    });
}

std::string CommandQueue::take_first() {
    const Entry first = entries_.at(1);
    state_.CurrentCommand = first.command;
    state_.CurrentTimeout = first.timeout_ms;
    entries_.erase(entries_.begin() + 1);
    update_queue_tags();
    show_waiting_commands();
    state_.QueueEmpty = waiting() < 1;
    state_.RetriesLeft = instance_.settings.CommandRetries;
    return first.tag;
}

void CommandQueue::show_waiting_commands() {
    if (owner_.queue_device().empty()) {
        return;
    }
    instance_.hs().SetDeviceString(owner_.queue_device(), queue_text());
    instance_.hs().SetDeviceLastChange(owner_.queue_device(), instance_.platform().clock.now());
}

void CommandQueue::ShowQueue() {
    guarded(log_, "ShowQueue ", [&] {
        if (!owner_.queue_device().empty()) {
            instance_.hs().SetDeviceString(owner_.queue_device(), queue_text());
        }
    });
}

std::string CommandQueue::queue_text() const {
    std::string text = "Queue: " + std::to_string(waiting()) + ") ";
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        text += (i == 0 ? "" : " | ") + entries_[i].command;
    }
    return text;
}

void CommandQueue::update_queue_tags() {
    state_.QueueTags.clear();
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        state_.QueueTags += (i == 0 ? "" : ",") + entries_[i].tag;
    }
}

void CommandQueue::shrink_to_placeholder() {
    entries_.resize(1);
}

void CommandQueue::ResetQueue() {
    shrink_to_placeholder();
    entries_[0].timeout_ms = kPlaceholderTimeout;
    replace_page_fetch();
    ShowQueue();
}

bool CommandQueue::CommandBusy(const std::string& tag) {
    const bool busy = tag == state_.CurrentTag ||
                      automation::find_ignoring_case(state_.QueueTags, tag) != std::string::npos;
    log_.debug([&] {
        return "CommandBusyStatus=, " + automation::text_of(busy) + ", on Command Tag=" + tag +
               ", From Command Que containing=" + state_.QueueTags;
    });
    return busy;
}

bool CommandQueue::WaitForCommandComplete(const std::string& tag, std::int16_t seconds) {
    return guarded(log_, "WaitForCommandComplete ", [&] {
        for (int poll = 0; poll < kBusyPolls; ++poll) {
            if (!CommandBusy(tag)) {
                return false;
            }
            Wait(automation::multiply_int16(seconds, kPollMillisecondsPerSecond));
            instance_.platform().pump.run_ready();
        }
        return true;
    });
}

void CommandQueue::Wait(std::int32_t milliseconds) {
    if (wait_ == nullptr) {
        throw automation::RunTimeError(automation::ErrorNumber::ObjectVariableNotSet);
    }
    wait_->Wait(milliseconds);
}

std::string CommandQueue::page_text() const {
    if (IEObj_ == nullptr) {
        throw automation::RunTimeError(automation::ErrorNumber::ObjectVariableNotSet);
    }
    return IEObj_->body_inner_text();
}

std::vector<std::string> CommandQueue::waiting_commands() const {
    std::vector<std::string> commands;
    for (std::size_t i = 1; i < entries_.size(); ++i) {
        commands.push_back(entries_[i].command);
    }
    return commands;
}

}  // namespace appliance
