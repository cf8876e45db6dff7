#include "webserver/response.h"

#include <algorithm>
#include <array>

#include "automation/code_page.h"
#include "automation/guarded.h"
#include "core/instance.h"
#include "host/clock.h"
#include "host/files.h"
#include "host/pump.h"
#include "webserver/failed_request.h"
#include "webserver/request.h"
#include "webserver/response_text.h"
#include "webserver/routing.h"
#include "webserver/tcp_server.h"

namespace webserver {

using automation::ErrorNumber;
using automation::guarded;
using automation::RunTimeError;

namespace {

constexpr std::size_t kPieceSize = 1000;  // bytes
constexpr std::size_t kShownOfText = 10;  // characters of a page in the debug log
constexpr std::string_view kUnauthorized = "<HTML>Unauthorized Access<HTML>";
constexpr std::string_view kUnitBrowser = "velora";  // word in the unit's user agent

std::string sending(std::string_view what, std::string_view name, std::int16_t index) {
    return ">>>>>>>>>>> " + std::string(what) + std::string(name) + " to socket " +
           std::to_string(index);
}

}  // namespace

// --- pages --------------------------------------------------------------------------------------

void Response::Redirect(const std::string& /*sData*/) {
    SendTextString(std::string(kUnauthorized), index_);
}

void Response::Send(const std::string& sData) {
    SendTextString(sData, index_);
}

void Response::SendTextString(const std::string& sResponse, std::int16_t index) {
    FailedRequest failed(instance_, server_, index);
    guarded(failed, "TCPSever_SendTextString ", [&] {
        const std::string text = page_response(instance_.platform().clock.now(), sResponse);
        server_.debug_log().debug([&] {
            return sending("SendingTextString ", sResponse.substr(0, kShownOfText), index);
        });
        send_text(index, text, "TextString");
    });
}

void Response::SendErrorResponse(std::int16_t index) {
    FailedRequest failed(instance_, server_, index);
    guarded(failed, "TCPServer_SendError_Response ", [&] {
        server_.set_tag(index, SendTag::LastSend);
        const std::string text = not_found_response(instance_.platform().clock.now());
        server_.debug_log().debug([&] { return sending("SendingError ", "", index); });
        send_text(index, text, "Error Resonse");
    });
}

void Response::RedirectToHS(const std::string& sLocation, const Request& oRequest,
                            std::int16_t index) {
    FailedRequest failed(instance_, server_, index);
    guarded(failed, "TCPSever_RedirectToHS ", [&] {
        std::string location = oRequest.page();
        std::ranges::replace(location, '\\', '/');
        location.insert(0, sLocation);

        const std::string user_agent = oRequest.server_variable("http_user_agent");
        const bool is_unit =
            automation::find_ignoring_case(user_agent, kUnitBrowser) != std::string::npos;
        const Handover handover = is_unit ? Handover::Resubmit : Handover::Redirect;
        const std::string payload =
            is_unit ? resubmit_page(oRequest, location) : oRequest.Payload();
        const std::string text = handover_response(handover, instance_.platform().clock.now(),
                                                   location, oRequest.Query(), payload);
        server_.debug_log().debug([&] {
            return ">>>>>>>>>>> " + std::string(is_unit ? "Resubmit" : "Redirect") + payload +
                   " to location " + sLocation + oRequest.page() + " socket " +
                   std::to_string(index);
        });
        send_text(index, text, "TextString");
    });
}

// The common end of all responses that go out in one send. `what` names the response in the line
// for a connection that is gone, which is written whether or not the debug log is on (kept).
void Response::send_text(std::int16_t index, std::string_view text, std::string_view what) {
    server_.set_tag(index, SendTag::LastSend);
    const host::SocketState state = server_.Socket(index).State();
    if (state == host::SocketState::Connected) {
        server_.Socket(index).SendData(text);
    } else {
        server_.debug_log().TCPDebugWrite("Unable to send " + std::string(what) + " to socket " +
                                          std::to_string(index) + " because State is " +
                                          std::to_string(static_cast<int>(state)));
    }
    yield();
}

void Response::yield() {
    instance_.platform().pump.run_ready();
}

// --- files --------------------------------------------------------------------------------------

bool Response::is_refused(std::string_view file) const {
    return instance_.platform().protection.files_only_below_html && leaves_root(file);
}

void Response::SendTextFile(const std::string& sShortFile, std::int16_t index) {
    FailedRequest failed(instance_, server_, index);
    guarded(failed, "TCPServer_SendTextFile ", [&] {
        host::Files& files = server_.FileSystem();
        const std::string path = server_.HTMLRoot() + sShortFile;
        if (is_refused(sShortFile) || !files.FileExists(path)) {
            SendErrorResponse(index);
            return;
        }
        const std::string content = files.read(path);
        const std::string text = text_file_response(instance_.platform().clock.now(),
                                                    files.describe(path).last_modified, content);
        server_.debug_log().debug([&] {
            return sending("SendingTextFile ", sShortFile, index) + " with length " +
                   std::to_string(content.size());
        });
        send_text(index, text, "TextFile " + sShortFile);
    });
}

void Response::SendBinaryFile(const std::string& sFile, std::int16_t windex) {
    FailedRequest failed(instance_, server_, windex);
    guarded(failed, "TCPServer_SendBinaryFile " + sFile, [&] {
        if (is_refused(sFile)) {
            SendErrorResponse(windex);
            return;
        }
        const std::string path = server_.HTMLRoot() + sFile;
        const host::FileEntry file = server_.FileSystem().describe(path);
        const std::string header = binary_file_header(
            instance_.platform().clock.now(), file.last_modified, file.size, GetMimeType(sFile));
        server_.set_tag(windex, SendTag::MoreFollows);
        server_.debug_log().debug([&] { return sending("SendingBinaryHeader ", sFile, windex); });
        if (server_.is_connected(windex)) {
            server_.Socket(windex).SendData(header);
        }
        yield();
        send_pieces(path, sFile, windex);
        server_.set_tag(windex, SendTag::LastSend);
        server_.Socket_SendComplete(windex);
    });
}

void Response::send_pieces(const std::string& path, const std::string& name, std::int16_t index) {
    const auto file = server_.FileSystem().open_for_reading(path);
    server_.set_send_done(index, true);
    while (server_.Socket(index).State() == host::SocketState::Connected && !file->at_end()) {
        std::string piece = file->read(kPieceSize);
        piece.resize(kPieceSize, ' ');
        server_.arm_send_guard(index);
        wait_for_send(index);
        server_.set_send_done(index, false);
        if (!server_.is_connected(index)) {
            continue;
        }
        server_.debug_log().debug([&] { return sending("SendingBinaryData ", name, index); });
        server_.Socket(index).SendData(piece);
        yield();
    }
}

void Response::wait_for_send(std::int16_t index) {
    const auto may_go_on = [this, index] {
        return server_.SendDone(index) || !server_.is_connected(index);
    };
    while (!may_go_on()) {
        instance_.platform().pump.run_until(may_go_on, TCPServer::kSendGuard);
    }
}

// --- for scripts --------------------------------------------------------------------------------

void Response::redirect_object(const std::string& location,
                               const std::shared_ptr<automation::Object>& request,
                               std::int16_t index) {
    const auto target = std::dynamic_pointer_cast<Request>(request);
    if (!target) {
        throw RunTimeError(ErrorNumber::TypeMismatch);
    }
    RedirectToHS(location, *target, index);
}

automation::Value Response::unreadable() const {
    throw RunTimeError(ErrorNumber::PropertyOrMethodNotSupported);
}

std::span<const automation::Member> Response::members() const {
    using automation::method;
    using automation::property;
    static constexpr auto kMembers = std::to_array<automation::Member>({
        property<&Response::unreadable, &Response::set_index>("index"),
        method<&Response::Redirect>("Redirect", "sData"),
        method<&Response::Send>("Send", "sData"),
        method<&Response::redirect_object>("RedirectToHS", "sLocation, oRequest, index"),
        method<&Response::SendTextString>("SendTextString", "sResponse, index"),
        method<&Response::SendTextFile>("SendTextFile", "sShortFile, index"),
        method<&Response::SendErrorResponse>("SendErrorResponse", "index"),
        method<&Response::SendBinaryFile>("SendBinaryFile", "sFile, windex"),
    });
    return kMembers;
}

}  // namespace webserver
