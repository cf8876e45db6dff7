#include "unit/appliance.h"

#include <boost/asio.hpp>
#include <utility>

#include "unit/command_page.h"
#include "unit/page_content.h"
#include "unit/state_json.h"
#include "unit/wav_duration.h"
#include "unit/web_address.h"

namespace unit {

namespace asio = boost::asio;

Appliance::Appliance(ApplianceState state, Recorder recorder, FetchIdentity identity,
                     TaskGroup& browsing)
    : state_(std::move(state)),
      recorder_(std::move(recorder)),
      identity_(std::move(identity)),
      browsing_(browsing) {
    record();
}

void Appliance::set_fault(const Fault& fault) {
    fault_ = fault;
    record();
}

void Appliance::set_power(Power power) {
    ++navigation_;
    browsing_.cancel_all();
    if (power == Power::On) {
        power_up(state_);
    } else {
        power_down(state_, power);
    }
    record();
}

std::string Appliance::state_line() const {
    return state_json(state_, fault_, JsonLayout::OneLine);
}

asio::awaitable<Page> Appliance::answer(HttpRequest request) {
    const auto effect = apply_command(state_, request.target);
    if (!effect) {
        co_return Page{kStatusNotFound, "There is no such page: " + request.target};
    }
    if (const auto* sound = std::get_if<LoadSound>(&*effect)) {
        co_return co_await play(sound->url);
    }
    if (const auto* page = std::get_if<ShowPage>(&*effect)) {
        browse(page->url);
        co_return Page{kStatusOk, "Going to " + page->url};
    }
    record();
    co_return Page{kStatusOk, std::get<Done>(*effect).text};
}

void Appliance::note_request(const HttpRequest& request, std::string_view answered) {
    ++state_.requests;
    recorder_.log_request(request.method, request.target, answered);
    record();
}

void Appliance::take_music(const std::string& text) {
    const bool is_taken = hears();
    if (is_taken) {
        state_.jukebox.last = text;
        ++state_.jukebox.commands;
    }
    recorder_.log_request("MUSIC", text, is_taken ? "ok" : to_text(fault_));
    record();
}

void Appliance::take_client_message(const ClientMessage& message) {
    const bool is_caller = message.kind == ClientMessage::Kind::Caller;
    const bool is_taken = hears();
    if (is_taken) {
        ++state_.client.messages;
        if (is_caller) {
            state_.client.caller_name = message.first;
            state_.client.caller_number = message.second;
        } else {
            state_.client.command = message.first + " " + message.second;
            apply_client_command(state_, message.first, message.second);
        }
    }
    recorder_.log_request(is_caller ? "CALLER" : "COMMAND", message.first + " " + message.second,
                          is_taken ? "ok" : to_text(fault_));
    record();
}

void Appliance::set_subscribed(bool is_subscribed) {
    state_.client.is_subscribed = is_subscribed;
    record();
}

bool Appliance::hears() const noexcept {
    return fault_.kind == FaultKind::None || fault_.kind == FaultKind::Slow;
}

void Appliance::record() const {
    recorder_.write_state(state_json(state_, fault_, JsonLayout::Indented));
}

asio::awaitable<Page> Appliance::play(std::string url) {
    const FetchedResource sound = co_await fetch_resource(url, identity_);
    if (!sound.problem.empty() || sound.status != 200) {
        const std::string& reason = sound.problem.empty() ? sound.status_line : sound.problem;
        co_return Page{kStatusOk, "The sound was not loaded: " + reason};
    }
    state_.playing.file = recorder_.add_sound(file_name_of(url), sound.body);
    state_.playing.bytes = sound.body.size();
    state_.playing.seconds = wav_seconds(sound.body);
    record();
    co_return Page{kStatusOk, "Playing " + url};
}

void Appliance::browse(const std::string& url) {
    browsing_.cancel_all();
    state_.browser = {url, "loading", 0};
    record();
    browsing_.start(browse_on(url, ++navigation_));
}

// Shows a page and what it asks to be replaced by in its time, until the browser is sent elsewhere.
asio::awaitable<void> Appliance::browse_on(std::string url, unsigned navigation) {
    bool is_refresh = false;
    while (true) {
        const FetchedResource page = co_await fetch_resource(url, identity_);
        if (navigation != navigation_) {
            co_return;
        }
        show(url, page);
        if (is_refresh) {
            recorder_.log_request("REFRESH", url, state_.browser.status);
        }
        co_await load_pictures(url, page.body);
        const auto refresh = page_refresh(page.body);
        if (!refresh || navigation != navigation_) {
            co_return;
        }
        asio::steady_timer pause(co_await asio::this_coro::executor, refresh->after);
        co_await pause.async_wait(asio::use_awaitable);
        if (!refresh->address.empty()) {
            url = whole_address(url, refresh->address);
        }
        is_refresh = true;
    }
}

void Appliance::show(const std::string& url, const FetchedResource& page) {
    recorder_.write_page(page.body);
    state_.browser = {url, page.problem.empty() ? page.status_line : page.problem,
                      page.body.size()};
    record();
}

asio::awaitable<void> Appliance::load_pictures(const std::string& url, const std::string& html) {
    constexpr std::size_t kMostPictures = 16;
    for (const std::string& address : picture_addresses(html, kMostPictures)) {
        const std::string picture_url = whole_address(url, address);
        const FetchedResource picture = co_await fetch_resource(picture_url, identity_);
        recorder_.log_request("PICTURE", picture_url,
                              picture.problem.empty() ? picture.status_line : picture.problem);
    }
}

}  // namespace unit
