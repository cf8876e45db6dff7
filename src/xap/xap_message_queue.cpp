#include "xap/xap_message_queue.h"

#include <chrono>
#include <utility>

#include "automation/guarded.h"
#include "core/instance.h"
#include "host/host_interface.h"
#include "host/pump.h"

namespace xap {

namespace {

constexpr std::chrono::milliseconds kBetweenMessages{200};

void arm(host::Timer& timer) {
    timer.set_interval(kBetweenMessages);
    timer.set_enabled(true);
}

}  // namespace

void XapMessageQueue::send_in_turn(const xapQueuedMessage& message) {
    host::Timer* const timer = timer_();
    if (timer != nullptr && timer->enabled()) {
        messages_.push_back(message);
        return;
    }
    if (timer != nullptr) {
        arm(*timer);
    }
    send_at_once(message);
}

void XapMessageQueue::send_at_once(const xapQueuedMessage& message) {
    instance_.callback().SendXapMessage(message.MsgTarget, message.MsgClass, message.MsgSection,
                                        message.MsgData, message.MsgSubAddress, message.MsgUID);
}

void XapMessageQueue::BSCTimer_Timer() {
    automation::guarded(instance_.log, "BSCTimer_Timer", [&] {
        host::Timer* const timer = timer_();
        if (timer == nullptr) {
            return;
        }
        if (messages_.empty()) {
            timer->set_enabled(false);
            return;
        }
        arm(*timer);
        const xapQueuedMessage message = std::move(messages_.front());
        messages_.pop_front();
        send_at_once(message);
    });
}

}  // namespace xap
