#include "plugin/server_pages.h"

#include "webserver/request.h"
#include "webserver/response.h"

namespace plugin {

std::optional<std::string> ServerPages::VeloraSlideshowASP(webserver::Request& request,
                                                           webserver::Response& response) {
    return slideshow_.VeloraSlideshow_ASP(request.shared_from_this(), response.shared_from_this());
}

}  // namespace plugin
