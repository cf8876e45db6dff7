#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "home/asp/asp_pages.h"
#include "home/web/site_files.h"
#include "host/http.h"

namespace home {

// The web site of a home: the files of its folder HTML, and what the pages that carry script make.
// A folder stands for its index page. Owned by the program.
class WebSite : public host::HttpHandler {
  public:
    // All must outlive the site.
    WebSite(const std::filesystem::path& home, host::ScriptControls& controls,
            host::HostInterface& hs)
        : files_(home / "HTML"), pages_(files_, controls, hs) {}

    [[nodiscard]] host::HttpResponse answer(const host::HttpRequest& request) override;

  private:
    [[nodiscard]] host::HttpResponse answer_place(const host::HttpRequest& request, WebPath place,
                                                  bool names_folder);

    SiteFiles files_;
    AspPages pages_;
};

}  // namespace home
