#include "platform/curl/curl_transfers.h"

#include <chrono>
#include <exception>
#include <string>

#include "automation/run_time_error.h"
#include "platform/asio/asio_pump.h"
#include "platform/asio/descriptor_watch.h"
#include "platform/curl/curl_library.h"
#include "platform/curl/page_load.h"
#include "platform/curl/page_load_library.h"

namespace platform {
namespace {

[[noreturn]] void fail(const char* reason) {
    throw automation::RunTimeError(automation::ErrorNumber::ActiveXCannotCreateObject,
                                   std::string("Page fetch: ") + reason);
}

// The library's set-up for the whole process, which it counts.
class LibraryUse {
  public:
    LibraryUse() {
        if (const CURLcode result = curl().global_init(CURL_GLOBAL_DEFAULT); result != CURLE_OK) {
            fail(curl().easy_strerror(result));
        }
    }

    LibraryUse(const LibraryUse&) = delete;
    LibraryUse& operator=(const LibraryUse&) = delete;

    ~LibraryUse() { curl().global_cleanup(); }
};

DescriptorWatch::Interest interest_of(int wanted) {
    return {.read = (wanted & CURL_POLL_IN) != 0, .write = (wanted & CURL_POLL_OUT) != 0};
}

int bits_of(DescriptorWatch::Ready ready) {
    return (ready.read ? CURL_CSELECT_IN : 0) | (ready.write ? CURL_CSELECT_OUT : 0);
}

struct MultiDeleter {
    void operator()(CURLM* multi) const noexcept { curl().multi_cleanup(multi); }
};

}  // namespace

struct CurlTransfers::Library {
    LibraryUse use;
    std::unique_ptr<CURLM, MultiDeleter> multi{curl().multi_init()};
};

CurlTransfers::CurlTransfers(AsioPump& pump)
    : pump_(pump), library_(std::make_unique<Library>()), timer_(pump.make_timer([this] {
          timer_->set_enabled(false);
          act(CURL_SOCKET_TIMEOUT, 0);
      })) {
    CURLM* const multi = library_->multi.get();
    if (multi == nullptr) {
        fail("no memory");
    }
    const auto on_socket = [](CURL*, curl_socket_t descriptor, int wanted, void* transfers, void*) {
        static_cast<CurlTransfers*>(transfers)->watch(descriptor, wanted);
        return 0;
    };
    const auto on_timer = [](CURLM*, long milliseconds, void* transfers) {
        static_cast<CurlTransfers*>(transfers)->look_in_after(milliseconds);
        return 0;
    };
    curl().multi_setopt(multi, CURLMOPT_SOCKETFUNCTION,
                        static_cast<curl_socket_callback>(on_socket));
    curl().multi_setopt(multi, CURLMOPT_SOCKETDATA, this);
    curl().multi_setopt(multi, CURLMOPT_TIMERFUNCTION,
                        static_cast<curl_multi_timer_callback>(on_timer));
    curl().multi_setopt(multi, CURLMOPT_TIMERDATA, this);
}

// The library takes its leave of each socket that is still watched.
CurlTransfers::~CurlTransfers() {
    library_.reset();
}

host::Pump& CurlTransfers::pump() const {
    return pump_;
}

void CurlTransfers::add(PageLoad& load) {
    const CURLMcode result =
        curl().multi_add_handle(library_->multi.get(), load.library_->easy.get());
    if (result != CURLM_OK) {
        fail(curl().multi_strerror(result));
    }
}

void CurlTransfers::remove(PageLoad& load) noexcept {
    curl().multi_remove_handle(library_->multi.get(), load.library_->easy.get());
}

void CurlTransfers::watch(int descriptor, int wanted) {
    if (wanted == CURL_POLL_REMOVE) {
        watches_.erase(descriptor);
        return;
    }
    // Nothing may pass through the library's frames, and to report the failure to it would end all
    // loads for good: the load of this socket alone stands still, like one whose connection is
    // dead.
    try {
        std::unique_ptr<DescriptorWatch>& watch = watches_[descriptor];
        if (!watch) {
            watch = std::make_unique<DescriptorWatch>(
                pump_, descriptor, [this, descriptor](DescriptorWatch::Ready ready) {
                    act(descriptor, bits_of(ready));
                });
        }
        watch->set_interest(interest_of(wanted));
    } catch (const std::exception&) {
        watches_.erase(descriptor);
    }
}

void CurlTransfers::look_in_after(long milliseconds) {
    timer_->set_enabled(false);
    if (milliseconds == 0) {
        pump_.post([transfers = weak_from_this()] {
            if (const auto alive = transfers.lock()) {
                alive->act(CURL_SOCKET_TIMEOUT, 0);
            }
        });
    } else if (milliseconds > 0) {
        timer_->set_interval(std::chrono::milliseconds(milliseconds));
        timer_->set_enabled(true);
    }
}

void CurlTransfers::act(int descriptor, int happened) {
    int running = 0;
    curl().multi_socket_action(library_->multi.get(), descriptor, happened, &running);
    end_finished_loads();
}

void CurlTransfers::end_finished_loads() {
    int left = 0;
    while (const CURLMsg* const message = curl().multi_info_read(library_->multi.get(), &left)) {
        PageLoad* load = nullptr;
        curl().easy_getinfo(message->easy_handle, CURLINFO_PRIVATE, &load);
        if (message->msg == CURLMSG_DONE && load != nullptr) {
            load->end(message->data.result);
        }
    }
}

}  // namespace platform
