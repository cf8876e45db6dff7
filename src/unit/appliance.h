#pragma once

#include <boost/asio/awaitable.hpp>
#include <string>
#include <string_view>

#include "unit/appliance_state.h"
#include "unit/client_message.h"
#include "unit/fault.h"
#include "unit/http_page.h"
#include "unit/recorder.h"
#include "unit/request_reader.h"
#include "unit/resource_fetch.h"
#include "unit/task_group.h"

namespace unit {

// The appliance behind the web server: its state, its fault, and what it does on a command. Each
// change is recorded before the call ends. Owned by the unit, used on its loop only. All members
// that change something throw std::runtime_error when it cannot be recorded.
class Appliance {
  public:
    // `browsing` runs the browser's page loads, and outlives this object.
    Appliance(ApplianceState state, Recorder recorder, FetchIdentity identity, TaskGroup& browsing);

    [[nodiscard]] const Fault& fault() const noexcept { return fault_; }

    void set_fault(const Fault& fault);

    [[nodiscard]] Power power() const noexcept { return state_.power; }

    // On gives the state after power-on; Off and Booting a dark appliance, whose browser has
    // stopped loading. The fault stays.
    void set_power(Power power);

    // The state as one line of JSON.
    [[nodiscard]] std::string state_line() const;

    // Carries out the command of the request, and gives the page to answer with. A sound is
    // fetched and stored first; a page is loaded by the browser after the answer.
    [[nodiscard]] boost::asio::awaitable<Page> answer(HttpRequest request);

    // Counts the request and logs it with what it was answered: a status or a fault.
    void note_request(const HttpRequest& request, std::string_view answered);

    // The music player has got a text: takes it, unless a fault keeps it from doing so, and logs it
    // with "ok" or the fault.
    void take_music(const std::string& text);

    // The client program has got a message: shows or does what it says, unless a fault keeps it
    // from doing so.
    void take_client_message(const ClientMessage& message);

    void set_subscribed(bool is_subscribed);

  private:
    [[nodiscard]] bool hears() const noexcept;
    void record() const;
    boost::asio::awaitable<Page> play(std::string url);
    void browse(const std::string& url);
    boost::asio::awaitable<void> browse_on(std::string url, unsigned navigation);
    void show(const std::string& url, const FetchedResource& page);
    boost::asio::awaitable<void> load_pictures(const std::string& url, const std::string& html);

    ApplianceState state_;
    Fault fault_;
    Recorder recorder_;
    FetchIdentity identity_;
    TaskGroup& browsing_;
    unsigned navigation_ = 0;  // of the browser's latest target; an older load is not shown
};

}  // namespace unit
