#include "app/control_socket.h"

#include <memory>

#include "app/control_service.h"

namespace app {
namespace {

using platform::LineConnection;

class ConnectionSink : public AnswerSink {
  public:
    explicit ConnectionSink(LineConnection connection) : connection_(std::move(connection)) {}

    void send(const std::string& line) override { connection_.send_line(line); }

    [[nodiscard]] bool is_open() const override { return connection_.is_open(); }

  private:
    LineConnection connection_;
};

// A request that ends in anything but an answer leaves nobody waiting for one.
class UnansweredRequest {
  public:
    explicit UnansweredRequest(const LineConnection& connection) : connection_(connection) {}

    UnansweredRequest(const UnansweredRequest&) = delete;
    UnansweredRequest& operator=(const UnansweredRequest&) = delete;

    ~UnansweredRequest() {
        if (!answered_) {
            connection_.close();
        }
    }

    void answered() { answered_ = true; }

  private:
    LineConnection connection_;
    bool answered_ = false;
};

}  // namespace

ControlSocket::ControlSocket(platform::AsioPump& pump, const std::filesystem::path& path,
                             ControlService& service)
    : server_(pump, path,
              {.on_line =
                   [&service](const LineConnection& connection, const std::string& line) {
                       UnansweredRequest request(connection);
                       service.take(line, std::make_shared<ConnectionSink>(connection));
                       request.answered();
                   },
               .on_closed = [&service](const LineConnection&) { service.drop_closed(); }}) {}

}  // namespace app
