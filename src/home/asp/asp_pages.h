#pragma once

#include <string>

#include "home/web/site_files.h"
#include "host/http.h"

namespace host {
class HostInterface;
class ScriptControls;
}  // namespace host

namespace home {

// Runs the pages of a site that carry script, each request on an engine of its own that knows
// `Request`, `Response`, `Server` and the host as `hs`. No state is kept between requests. Owned by
// the site.
class AspPages {
  public:
    // All must outlive the object.
    AspPages(const SiteFiles& files, host::ScriptControls& controls, host::HostInterface& hs)
        : files_(files), controls_(controls), hs_(hs) {}

    // May pump. An error of the page gives status 500 with a page that tells it, and a line in the
    // host's log.
    [[nodiscard]] host::HttpResponse run(const host::HttpRequest& request, const WebPath& page);

  private:
    [[nodiscard]] host::HttpResponse run_script(const host::HttpRequest& request,
                                                const WebPath& page);
    [[nodiscard]] std::string root() const;

    const SiteFiles& files_;
    host::ScriptControls& controls_;
    host::HostInterface& hs_;
};

}  // namespace home
