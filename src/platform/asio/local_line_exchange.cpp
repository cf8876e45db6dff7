#include "platform/asio/local_line_exchange.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/local/stream_protocol.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/read_until.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/write.hpp>
#include <boost/system/system_error.hpp>
#include <utility>

#include "platform/asio/asio_pump_internal.h"

namespace platform {

namespace asio = boost::asio;
using asio::local::stream_protocol;
using boost::system::error_code;

namespace {

constexpr std::size_t kLongestAnswer = std::size_t{1024} * 1024;

}  // namespace

class LocalLineExchange::Transfer : public std::enable_shared_from_this<Transfer> {
  public:
    Transfer(asio::io_context& context, std::string_view line,
             std::function<void(const Outcome&)> on_end)
        : socket_(context), limit_(context), line_(line), on_end_(std::move(on_end)) {
        line_ += '\n';
    }

    void start(const std::filesystem::path& path, std::chrono::milliseconds limit) {
        limit_.expires_after(limit);
        limit_.async_wait(step([](Transfer& self) { self.fail("no answer in time"); }));
        try {
            socket_.async_connect(stream_protocol::endpoint(path.string()),
                                  step([](Transfer& self) { self.write(); }));
        } catch (const boost::system::system_error& error) {
            asio::post(socket_.get_executor(),
                       [failed = step([](Transfer&) {}), code = error.code()] { failed(code); });
        }
    }

    void silence() noexcept {
        on_end_ = nullptr;
        close();
    }

  private:
    // A wait's handler: goes on with `next`, or ends the exchange with the wait's error.
    template <typename Next>
    struct Step {
        std::shared_ptr<Transfer> self;
        Next next;

        void operator()(const error_code& error, std::size_t /*length*/ = 0) const {
            if (!self->on_end_) {
                return;
            }
            if (error) {
                self->fail(error.message());
            } else {
                next(*self);
            }
        }
    };

    template <typename Next>
    [[nodiscard]] Step<Next> step(Next next) {
        return {shared_from_this(), next};
    }

    void write() {
        asio::async_write(socket_, asio::buffer(line_), step([](Transfer& self) { self.read(); }));
    }

    void read() {
        asio::async_read_until(socket_, asio::dynamic_buffer(answer_, kLongestAnswer), '\n',
                               step([](Transfer& self) {
                                   self.end({self.answer_.substr(0, self.answer_.find('\n')), {}});
                               }));
    }

    void fail(const std::string& reason) { end({{}, reason}); }

    void end(const Outcome& outcome) {
        const auto on_end = std::exchange(on_end_, nullptr);
        close();
        on_end(outcome);
    }

    void close() noexcept {
        error_code ignored;
        socket_.close(ignored);
        limit_.cancel(ignored);
    }

    stream_protocol::socket socket_;
    asio::steady_timer limit_;
    std::string line_;
    std::string answer_;
    std::function<void(const Outcome&)> on_end_;  // empty once it is over
};

LocalLineExchange::LocalLineExchange(AsioPump& pump, const std::filesystem::path& path,
                                     std::string_view line, std::chrono::milliseconds limit,
                                     std::function<void(const Outcome&)> on_end)
    : transfer_(std::make_shared<Transfer>(AsioPumpAccess::io_context_of(pump), line,
                                           std::move(on_end))) {
    transfer_->start(path, limit);
}

LocalLineExchange::~LocalLineExchange() {
    transfer_->silence();
}

}  // namespace platform
