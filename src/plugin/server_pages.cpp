#include "plugin/server_pages.h"

#include "webserver/request.h"
#include "webserver/response.h"

namespace plugin {

std::optional<std::string> ServerPages::VeloraSlideshowASP(webserver::Request& request,
                                                           webserver::Response& response) {
    return slideshow_.VeloraSlideshow_ASP(request.shared_from_this(), response.shared_from_this());
}

std::optional<std::string> ServerPages::StatusPage(webserver::Request& request,
                                                   webserver::Response& response) {
    return status_.StatusPage(request.shared_from_this(), response.shared_from_this());
}

bool ServerPages::admits_to_status(const webserver::Request& request) {
    return visitors_.admits({.address = request.remoteip(),
                             .method = request.Method(),
                             .host = request.server_variable("Host"),
                             .origin = request.server_variable("Origin"),
                             .referer = request.server_variable("Referer")});
}

}  // namespace plugin
