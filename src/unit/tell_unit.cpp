#include "unit/tell_unit.h"

#include <algorithm>
#include <boost/asio.hpp>
#include <exception>
#include <stdexcept>

#include "unit/within.h"

namespace unit {
namespace {

namespace asio = boost::asio;
using asio::local::stream_protocol;

constexpr std::chrono::seconds kAnswerLimit{5};
constexpr std::size_t kLongestAnswer = std::size_t{1024} * 1024;

asio::awaitable<std::string> exchange(std::string path, std::string line) {
    stream_protocol::socket socket(co_await asio::this_coro::executor);
    co_await socket.async_connect(stream_protocol::endpoint(path), asio::use_awaitable);
    co_await asio::async_write(socket, asio::buffer(line), asio::use_awaitable);
    std::string answer;
    const std::size_t length = co_await asio::async_read_until(
        socket, asio::dynamic_buffer(answer, kLongestAnswer), '\n', asio::use_awaitable);
    co_return answer.substr(0, length - 1);
}

// A line end within the command would make it two, with one answer too many.
std::string as_line(std::string_view command) {
    std::string line(command);
    std::replace(line.begin(), line.end(), '\n', ' ');
    return line + '\n';
}

}  // namespace

std::string tell_unit(const std::filesystem::path& state_directory, std::string_view command) {
    const std::string path = (state_directory / kControlSocketName).string();
    asio::io_context loop;
    std::string answer;
    std::exception_ptr failure;
    bool answered = false;
    asio::co_spawn(loop, exchange(path, as_line(command)),
                   [&](const std::exception_ptr& error, std::string text) {
                       answered = true;
                       failure = error;
                       answer = std::move(text);
                   });
    loop.run_for(kAnswerLimit);
    if (!answered) {
        throw std::runtime_error("the unit in " + state_directory.string() + " does not answer");
    }
    try {
        if (failure) {
            std::rethrow_exception(failure);
        }
    } catch (const boost::system::system_error& error) {
        throw std::runtime_error("no unit is running in " + state_directory.string() + ": " +
                                 error.code().message());
    }
    return answer;
}

}  // namespace unit
