#include "home/events/host_events.h"

#include <algorithm>
#include <string>
#include <utility>

#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "home/events/event_engine.h"

namespace home {

namespace {

using automation::ErrorNumber;
using automation::RunTimeError;

bool can_be_carried_out(const host::EventFields& fields) {
    return fields.ev_abs_time == host::kSetOffByTelephone &&
           fields.phone_event == host::kCallComesIn && fields.phone_line > 0 &&
           !fields.scripts.empty();
}

EventDefinition definition_of(const host::EventFields& fields) {
    return {.name = fields.name,
            .trigger = PhoneRings{fields.phone_line},
            .actions = {RunScript{fields.scripts}}};
}

host::EventFields fields_of(const EventDefinition& definition) {
    host::EventFields fields;
    fields.name = definition.name;
    if (const auto* const rings = std::get_if<PhoneRings>(&definition.trigger)) {
        fields.ev_abs_time = host::kSetOffByTelephone;
        fields.phone_event = host::kCallComesIn;
        fields.phone_line = rings->line;
    }
    for (const Action& action : definition.actions) {
        if (const auto* const script = std::get_if<RunScript>(&action)) {
            fields.scripts += (fields.scripts.empty() ? "" : "\n");
            fields.scripts += script->text;
        }
    }
    return fields;
}

const Event* find_event(const EventEngine& engine, std::int64_t id) {
    const auto found = std::ranges::find(engine.events(), id, &Event::id);
    return found == engine.events().end() ? nullptr : &*found;
}

}  // namespace

// An event of the engine.
class HostEvents::Existing final : public host::HostEvent {
  public:
    Existing(EventEngine& engine, std::int64_t id) : engine_(engine), id_(id) {}

    [[nodiscard]] host::EventFields fields() const override {
        const Event* const event = find_event(engine_, id_);
        return event == nullptr ? host::EventFields{} : fields_of(event->definition);
    }

    void set_fields(const host::EventFields& fields) override {
        const Event* const event = find_event(engine_, id_);
        if (event == nullptr) {
            return;
        }
        if (!can_be_carried_out(fields)) {
            throw RunTimeError(ErrorNumber::InvalidProcedureCall,
                               "The event '" + fields.name + "' names no telephone line or script");
        }
        engine_.replace(event->definition.name, definition_of(fields));
    }

  private:
    EventEngine& engine_;
    std::int64_t id_;
};

class HostEvents::Draft final : public host::HostEvent,
                                public std::enable_shared_from_this<HostEvents::Draft> {
  public:
    Draft(EventEngine& engine, std::weak_ptr<Drafts> drafts, std::string_view name)
        : engine_(engine), drafts_(std::move(drafts)) {
        fields_.name = name;
    }

    [[nodiscard]] host::EventFields fields() const override {
        return event_ == nullptr ? fields_ : event_->fields();
    }

    void set_fields(const host::EventFields& fields) override {
        if (event_ != nullptr) {
            event_->set_fields(fields);
            return;
        }
        if (can_be_carried_out(fields)) {
            engine_.add(definition_of(fields));
            event_ = std::make_shared<Existing>(engine_, engine_.event(fields.name).id);
            if (const auto drafts = drafts_.lock()) {
                std::erase(*drafts, shared_from_this());
            }
        }
        fields_ = fields;
    }

  private:
    EventEngine& engine_;
    std::weak_ptr<Drafts> drafts_;
    host::EventFields fields_;
    std::shared_ptr<Existing> event_;  // once it is one of the engine's
};

class HostEvents::Walk final : public host::EventEnumerator {
  public:
    explicit Walk(const HostEvents& events) : events_(events), count_(events.EventCount()) {}

    [[nodiscard]] bool Finished() const override { return next_ > events_.EventCount(); }

    [[nodiscard]] bool CountChanged() const override { return events_.EventCount() != count_; }

    std::shared_ptr<host::HostEvent> GetNext() override { return events_.GetEvent(next_++); }

  private:
    const HostEvents& events_;
    std::int32_t count_;
    std::int32_t next_ = 1;
};

std::int32_t HostEvents::EventCount() const {
    return static_cast<std::int32_t>(engine_.events().size() + drafts_->size());
}

std::shared_ptr<host::HostEvent> HostEvents::GetEvent(std::int32_t number) const {
    if (number < 1 || number > EventCount()) {
        return nullptr;
    }
    const auto index = static_cast<std::size_t>(number - 1);
    const std::vector<Event>& events = engine_.events();
    if (index < events.size()) {
        return std::make_shared<Existing>(engine_, events[index].id);
    }
    return (*drafts_)[index - events.size()];
}

std::int32_t HostEvents::NewEvent(std::string_view name) {
    (void)NewEventEx(name);
    return EventCount();
}

std::unique_ptr<host::EventEnumerator> HostEvents::GetEventEnumerator() const {
    return std::make_unique<Walk>(*this);
}

std::shared_ptr<host::HostEvent> HostEvents::NewEventEx(std::string_view name) {
    if (is_taken(name)) {
        throw RunTimeError(ErrorNumber::FileAlreadyExists,
                           "There is an event '" + std::string(name) + "' already");
    }
    auto draft = std::make_shared<Draft>(engine_, drafts_, name);
    drafts_->push_back(draft);
    return draft;
}

bool HostEvents::is_taken(std::string_view name) const {
    const auto is_named_so = [&](const std::string& other) {
        return automation::equals_ignoring_case(other, name);
    };
    return std::ranges::any_of(
               engine_.events(),
               [&](const Event& event) { return is_named_so(event.definition.name); }) ||
           std::ranges::any_of(*drafts_, [&](const std::shared_ptr<Draft>& draft) {
               return is_named_so(draft->fields().name);
           });
}

}  // namespace home
