#pragma once

#include <boost/asio.hpp>
#include <boost/asio/experimental/awaitable_operators.hpp>
#include <chrono>
#include <tuple>
#include <utility>

namespace unit {

// Longest time that a peer may keep a connection without sending or taking anything.
constexpr std::chrono::seconds kIdleLimit{30};

// After a failed accept: time for the system to find resources again, such as file descriptors.
constexpr std::chrono::milliseconds kAcceptPause{100};

// Completion with an error code instead of an exception: (error_code, results...) as a tuple.
constexpr auto kAsTuple = boost::asio::as_tuple(boost::asio::use_awaitable);

// Waits for the operation, started with kAsTuple, but not longer than `limit`: then it is
// cancelled and its error code is timed_out.
template <typename... Results>
boost::asio::awaitable<std::tuple<boost::system::error_code, Results...>> within(
    std::chrono::milliseconds limit,
    boost::asio::awaitable<std::tuple<boost::system::error_code, Results...>> operation) {
    using namespace boost::asio::experimental::awaitable_operators;
    boost::asio::steady_timer timer(co_await boost::asio::this_coro::executor, limit);
    auto first = co_await (std::move(operation) || timer.async_wait(kAsTuple));
    if (first.index() == 0) {
        co_return std::get<0>(std::move(first));
    }
    // When the whole task is ended, the timer may be the first to notice.
    const boost::system::error_code timer_error = std::get<0>(std::get<1>(first));
    const boost::system::error_code time_over = boost::asio::error::timed_out;
    co_return std::tuple<boost::system::error_code, Results...>(
        timer_error ? timer_error : time_over, Results{}...);
}

}  // namespace unit
