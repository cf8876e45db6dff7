#pragma once

#include <memory>
#include <unordered_map>

#include "host/pump.h"

namespace platform {

class AsioPump;
class DescriptorWatch;
class PageLoad;

// All running page loads, carried by libcurl's multi interface on the pump: the library tells which
// sockets to watch and when to look in again, and is called on each such event. Shared by the
// fetcher and its page objects; the pump outlives it. Nothing of the logic runs in its calls.
class CurlTransfers final : public std::enable_shared_from_this<CurlTransfers> {
  public:
    // Throws: RunTimeError 429.
    explicit CurlTransfers(AsioPump& pump);
    CurlTransfers(const CurlTransfers&) = delete;
    CurlTransfers& operator=(const CurlTransfers&) = delete;
    ~CurlTransfers();

    [[nodiscard]] host::Pump& pump() const;

    // Runs `load` until it has ended or is removed. Throws: RunTimeError 429.
    void add(PageLoad& load);
    void remove(PageLoad& load) noexcept;

  private:
    struct Library;

    void watch(int descriptor, int wanted);
    void look_in_after(long milliseconds);
    void act(int descriptor, int happened);  // the bits are the library's CURL_CSELECT_...
    void end_finished_loads();

    AsioPump& pump_;
    std::unique_ptr<Library> library_;
    std::unordered_map<int, std::unique_ptr<DescriptorWatch>> watches_;
    std::unique_ptr<host::Timer> timer_;
};

}  // namespace platform
