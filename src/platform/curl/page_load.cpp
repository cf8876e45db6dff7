#include "platform/curl/page_load.h"

#include <algorithm>
#include <array>
#include <new>
#include <string_view>
#include <utility>

#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "platform/curl/curl_library.h"
#include "platform/curl/curl_transfers.h"
#include "platform/curl/page_load_library.h"

namespace platform {
namespace {

constexpr long kConnectSeconds = 60;
constexpr long kLongestChain = 10;
constexpr long kYes = 1;

// Results with which a browser still shows a page: the server has answered.
constexpr std::array kShownAnyway{
    CURLE_OK,
    CURLE_TOO_MANY_REDIRECTS,
    CURLE_UNSUPPORTED_PROTOCOL,  // a redirect to something that is no web page
    CURLE_URL_MALFORMAT,         // a redirect to nonsense
    CURLE_WEIRD_SERVER_REPLY,    // header lines that are none
    CURLE_BAD_CONTENT_ENCODING,
};

}  // namespace

PageLoad::PageLoad(std::shared_ptr<CurlTransfers> transfers, const std::string& url,
                   std::function<void(LoadedPage)> on_loaded)
    : transfers_(std::move(transfers)),
      on_loaded_(std::move(on_loaded)),
      library_(std::make_unique<Library>()) {
    if (!library_->easy) {
        throw automation::RunTimeError(automation::ErrorNumber::ActiveXCannotCreateObject);
    }
    configure(url);
    transfers_->add(*this);
}

PageLoad::~PageLoad() {
    transfers_->remove(*this);
}

void PageLoad::configure(const std::string& url) {
    CURL* const easy = library_->easy.get();
    const auto write = [](char* bytes, std::size_t size, std::size_t count, void* load) {
        return static_cast<PageLoad*>(load)->receive(bytes, size * count);
    };
    curl().easy_setopt(easy, CURLOPT_URL, url.c_str());
    curl().easy_setopt(easy, CURLOPT_PRIVATE, this);
    curl().easy_setopt(easy, CURLOPT_WRITEFUNCTION, static_cast<curl_write_callback>(write));
    curl().easy_setopt(easy, CURLOPT_WRITEDATA, this);
    curl().easy_setopt(easy, CURLOPT_USERAGENT, "zynVelora");
    curl().easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
    curl().easy_setopt(easy, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl().easy_setopt(easy, CURLOPT_FOLLOWLOCATION, kYes);
    curl().easy_setopt(easy, CURLOPT_MAXREDIRS, kLongestChain);
    curl().easy_setopt(easy, CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
    curl().easy_setopt(easy, CURLOPT_FRESH_CONNECT, kYes);
    curl().easy_setopt(easy, CURLOPT_FORBID_REUSE, kYes);
    // A unit of the simplest kind sends its page without any header.
    curl().easy_setopt(easy, CURLOPT_HTTP09_ALLOWED, kYes);
    // Units stand in the house: a proxy of the environment does not reach them.
    curl().easy_setopt(easy, CURLOPT_PROXY, "");
    curl().easy_setopt(easy, CURLOPT_NOSIGNAL, kYes);
}

std::size_t PageLoad::receive(const char* bytes, std::size_t count) {
    const std::size_t taken = std::min(count, kLongestBody - body_.size());
    try {
        body_.append(bytes, taken);
    } catch (const std::bad_alloc&) {
        return 0;
    }
    // Less than `count` ends the load.
    return taken;
}

void PageLoad::end(int result) {
    if (is_page(result)) {
        on_loaded_(take_page());
    }
}

bool PageLoad::is_page(int result) const {
    const bool is_full = result == CURLE_WRITE_ERROR && body_.size() == kLongestBody;
    long has_answered = 0;
    curl().easy_getinfo(library_->easy.get(), CURLINFO_RESPONSE_CODE, &has_answered);
    const bool is_shown = std::ranges::find(kShownAnyway, result) != kShownAnyway.end();
    return is_full || result == CURLE_OK || (is_shown && has_answered != 0);
}

LoadedPage PageLoad::take_page() {
    const char* url = nullptr;
    const char* type = nullptr;
    curl().easy_getinfo(library_->easy.get(), CURLINFO_EFFECTIVE_URL, &url);
    curl().easy_getinfo(library_->easy.get(), CURLINFO_CONTENT_TYPE, &type);
    const std::string_view declared = type != nullptr ? type : "";
    const bool is_utf8 =
        automation::find_ignoring_case(declared, "charset=utf-8") != std::string_view::npos;
    return {.url = url != nullptr ? url : "",
            .body = std::move(body_),
            .charset = is_utf8 ? PageCharset::Utf8 : PageCharset::Detect};
}

}  // namespace platform
