#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace host {

// One page-fetch object: loads a page and tells when it is there. Destroying it abandons its
// fetch, and no event arrives afterwards; it may be destroyed within its own event.
class PageFetch {
  public:
    PageFetch() = default;
    PageFetch(const PageFetch&) = delete;
    PageFetch& operator=(const PageFetch&) = delete;
    virtual ~PageFetch() = default;

    // Starts to load and returns at once; a second call replaces a running fetch. A page of any
    // status completes. A connection that fails gives no event at all. Redirects are followed.
    // Throws: RunTimeError 5 for a text that is no URL.
    virtual void Navigate2(std::string_view url) = 0;

    // Text of the loaded page's body with the tags removed; "" before the first page.
    [[nodiscard]] virtual std::string body_inner_text() const = 0;

    // Class name, for the log.
    [[nodiscard]] virtual std::string type_name() const { return "InternetExplorer"; }
};

class PageFetcher {
  public:
    virtual ~PageFetcher() = default;

    // `on_document_complete` runs as an event of the pump, with the URL of the page.
    // Throws: RunTimeError 429 when none can be made.
    [[nodiscard]] virtual std::unique_ptr<PageFetch> create(
        std::function<void(const std::string& url)> on_document_complete) = 0;
};

}  // namespace host
