#include "support/scripted_units.h"

#include <algorithm>

#include "automation/run_time_error.h"

namespace support {

std::vector<std::string> HouseTrace::without_time() const {
    std::vector<std::string> lines;
    for (const std::string& line : lines_) {
        lines.push_back(line.substr(line.find(' ') + 1));
    }
    return lines;
}

// State of one page-fetch object; shared with the events under way, which may outlive it.
struct ScriptedUnits::Loading {
    std::shared_ptr<std::function<void(const std::string&)>> on_complete;
    ScriptedUnit* unit = nullptr;  // while a fetch runs
    std::string url;
    std::string page;
    std::string body;
    std::uint64_t navigation = 0;  // number of the latest fetch
};

class ScriptedUnits::Fetch final : public host::PageFetch {
  public:
    Fetch(ScriptedUnits& units, std::shared_ptr<Loading> loading)
        : units_(units), loading_(std::move(loading)) {}

    ~Fetch() override {
        units_.abandon(*loading_);
        ++loading_->navigation;
    }

    void Navigate2(std::string_view url) override { units_.start(loading_, url); }

    [[nodiscard]] std::string body_inner_text() const override { return loading_->body; }

  private:
    ScriptedUnits& units_;
    std::shared_ptr<Loading> loading_;
};

ScriptedUnit& ScriptedUnits::unit(std::string_view host) {
    return units_[std::string(host)];
}

std::unique_ptr<host::PageFetch> ScriptedUnits::create(
    std::function<void(const std::string& url)> on_document_complete) {
    if (is_unavailable_) {
        throw automation::RunTimeError(automation::ErrorNumber::ActiveXCannotCreateObject);
    }
    ++objects_made_;
    auto loading = std::make_shared<Loading>();
    loading->on_complete =
        std::make_shared<std::function<void(const std::string&)>>(std::move(on_document_complete));
    return std::make_unique<Fetch>(*this, std::move(loading));
}

void ScriptedUnits::abandon(Loading& loading) {
    if (loading.unit != nullptr) {
        --loading.unit->in_flight_;
        loading.unit = nullptr;
    }
}

void ScriptedUnits::start(const std::shared_ptr<Loading>& loading, std::string_view url) {
    constexpr std::string_view kScheme = "http://";
    const auto slash = url.find('/', kScheme.size());
    if (!url.starts_with(kScheme) || slash == std::string_view::npos || slash == kScheme.size()) {
        throw automation::RunTimeError(automation::ErrorNumber::InvalidProcedureCall,
                                       "No URL: " + std::string(url));
    }
    abandon(*loading);
    const std::string host(url.substr(kScheme.size(), slash - kScheme.size()));
    ScriptedUnit& asked = unit(host);
    loading->url = url;
    loading->page = url.substr(slash + 1);
    const std::uint64_t navigation = ++loading->navigation;
    asked.requests_.push_back(loading->page);
    trace_.note(host + " GET /" + loading->page);
    if (!asked.is_refusing_) {
        loading->unit = &asked;
        asked.most_in_flight_ = std::max(asked.most_in_flight_, ++asked.in_flight_);
        const int completions = asked.completions_;
        pump_.call_later(asked.delay_, [this, loading, navigation, completions] {
            answer(loading, navigation, completions);
        });
    }
    if (on_request) {
        on_request(host, std::string(loading->page));
    }
}

void ScriptedUnits::answer(const std::shared_ptr<Loading>& loading, std::uint64_t navigation,
                           int completions_left) {
    if (loading->navigation != navigation) {
        return;  // released, or on its way to another page
    }
    if (loading->unit != nullptr) {
        if (loading->unit->is_silent_) {
            return;
        }
        const auto body = loading->unit->bodies_.find(loading->page);
        loading->body = body == loading->unit->bodies_.end() ? "" : body->second;
        abandon(*loading);
    }
    if (completions_left > 1) {
        pump_.post([this, loading, navigation, completions_left] {
            answer(loading, navigation, completions_left - 1);
        });
    }
    const auto on_complete = loading->on_complete;  // the object may go within
    (*on_complete)(std::string(loading->url));
}

}  // namespace support
