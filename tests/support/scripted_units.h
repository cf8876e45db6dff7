#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/page_fetch.h"
#include "support/virtual_pump.h"

namespace support {

// What happened in the house, in one list with the time of day in front: requests of pages as
// "10:00:00.050 hall GET /screen.shtml?p", and what else a test or a fixture notes.
class HouseTrace {
  public:
    explicit HouseTrace(const VirtualPump& pump) : pump_(pump) {}

    void note(std::string_view text) {
        lines_.push_back(pump_.time_of_day() + " " + std::string(text));
    }

    [[nodiscard]] const std::vector<std::string>& lines() const noexcept { return lines_; }

    // The same without the time.
    [[nodiscard]] std::vector<std::string> without_time() const;

    void clear() { lines_.clear(); }

  private:
    const VirtualPump& pump_;
    std::vector<std::string> lines_;
};

// The web server of one unit, as a script: how it answers the pages that are fetched of it, from
// now until the test says otherwise. It answers at once with an empty page at first.
class ScriptedUnit {
  public:
    // Answers each page this long after its request.
    void answers(std::chrono::milliseconds after = std::chrono::milliseconds(0)) {
        is_silent_ = false;
        delay_ = after;
    }

    // Text of a page; "" for all that have none.
    void shows(std::string_view page, std::string_view body) {
        bodies_.insert_or_assign(std::string(page), std::string(body));
    }

    // Takes requests and never answers, not even those that are under way.
    void goes_silent() { is_silent_ = true; }

    // Connections to it fail from now on.
    void refuses(bool does = true) { is_refusing_ = does; }

    // Each page completes this often, as one with frames does.
    void completes_pages(int times) { completions_ = times; }

    // Fetches under way now, and the most that ever were at one time.
    [[nodiscard]] int in_flight() const noexcept { return in_flight_; }

    [[nodiscard]] int most_in_flight() const noexcept { return most_in_flight_; }

    // Requests so far, the oldest first: "led.shtml?t1".
    [[nodiscard]] const std::vector<std::string>& requests() const noexcept { return requests_; }

  private:
    friend class ScriptedUnits;

    std::chrono::milliseconds delay_{0};
    bool is_silent_ = false;
    bool is_refusing_ = false;
    int completions_ = 1;
    int in_flight_ = 0;
    int most_in_flight_ = 0;
    std::map<std::string, std::string, std::less<>> bodies_;
    std::vector<std::string> requests_;
};

// All pages that the house can fetch: the units by the host part of the URL. A host that nobody
// has asked for before is a unit like any other. Owned by the fixture, before the plug-in; pump
// and trace outlive it.
class ScriptedUnits final : public host::PageFetcher {
  public:
    ScriptedUnits(VirtualPump& pump, HouseTrace& trace) : pump_(pump), trace_(trace) {}

    [[nodiscard]] ScriptedUnit& unit(std::string_view host);

    // No page-fetch object can be made while this holds.
    void set_unavailable(bool unavailable) { is_unavailable_ = unavailable; }

    // Page-fetch objects made so far.
    [[nodiscard]] std::size_t objects_made() const noexcept { return objects_made_; }

    // Runs with each request, after it was noted.
    std::function<void(std::string_view host, std::string_view page)> on_request;

    [[nodiscard]] std::unique_ptr<host::PageFetch> create(
        std::function<void(const std::string& url)> on_document_complete) override;

  private:
    class Fetch;
    struct Loading;

    void start(const std::shared_ptr<Loading>& loading, std::string_view url);
    void abandon(Loading& loading);
    void answer(const std::shared_ptr<Loading>& loading, std::uint64_t navigation,
                int completions_left);

    VirtualPump& pump_;
    HouseTrace& trace_;
    std::map<std::string, ScriptedUnit, std::less<>> units_;
    bool is_unavailable_ = false;
    std::size_t objects_made_ = 0;
};

}  // namespace support
