#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/gumbo/html_text.h"

namespace platform {

class CurlTransfers;

// What has been loaded of a page.
struct LoadedPage {
    std::string url;   // the last one of all redirects
    std::string body;  // bytes as received, at most kLongestBody
    PageCharset charset = PageCharset::Detect;
};

// A longer page completes with what it has by then.
inline constexpr std::size_t kLongestBody = std::size_t{1024} * 1024;

// The loading of one page, from its making to its end; destroying it abandons it. Each load has a
// connection of its own, since units close theirs.
class PageLoad final {
  public:
    // `on_loaded` is called from a pump event, once, when a page of any status is there; never for
    // a connection that fails. It must run nothing of the logic and must not destroy this object.
    // Throws: RunTimeError 429.
    PageLoad(std::shared_ptr<CurlTransfers> transfers, const std::string& url,
             std::function<void(LoadedPage)> on_loaded);
    PageLoad(const PageLoad&) = delete;
    PageLoad& operator=(const PageLoad&) = delete;
    ~PageLoad();

  private:
    friend class CurlTransfers;
    struct Library;

    void configure(const std::string& url);
    std::size_t receive(const char* bytes, std::size_t count);

    // Called by the transfers; `result` is the library's.
    void end(int result);
    [[nodiscard]] bool is_page(int result) const;
    [[nodiscard]] LoadedPage take_page();

    std::shared_ptr<CurlTransfers> transfers_;
    std::function<void(LoadedPage)> on_loaded_;
    std::string body_;
    std::unique_ptr<Library> library_;
};

}  // namespace platform
