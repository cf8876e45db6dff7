#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "automation/members.h"

namespace core {
class Instance;
}

namespace webserver {

class Request;
class TCPServer;

// Answers one request. Made by the dispatcher for one turn; scripts see it too and may use a kept
// one as long as the server stands. Each member sends a complete response with its header to the
// socket with the given index, and may pump. A failure is reported, and the member ends there.
// The connection is closed by the server when the send has finished.
class Response final : public automation::TableObject {
  public:
    Response(core::Instance& instance, TCPServer& server) : instance_(instance), server_(server) {}

    // The socket of `Redirect` and `Send`.
    void set_index(std::int16_t index) noexcept { index_ = index; }

    // Refuses: whatever `sData` says, the client gets the text of an unauthorised access.
    void Redirect(const std::string& sData);

    void Send(const std::string& sData);

    // Hands the request over to another web server at `sLocation`, "address:port".
    void RedirectToHS(const std::string& sLocation, const Request& oRequest, std::int16_t index);

    // A generated page.
    void SendTextString(const std::string& sResponse, std::int16_t index);

    // A file below the HTML folder, with its leading separator; the 404 response if missing.
    void SendTextFile(const std::string& sShortFile, std::int16_t index);

    // The 404 response.
    void SendErrorResponse(std::int16_t index);

    // A file below the HTML folder in pieces of 1000 bytes, the last one padded with blanks; waits
    // up to 5 s for each piece to go. A missing file is not answered at all.
    void SendBinaryFile(const std::string& sFile, std::int16_t windex);

    [[nodiscard]] std::string type_name() const override { return "Response"; }

    [[nodiscard]] std::span<const automation::Member> members() const override;

  private:
    void send_text(std::int16_t index, std::string_view text, std::string_view what);
    void send_pieces(const std::string& path, const std::string& name, std::int16_t index);
    void wait_for_send(std::int16_t index);
    void yield();
    [[nodiscard]] bool is_refused(std::string_view file) const;
    void redirect_object(const std::string& location,
                         const std::shared_ptr<automation::Object>& request, std::int16_t index);
    [[nodiscard]] automation::Value unreadable() const;

    core::Instance& instance_;
    TCPServer& server_;
    std::int16_t index_ = 0;
};

}  // namespace webserver
