#pragma once

#include <deque>
#include <functional>

#include "xap/xap_queued_message.h"

namespace core {
class Instance;
}

namespace host {
class Timer;
}

namespace xap {

// Messages that wait, so that a long answer goes to the network in steps of 200 ms. Part of the
// node. Its length has no limit.
class XapMessageQueue {
  public:
    // The timer that paces; none before start-up and after shut-down.
    using BSCTimer = std::function<host::Timer*()>;

    XapMessageQueue(core::Instance& instance, BSCTimer timer)
        : instance_(instance), timer_(std::move(timer)) {}

    // Sends the message at once if none has gone in the last 200 ms, else puts it behind those that
    // wait. Throws: RunTimeError of the callback object.
    void send_in_turn(const xapQueuedMessage& message);

    // Sends past the queue. Throws likewise.
    void send_at_once(const xapQueuedMessage& message);

    // One tick: the next message, or the end of the ticks. A message that cannot be sent is logged
    // and lost.
    void BSCTimer_Timer();

    void clear() noexcept { messages_.clear(); }

  private:
    core::Instance& instance_;
    BSCTimer timer_;
    std::deque<xapQueuedMessage> messages_;
};

}  // namespace xap
