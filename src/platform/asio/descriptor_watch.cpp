#include "platform/asio/descriptor_watch.h"

#include <boost/asio/posix/stream_descriptor.hpp>
#include <utility>

#include "automation/run_time_error.h"
#include "platform/asio/asio_pump_internal.h"

namespace platform {

using boost::asio::posix::stream_descriptor;
using boost::system::error_code;

class DescriptorWatch::Watcher : public std::enable_shared_from_this<Watcher> {
  public:
    Watcher(boost::asio::io_context& context, std::function<void(Ready)> on_ready)
        : descriptor_(context), on_ready_(std::move(on_ready)) {}

    ~Watcher() { release(); }

    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

    void assign(int descriptor) {
        error_code error;
        descriptor_.assign(descriptor, error);
        if (error) {
            throw automation::RunTimeError(automation::ErrorNumber::DeviceIoError, error.message());
        }
    }

    void release() {
        interest_ = {};
        if (descriptor_.is_open()) {
            descriptor_.release();
        }
    }

    void set_interest(Interest interest) {
        interest_ = interest;
        wait_to_read();
        wait_to_write();
    }

  private:
    // A wait in flight stays when the interest goes, and is ignored when it ends.
    void wait_to_read() {
        if (!interest_.read || waits_.read) {
            return;
        }
        waits_.read = true;
        descriptor_.async_wait(stream_descriptor::wait_read,
                               [self = shared_from_this()](const error_code& error) {
                                   self->waits_.read = false;
                                   if (self->interest_.read && !is_cancelled(error)) {
                                       self->tell({.read = true});
                                   }
                               });
    }

    void wait_to_write() {
        if (!interest_.write || waits_.write) {
            return;
        }
        waits_.write = true;
        descriptor_.async_wait(stream_descriptor::wait_write,
                               [self = shared_from_this()](const error_code& error) {
                                   self->waits_.write = false;
                                   if (self->interest_.write && !is_cancelled(error)) {
                                       self->tell({.write = true});
                                   }
                               });
    }

    // The next wait starts behind the call, which is what makes the descriptor unready.
    void tell(Ready ready) {
        try {
            on_ready_(ready);
        } catch (...) {  // such as the end of the pump, which may run anew
            set_interest(interest_);
            throw;
        }
        set_interest(interest_);
    }

    static bool is_cancelled(const error_code& error) {
        return error == boost::asio::error::operation_aborted;
    }

    stream_descriptor descriptor_;
    const std::function<void(Ready)> on_ready_;
    Interest interest_;
    Interest waits_;  // in flight
};

DescriptorWatch::DescriptorWatch(AsioPump& pump, int descriptor,
                                 std::function<void(Ready)> on_ready)
    : watcher_(
          std::make_shared<Watcher>(AsioPumpAccess::io_context_of(pump), std::move(on_ready))) {
    watcher_->assign(descriptor);
}

DescriptorWatch::~DescriptorWatch() {
    watcher_->release();
}

void DescriptorWatch::set_interest(Interest interest) {
    watcher_->set_interest(interest);
}

}  // namespace platform
