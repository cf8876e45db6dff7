#pragma once

#include <optional>
#include <string>

namespace webserver {

class Request;
class Response;

// Makes the pages that the server generates itself. Implemented above this room; outlives the
// server. Pages may pump, and are given whole, or not at all when there is no such page: the
// request then goes to the host's web server.
class PageFunctions {
  public:
    virtual ~PageFunctions() = default;

    virtual std::optional<std::string> VeloraSlideshowASP(Request& /*request*/,
                                                          Response& /*response*/) {
        return std::nullopt;
    }

    virtual std::optional<std::string> StatusPage(Request& /*request*/, Response& /*response*/) {
        return std::nullopt;
    }

    // Whether the status page is made for who has sent this request; others get the 404 response.
    [[nodiscard]] virtual bool admits_to_status(const Request& /*request*/) { return true; }
};

}  // namespace webserver
