#include "unit/appliance.h"

#include <boost/asio.hpp>
#include <utility>

#include "unit/command_page.h"
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
    const bool is_taken = fault_.kind == FaultKind::None || fault_.kind == FaultKind::Slow;
    if (is_taken) {
        state_.jukebox.last = text;
        ++state_.jukebox.commands;
    }
    recorder_.log_request("MUSIC", text, is_taken ? "ok" : to_text(fault_));
    record();
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
    browsing_.start(load_page(url, ++navigation_));
}

asio::awaitable<void> Appliance::load_page(std::string url, unsigned navigation) {
    const FetchedResource page = co_await fetch_resource(std::move(url), identity_);
    if (navigation != navigation_) {
        co_return;
    }
    recorder_.write_page(page.body);
    state_.browser.status = page.problem.empty() ? page.status_line : page.problem;
    state_.browser.bytes = page.body.size();
    record();
}

}  // namespace unit
