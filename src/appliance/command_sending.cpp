#include <algorithm>
#include <array>
#include <chrono>

#include "appliance/command_queue.h"
#include "appliance/udp_link.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "host/clock.h"
#include "host/page_fetch.h"
#include "host/pump.h"

// How the current command leaves: as a power cycle, a datagram, a wait or a page fetch; and the
// page's completion.
namespace appliance {

namespace {

using automation::guarded;
using std::chrono::milliseconds;

constexpr auto kLongestTimeout = milliseconds(60000);
constexpr auto kBrowserHop = milliseconds(50);
constexpr std::size_t kShortestCommand = 8;
constexpr std::string_view kLoadWav = "loadWav.shtml?http://";

bool begins_with(std::string_view command, std::string_view lower_case_word) {
    return automation::to_lower(command.substr(0, lower_case_word.size())) == lower_case_word;
}

// What a word that goes by datagram is to the client program.
enum class UdpForm : std::uint8_t { OneArgument, CommandAndParameter, CallerLines };

struct UdpWord {
    std::string_view command;  // compared with its case
    std::string_view word;     // of the datagram
    UdpForm form = UdpForm::OneArgument;
};

constexpr std::array<UdpWord, 7> kUdpWords{{
    {"beepcmd", "Beep", UdpForm::OneArgument},
    {"screencmd", "Screen", UdpForm::OneArgument},
    {"mailled", "MailLed", UdpForm::OneArgument},
    {"topled", "TopLed", UdpForm::OneArgument},
    {"execute", "Execute", UdpForm::OneArgument},
    {"sendcmd", "", UdpForm::CommandAndParameter},
    {"sendcid", "", UdpForm::CallerLines},
}};

const UdpWord* udp_word_of(std::string_view command) {
    const auto* const found =
        std::find_if(kUdpWords.begin(), kUdpWords.end(),
                     [command](const UdpWord& row) { return command.starts_with(row.command); });
    return found == kUdpWords.end() ? nullptr : found;
}

// The first two fields of "a~b~c"; fewer fields send nothing.
std::optional<std::pair<std::string, std::string>> two_fields(std::string_view argument) {
    const auto first_end = argument.find('~');
    if (first_end == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view rest = argument.substr(first_end + 1);
    return std::pair{std::string(argument.substr(0, first_end)),
                     std::string(rest.substr(0, rest.find('~')))};
}

void send_datagram(UdpLink& udp, const UdpWord& row, std::string_view argument,
                   const std::string& address) {
    if (row.form == UdpForm::OneArgument) {
        udp.UDPSendCommand(row.word, argument, address);
        return;
    }
    auto fields = two_fields(argument);
    if (!fields) {
        return;
    }
    if (row.form == UdpForm::CommandAndParameter) {
        udp.UDPSendCommand(fields->first, fields->second, address);
    } else {
        udp.UDPSendCID(fields->first, fields->second, address);
    }
}

// Seconds of a "waitsecs" command; absent for any other command and for an argument that is no
// number.
std::optional<double> seconds_of_wait(std::string_view command) {
    constexpr std::string_view kWord = "waitsecs";
    if (!begins_with(command, kWord)) {
        return std::nullopt;
    }
    return automation::parse_number(automation::trim(command.substr(kWord.size())));
}

}  // namespace

void CommandQueue::SendTheCommand() {
    guarded(log_, "SendTheCommand ", [&] {
        state_.UDPGap = false;
        log_.debug([&] { return "SendTheCommand=" + state_.CurrentCommand; });
        send_current_command();
    });
}

void CommandQueue::send_current_command() {
    const std::string command = state_.CurrentCommand;  // a wait may bring another one
    if (begins_with(command, "power")) {
        ForcePowerCycle(Waiting::Keep);
        return;
    }
    if (command.size() < kShortestCommand) {
        return;
    }
    if (const UdpWord* const row = udp_word_of(command)) {
        send_datagram(udp_, *row, std::string_view(command).substr(row->command.size()),
                      owner_.IP());
        state_.UDPGap = true;
        go_on_after_local_command();
    } else if (const auto seconds = seconds_of_wait(command)) {
        state_.WaitActive = true;
        Wait(automation::checked_int32(*seconds * 1000));
        state_.WaitActive = false;
        go_on_after_local_command();
    } else if (begins_with(command, "waitdone")) {
        go_on_after_local_command();
    } else {
        fetch_page();
    }
}

void CommandQueue::go_on_after_local_command() {
    if (state_.UDPGap && instance_.settings.UDPDelay > 0) {
        state_.WaitActive = true;
        arm(milliseconds(instance_.settings.UDPDelay));
        return;
    }
    state_.UDPGap = false;
    DoNextCommand();
}

void CommandQueue::fetch_page() {
    state_.SentAt = instance_.platform().clock.now();
    state_.CurrentURL = "http://" + owner_.Computer() + "/" + state_.CurrentCommand;
    if (command_timer_.exists()) {
        arm(std::min(milliseconds(state_.CurrentTimeout), kLongestTimeout));
    }
    if (state_.CurrentCommand.starts_with(kLoadWav)) {
        state_.isSpeaking = true;
    }
    state_.QueueEmpty = false;
    log_.debug([&] {
        return "IE Navigate to " + state_.CurrentURL + " on " + owner_.IP() + " using " +
               (IEObj_ == nullptr ? "Nothing" : IEObj_->type_name());
    });
    if (IEObj_ == nullptr) {
        throw automation::RunTimeError(automation::ErrorNumber::ObjectVariableNotSet);
    }
    IEObj_->Navigate2(state_.CurrentURL);
}

void CommandQueue::IEObj_DocumentComplete(const std::string& url) {
    const std::string timer_type = browser_timer_.exists() ? "Timer" : "Nothing";
    guarded(log_, "IEObj  Timer is " + timer_type, [&] {
        log_.debug([&] { return "IEObj_Complete to " + url; });
        state_.PowerCycleCount = 0;
        if (state_.CurrentCommand.starts_with(kLoadWav)) {
            state_.isSpeaking = false;
        }
        host::Timer& timer = browser_timer_.get();
        timer.set_interval(kBrowserHop);
        timer.set_enabled(true);
    });
}

}  // namespace appliance
