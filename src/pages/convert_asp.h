#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"

namespace core {
class Instance;
}

namespace pages {

class HTMLIncludes;
class PageEngine;

// Shows the pages of a slideshow: files with the endings ".asp", ".htm" and ".html" below HTML,
// which are turned into script once and run in the page engine from then on, as function calls.
// Owned by the plug-in. A failure is logged.
class ConvertASP {
  public:
    // All outlive the converter.
    ConvertASP(core::Instance& instance, PageEngine& pages, HTMLIncludes& includes)
        : instance_(instance), pages_(pages), includes_(includes) {}

    ConvertASP(const ConvertASP&) = delete;
    ConvertASP& operator=(const ConvertASP&) = delete;

    // Runs a page, a file name below HTML, and gives its text, which brings the browser back for
    // the next slide after this many seconds; "" after a failure. The first page of a run makes
    // the engine and loads the includes. Changes of the file and of the seconds after a page's
    // first use have no effect. May pump.
    std::string ASPSlide(const std::shared_ptr<automation::Object>& request,
                         const std::shared_ptr<automation::Object>& response,
                         const std::string& page, const std::string& seconds);

    // The script source of a page, as `ASPSlide` adds it to the engine: for a look at it, without
    // an engine. Throws: RunTimeError of the file service, and of the conversion.
    [[nodiscard]] std::string page_source(const std::string& page, const std::string& seconds);

    // Whether a page is seen for the first time; it counts as seen from now on.
    bool isNewASPFile(const std::string& page);

    // What `startheaderasp` of the includes has said last.
    [[nodiscard]] bool ASPHeaderResult() const noexcept { return header_result_; }

  private:
    using Objects = std::shared_ptr<automation::Object>;

    void prepare(const Objects& request, const Objects& response);
    void ASPAdd(const std::string& page, const std::string& seconds);
    std::string run_page(const std::string& function);

    core::Instance& instance_;
    PageEngine& pages_;
    HTMLIncludes& includes_;
    std::vector<std::string> asp_pages_;  // ASPPages
    bool header_result_ = false;
};

}  // namespace pages
