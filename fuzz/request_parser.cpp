#include "fuzz/expect.h"
#include "webserver/request.h"
#include "webserver/server_house.h"

// Any bytes as the first packet of a connection: to the parser alone, to the server with all
// protections, which must go on, and to the server as it is designed, where it does not wait for a
// second packet for ever.
namespace {

constexpr std::string_view kStatusRequest = "GET /status HTTP/1.0\r\n\r\n";

void answer(host::Protection protection, std::string_view packet) {
    webserver::ServerHouse house(protection);
    house.start();
    house.set_file("\\index.html", "<html></html>");
    house.set_file("\\a.jpg", "picture");
    const std::string response = house.exchange(packet);
    fuzz::expect(response.empty() || response.starts_with("HTTP/1."), "an answer is one of HTTP");
    if (protection.stalled_queue_restarts) {
        fuzz::expect(house.exchange(kStatusRequest).ends_with(" end"),
                     "after any packet the next request is answered");
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view packet = fuzz::as_text(data, size);
    static webserver::ServerHouse house;
    webserver::Request request(house.instance().log, house.server().debug_log(), "10.0.0.7");
    request.ParsePage(std::string(packet));
    fuzz::expect(request.page().size() <= size && request.Query().size() <= size &&
                     request.Payload().size() <= size && request.Header().size() <= size,
                 "no part is longer than the packet");
    request.AddPostData(std::string(packet));
    fuzz::expect(request.Decode(std::string(packet)).size() <= size,
                 "a decoded text is no longer than its code");
    for (const webserver::KeyValuePair& pair : request.FormCol()) {
        (void)request.Form(pair.key);
    }
    answer(host::Protection::hardened(), packet);
    if (request.Method() != "POST") {
        answer({}, packet);
    }
    return 0;
}
