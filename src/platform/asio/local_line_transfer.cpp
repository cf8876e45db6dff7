#include "platform/asio/local_line_transfer.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/write.hpp>
#include <utility>

namespace platform {

namespace asio = boost::asio;
using boost::system::error_code;

LocalLineTransfer::LocalLineTransfer(Socket socket, Owner& owner)
    : socket_(std::move(socket)), owner_(owner) {}

void LocalLineTransfer::send_line(std::string_view line) {
    if (phase_ != Phase::Open) {
        return;
    }
    if (queued_.size() + line.size() > LineConnection::kUnreadBytes) {
        end();
        return;
    }
    queued_ += line;
    queued_ += '\n';
    if (!writing_) {
        write();
    }
}

void LocalLineTransfer::close_when_sent() {
    if (phase_ != Phase::Open) {
        return;
    }
    if (writing_) {
        phase_ = Phase::Sending;
    } else {
        end();
    }
}

void LocalLineTransfer::drop() noexcept {
    phase_ = Phase::Closed;
    error_code ignored;
    socket_.close(ignored);
}

void LocalLineTransfer::read() {
    socket_.async_read_some(asio::buffer(chunk_), [self = shared_from_this()](
                                                      const error_code& error, std::size_t length) {
        if (self->phase_ == Phase::Closed) {
            return;
        }
        if (error) {
            self->end();
        } else {
            self->on_read(length);
        }
    });
}

// Each line is an event of its own, so that a line's handler may wait or fail.
void LocalLineTransfer::on_read(std::size_t length) {
    std::string_view rest(chunk_.data(), length);
    for (auto end = rest.find('\n'); end != rest.npos; end = rest.find('\n')) {
        unfinished_line_ += rest.substr(0, end);
        rest.remove_prefix(end + 1);
        post([line = std::exchange(unfinished_line_, {})](LocalLineTransfer& transfer) {
            if (transfer.phase_ == Phase::Open) {
                transfer.owner_.on_line(transfer.shared_from_this(), line);
            }
        });
    }
    unfinished_line_ += rest;
    if (unfinished_line_.size() > LineConnection::kLongestLine) {
        end();
    } else {
        read();
    }
}

void LocalLineTransfer::write() {
    writing_ = true;
    outgoing_ = std::exchange(queued_, {});
    asio::async_write(socket_, asio::buffer(outgoing_),
                      [self = shared_from_this()](const error_code& error, std::size_t) {
                          self->writing_ = false;
                          if (self->phase_ != Phase::Closed) {
                              self->on_write(error);
                          }
                      });
}

void LocalLineTransfer::on_write(const error_code& error) {
    if (!error && !queued_.empty()) {
        write();
    } else if (error || phase_ == Phase::Sending) {
        end();
    }
}

void LocalLineTransfer::post(std::function<void(LocalLineTransfer&)> event) {
    asio::post(socket_.get_executor(),
               [self = shared_from_this(), event = std::move(event)] { event(*self); });
}

// Behind the lines that have arrived before.
void LocalLineTransfer::end() {
    post([](LocalLineTransfer& transfer) {
        if (transfer.phase_ != Phase::Closed) {
            transfer.drop();
            transfer.owner_.on_closed(transfer.shared_from_this());
        }
    });
}

}  // namespace platform
