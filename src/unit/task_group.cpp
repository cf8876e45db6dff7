#include "unit/task_group.h"

#include <boost/asio.hpp>
#include <exception>
#include <iostream>
#include <utility>

namespace unit {
namespace {

void report(const std::exception_ptr& failure) {
    try {
        if (failure) {
            std::rethrow_exception(failure);
        }
    } catch (const boost::system::system_error&) {
        // A peer that went away, or the end of the task by cancel_all().
    } catch (const std::exception& error) {
        std::cerr << "unit: " << error.what() << '\n';
    }
}

}  // namespace

TaskGroup::TaskGroup(boost::asio::any_io_executor executor) : executor_(std::move(executor)) {}

void TaskGroup::start(boost::asio::awaitable<void> task) {
    const auto signal = running_.emplace(running_.end());
    boost::asio::co_spawn(executor_, std::move(task),
                          boost::asio::bind_cancellation_slot(
                              signal->slot(), [this, signal](const std::exception_ptr& failure) {
                                  running_.erase(signal);
                                  report(failure);
                              }));
}

void TaskGroup::cancel_all() {
    for (auto& signal : running_) {
        signal.emit(boost::asio::cancellation_type::terminal);
    }
}

}  // namespace unit
