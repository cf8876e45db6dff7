#pragma once

#include <optional>
#include <string>

#include "slideshow/slideshow_asp.h"
#include "status/status_asp.h"
#include "status/visitors.h"
#include "webserver/page_functions.h"

namespace plugin {

// The pages that the embedded web server generates itself. Owned by the plug-in.
class ServerPages final : public webserver::PageFunctions {
  public:
    // All outlive this object.
    ServerPages(slideshow::SlideshowAsp& slideshow, status::StatusAsp& status,
                status::Visitors& visitors)
        : slideshow_(slideshow), status_(status), visitors_(visitors) {}

    std::optional<std::string> VeloraSlideshowASP(webserver::Request& request,
                                                  webserver::Response& response) override;
    std::optional<std::string> StatusPage(webserver::Request& request,
                                          webserver::Response& response) override;
    [[nodiscard]] bool admits_to_status(const webserver::Request& request) override;

  private:
    slideshow::SlideshowAsp& slideshow_;
    status::StatusAsp& status_;
    status::Visitors& visitors_;
};

}  // namespace plugin
