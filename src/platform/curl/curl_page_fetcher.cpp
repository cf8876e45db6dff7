#include "platform/curl/curl_page_fetcher.h"

#include <cstdint>
#include <utility>

#include "host/pump.h"
#include "platform/curl/curl_transfers.h"
#include "platform/curl/page_load.h"
#include "platform/curl/page_url.h"
#include "platform/gumbo/html_text.h"

namespace platform {
namespace {

// What a page object shares with the event that is on its way: the object may go while the event
// waits in the queue, or in the midst of it.
class Page final : public std::enable_shared_from_this<Page> {
  public:
    Page(std::shared_ptr<CurlTransfers> transfers,
         std::function<void(const std::string& url)> on_document_complete)
        : transfers_(std::move(transfers)),
          on_document_complete_(std::move(on_document_complete)) {}

    void load(const std::string& url) {
        abandon();
        load_ = std::make_unique<PageLoad>(transfers_, url, [this](LoadedPage page) {
            announce(std::make_shared<LoadedPage>(std::move(page)));
        });
    }

    // Nothing arrives of what was asked for until now.
    void abandon() noexcept {
        ++generation_;
        load_.reset();
    }

    [[nodiscard]] std::string text() const { return body_inner_text(shown_.body, shown_.charset); }

  private:
    void announce(const std::shared_ptr<LoadedPage>& loaded) {
        transfers_->pump().post([weak = weak_from_this(), generation = generation_, loaded] {
            const std::shared_ptr<Page> page = weak.lock();
            if (page && page->generation_ == generation) {
                page->show(std::move(*loaded));
            }
        });
    }

    void show(LoadedPage loaded) {
        load_.reset();
        shown_ = std::move(loaded);
        // A copy: a handler that waits may load the next page meanwhile.
        const std::string url = shown_.url;
        on_document_complete_(url);
    }

    std::shared_ptr<CurlTransfers> transfers_;
    std::function<void(const std::string& url)> on_document_complete_;
    std::uint64_t generation_ = 0;
    std::unique_ptr<PageLoad> load_;
    LoadedPage shown_;
};

class CurlPageFetch final : public host::PageFetch {
  public:
    explicit CurlPageFetch(std::shared_ptr<Page> page) : page_(std::move(page)) {}

    ~CurlPageFetch() override { page_->abandon(); }

    void Navigate2(std::string_view url) override { page_->load(page_url(url)); }

    [[nodiscard]] std::string body_inner_text() const override { return page_->text(); }

  private:
    std::shared_ptr<Page> page_;
};

}  // namespace

CurlPageFetcher::CurlPageFetcher(AsioPump& pump) : pump_(pump) {}

CurlPageFetcher::~CurlPageFetcher() = default;

std::unique_ptr<host::PageFetch> CurlPageFetcher::create(
    std::function<void(const std::string& url)> on_document_complete) {
    if (!transfers_) {
        transfers_ = std::make_shared<CurlTransfers>(pump_);
    }
    return std::make_unique<CurlPageFetch>(
        std::make_shared<Page>(transfers_, std::move(on_document_complete)));
}

}  // namespace platform
