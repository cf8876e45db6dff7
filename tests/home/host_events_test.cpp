#include "home/events/host_events.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/run_time_error.h"
#include "home/events/event_engine.h"
#include "home/events/notation.h"
#include "home/house_fakes.h"
#include "home/sqlite/home_database.h"
#include "home/sqlite/sqlite_event_store.h"
#include "home/temporary_folder.h"
#include "support/virtual_pump.h"

namespace home {
namespace {

using automation::RunTimeError;
using testing::ElementsAre;

class HostEventsTest : public testing::Test {
  protected:
    void person_adds(const std::string& name, const std::string& trigger) {
        engine_.add({.name = name,
                     .trigger = parse_trigger(trigger),
                     .actions = {parse_action("script hs.WriteLog 1, 2")}});
    }

    // A plug-in completes its draft as an event that a call sets off.
    static void complete(host::HostEvent& event, std::int16_t line) {
        host::EventFields fields = event.fields();
        fields.scripts = "&ring";
        fields.ev_abs_time = host::kSetOffByTelephone;
        fields.phone_event = host::kCallComesIn;
        fields.phone_line = line;
        event.set_fields(fields);
    }

    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (std::int32_t number = 1; number <= events_.EventCount(); ++number) {
            names.push_back(events_.GetEvent(number)->fields().name);
        }
        return names;
    }

    support::VirtualPump pump_;
    TemporaryFolder folder_;
    Trace trace_;
    Database database_ = open_home_database(folder_.path() / "home.db");
    SqliteEventStore store_{database_};
    EventEngine engine_{pump_, pump_, trace_, store_};
    HostEvents events_{engine_};
};

TEST_F(HostEventsTest, ADraftBecomesAnEventOfTheHouseOnceItCanRun) {
    person_adds("Morning", "at 07:00");
    const std::int32_t number = events_.NewEvent("Calls");
    EXPECT_EQ(number, 2);
    EXPECT_EQ(engine_.events().size(), 1U);
    complete(*events_.GetEvent(number), 2);
    ASSERT_EQ(engine_.events().size(), 2U);
    EXPECT_EQ(engine_.event("Calls").definition.trigger, Trigger{PhoneRings{2}});
    EXPECT_THAT(engine_.event("calls").definition.actions, ElementsAre(Action{RunScript{"&ring"}}));
    EXPECT_EQ(events_.EventCount(), 2) << "the draft is no second event";
    EXPECT_EQ(events_.GetEvent(number)->fields().phone_line, 2);
    EXPECT_EQ(events_.GetEvent(number)->fields().scripts, "&ring");
}

TEST_F(HostEventsTest, TheObjectOfADraftGoesOnAsTheEvent) {
    const auto event = events_.NewEventEx("Calls");
    complete(*event, 1);
    complete(*event, 3);
    EXPECT_EQ(engine_.event("Calls").definition.trigger, Trigger{PhoneRings{3}});
    engine_.remove("Calls");
    complete(*event, 1);
    EXPECT_TRUE(engine_.events().empty()) << "a write to a deleted event is lost";
}

TEST_F(HostEventsTest, CountsAndWalksEventsBeforeDrafts) {
    (void)events_.NewEventEx("Draft");
    person_adds("Morning", "at 07:00");
    EXPECT_THAT(names(), ElementsAre("Morning", "Draft"));
    EXPECT_EQ(events_.GetEvent(0), nullptr);
    EXPECT_EQ(events_.GetEvent(3), nullptr);
    const auto walk = events_.GetEventEnumerator();
    EXPECT_EQ(walk->GetNext()->fields().name, "Morning");
    EXPECT_FALSE(walk->CountChanged());
    person_adds("Evening", "at 19:00");
    EXPECT_TRUE(walk->CountChanged());
    EXPECT_FALSE(walk->Finished());
}

TEST_F(HostEventsTest, RefusesANameThatIsTaken) {
    person_adds("Morning", "at 07:00");
    (void)events_.NewEventEx("Draft");
    EXPECT_THROW((void)events_.NewEventEx("MORNING"), RunTimeError);
    EXPECT_THROW(events_.NewEvent("draft"), RunTimeError);
}

}  // namespace
}  // namespace home
