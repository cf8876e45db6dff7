#pragma once

#include <optional>
#include <string>

#include "slideshow/slideshow_asp.h"
#include "webserver/page_functions.h"

namespace plugin {

// The pages that the embedded web server generates itself. Owned by the plug-in.
class ServerPages final : public webserver::PageFunctions {
  public:
    // It outlives this object.
    explicit ServerPages(slideshow::SlideshowAsp& slideshow) : slideshow_(slideshow) {}

    std::optional<std::string> VeloraSlideshowASP(webserver::Request& request,
                                                  webserver::Response& response) override;

  private:
    slideshow::SlideshowAsp& slideshow_;
};

}  // namespace plugin
