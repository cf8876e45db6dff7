#pragma once

#include <optional>
#include <string>

namespace webserver {

class Request;
class Response;

// Makes the pages that the server generates itself. Implemented above this room; outlives the
// server. Both members may pump and give the whole page, or nothing when there is no such page:
// the request then goes to the host's web server.
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
};

}  // namespace webserver
