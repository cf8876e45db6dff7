#include "appliance/queue_bench.h"

namespace appliance {

QueueBench::QueueBench() {
    instance.attach(host, &host);
    host.put_device(kQueueDevice);
    settings().CommandRetries = 1;
    settings().PowerCycleTime = 5000;
    settings().PowerUpTime = 75000;
    command_timer_ = machine.pump.make_timer([this] { queue_.TimerTimeout(); });
    browser_timer_ = machine.pump.make_timer([this] {
        browser_timer_->set_enabled(false);
        queue_.DoNextCommand();
    });
    queue_.set_timers({command_timer_.get(), 0}, {browser_timer_.get(), 0});
    queue_.create_page_fetch();
    queue_.create_wait();
}

void QueueBench::send_pages(int count, int first) {
    for (int number = first; number < first + count; ++number) {
        send("cmd.shtml?" + std::to_string(number));
    }
}

std::string QueueBench::state() const {
    const QueueState& now = queue_.state();
    const std::pair<bool, const char*> words[] = {
        {now.DisablePlugin, "disabled"},
        {now.PowerCycleInProgress && now.PowerWait, "power off"},
        {now.PowerCycleInProgress, "boot"},
        {now.WaitActive && now.UDPGap, "UDP gap"},
        {now.WaitActive, "delay"},
        {now.QueueEmpty && now.PowerCycleCount >= 3, "given up"},
        {now.QueueEmpty, "idle"},
    };
    for (const auto& [holds, word] : words) {
        if (holds) {
            return word;
        }
    }
    return "fetching";
}

void QueueBench::hsExecX10(std::string_view code, std::string_view command) {
    machine.trace.note("X10 " + std::string(code) + " " + std::string(command));
}

void QueueBench::boot_finished() {
    machine.trace.note("booted");
    if (on_boot_finished) {
        on_boot_finished();
    }
}

std::string QueueBench::UDPSendCommand(std::string_view command, std::string_view parameter,
                                       std::string_view address) {
    machine.trace.note("UDP " + std::string(command) + "(" + std::string(parameter) + ") to " +
                       std::string(address));
    return {};
}

std::string QueueBench::UDPSendCID(std::string& name, std::string& number,
                                   std::string_view address) {
    machine.trace.note("UDP caller(" + name + "," + number + ") to " + std::string(address));
    return {};
}

}  // namespace appliance
