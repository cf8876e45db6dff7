#pragma once

#include <memory>

#include "host/page_fetch.h"

namespace platform {

class AsioPump;
class CurlTransfers;

// Page fetches by libcurl on the pump: http and https only, without proxies, and with nothing of a
// browser but redirects. A page longer than kLongestBody completes with its beginning. The program
// owns it; its page objects may outlive it, and the pump outlives all. The library is started with
// the first page object.
class CurlPageFetcher final : public host::PageFetcher {
  public:
    explicit CurlPageFetcher(AsioPump& pump);
    CurlPageFetcher(const CurlPageFetcher&) = delete;
    CurlPageFetcher& operator=(const CurlPageFetcher&) = delete;
    ~CurlPageFetcher() override;

    // The event runs from the pump's queue, never from within a call of the library, and brings the
    // address of the page that was shown at last.
    [[nodiscard]] std::unique_ptr<host::PageFetch> create(
        std::function<void(const std::string& url)> on_document_complete) override;

  private:
    AsioPump& pump_;
    std::shared_ptr<CurlTransfers> transfers_;  // empty before the first page object
};

}  // namespace platform
