#pragma once

#include <boost/asio/any_io_executor.hpp>
#include <boost/asio/awaitable.hpp>
#include <boost/asio/cancellation_signal.hpp>
#include <cstddef>
#include <list>

namespace unit {

// Coroutines that can be ended together: those of all connections, say, when the power fails.
// Not for several threads. Requires: the executor's loop has run until size() is 0 before the
// group is destroyed, unless nothing was started.
class TaskGroup {
  public:
    explicit TaskGroup(boost::asio::any_io_executor executor);

    TaskGroup(const TaskGroup&) = delete;
    TaskGroup& operator=(const TaskGroup&) = delete;

    // Runs the task to its first wait. An exception that leaves it ends that task alone; one that
    // is not about a connection is reported on standard error.
    // Requires: called on the loop, since a task that is cancelled before its first wait would
    // take the loop down with it.
    void start(boost::asio::awaitable<void> task);

    // Whatever the running tasks wait for fails with operation_aborted. They end from the loop,
    // not within this call; tasks that start later are not touched.
    void cancel_all();

    [[nodiscard]] std::size_t size() const noexcept { return running_.size(); }

  private:
    boost::asio::any_io_executor executor_;
    std::list<boost::asio::cancellation_signal> running_;  // one for each task that has not ended
};

}  // namespace unit
