#include "home/events/event_engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "automation/run_time_error.h"
#include "home/events/notation.h"
#include "home/house_fakes.h"
#include "home/sqlite/home_database.h"
#include "home/sqlite/sqlite_event_store.h"
#include "home/temporary_folder.h"
#include "support/virtual_pump.h"

namespace home {
namespace {

using automation::RunTimeError;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

EventDefinition definition(const std::string& name, const std::string& trigger,
                           const std::vector<std::string>& actions) {
    EventDefinition result{.name = name, .trigger = parse_trigger(trigger), .actions = {}};
    for (const std::string& action : actions) {
        result.actions.push_back(parse_action(action));
    }
    return result;
}

// The engine on a virtual clock that starts at 10:00 on 24 November 2026. Carriers write down when
// they are called: "10:00:00.000 script x".
class EventEngineTest : public testing::Test {
  protected:
    EventEngineTest() { restart(); }

    void restart() {
        engine_.reset();
        store_.reset();
        database_.reset();
        database_.emplace(open_home_database(folder_.path() / "home.db"));
        store_.emplace(*database_);
        engine_.emplace(pump_, pump_, trace_, *store_);
        engine().runner().set_script_runner([this](const std::string& text) {
            note("script " + text);
            script_(text);
        });
        engine().runner().set_plugin_action(
            [this](const std::string& text) { note("action " + text); });
        engine().runner().set_button_press(
            [this](const std::string& text) { note("press " + text); });
        engine().runner().set_device_setter(
            [this](const std::string& code, const std::string& value) {
                note("set " + code + " " + value);
                set_(code, value);
            });
    }

    EventEngine& engine() { return *engine_; }

    void add(const std::string& name, const std::string& trigger,
             const std::vector<std::string>& actions) {
        engine().add(definition(name, trigger, actions));
    }

    void note(const std::string& what) { runs_.push_back(pump_.time_of_day() + " " + what); }

    std::vector<std::string> ran() { return std::exchange(runs_, {}); }

    std::vector<std::string> logged() { return std::exchange(trace_.lines, {}); }

    // A device becomes other, as its table tells it.
    void change(const std::string& code, DevicePart part, std::int32_t number) {
        DeviceRecord device;
        device.fields.hc = code.substr(0, 1);
        device.fields.dc = code.substr(1);
        device.fields.values =
            "Awake\2"
            "1";
        (part == DevicePart::Status ? device.status : device.value) = number;
        engine().device_changed({device, part});
    }

    void set_wall_clock(std::chrono::days day, std::chrono::milliseconds time) {
        pump_.set_wall_clock(std::chrono::local_days(2026y / std::chrono::November / 24) + day +
                             time);
    }

    template <typename Step>
    std::string error_of(int number, Step step) {
        try {
            step();
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), number) << error.description();
            return error.description();
        }
        return "no error";
    }

    support::VirtualPump pump_;
    TemporaryFolder folder_;
    Trace trace_;
    std::vector<std::string> runs_;
    std::function<void(const std::string&)> script_ = [](const std::string&) {};
    std::function<void(const std::string&, const std::string&)> set_ = [](const auto&,
                                                                          const auto&) {};
    std::optional<Database> database_;
    std::optional<SqliteEventStore> store_;
    std::optional<EventEngine> engine_;
};

// --- keeping ------------------------------------------------------------------------------------

TEST_F(EventEngineTest, EventsComeBackAfterANewStart) {
    add("Good morning", "at 07:30",
        {"script a \"\xFC\"", "action Velora\\2\\2[11-K\\2Awaken", "set [13 = 1"});
    add("Other", "x10 B2 on", {"press Awaken @ Kitchen Velora"});
    engine().disable("OTHER");
    engine().run("good MORNING");
    const std::vector<Event> before = engine().events();
    EXPECT_EQ(before[0].runs, 1);
    EXPECT_EQ(before[0].last_run, pump_.now());
    restart();
    EXPECT_EQ(engine().events(), before);
}

TEST_F(EventEngineTest, AReplacedEventKeepsItsPlaceAndHistory) {
    add("first", "phone 1", {"script a"});
    add("second", "phone 2", {"script b"});
    engine().run("first");
    engine().replace("FIRST", definition("1st", "phone 3", {"script c"}));
    engine().remove("second");
    restart();
    ASSERT_EQ(engine().events().size(), 1U);
    EXPECT_EQ(engine().event("1ST").definition, definition("1st", "phone 3", {"script c"}));
    EXPECT_EQ(engine().event("1st").runs, 1);
}

TEST_F(EventEngineTest, AWrongDefinitionChangesNothing) {
    add("Good morning", "at 07:30", {"script a"});
    add("Good night", "at 22:00", {"script b"});
    const std::vector<Event> before = engine().events();
    const EventDefinition fine = definition("new", "phone 1", {"script a"});
    EventDefinition no_action = fine;
    no_action.actions.clear();
    EventDefinition two_lines = fine;
    two_lines.actions.push_back(RunScript{"a\nb"});
    EXPECT_THAT(error_of(5, [&] { engine().add(no_action); }), HasSubstr("'new' has no action"));
    EXPECT_THAT(error_of(5, [&] { engine().add(two_lines); }), HasSubstr("control character"));
    EXPECT_THAT(error_of(5, [&] { add(" ", "phone 1", {"script a"}); }), HasSubstr("no name"));
    EXPECT_THAT(error_of(5, [&] { add("a\tb", "phone 1", {"script a"}); }), HasSubstr("no name"));
    EXPECT_EQ(error_of(58, [&] { add(" GOOD night ", "phone 1", {"script a"}); }),
              "there is an event 'Good night' already");
    EXPECT_EQ(error_of(58,
                       [&] {
                           engine().replace("Good morning",
                                            definition("good night", "phone 1", {"script a"}));
                       }),
              "there is an event 'Good night' already");
    EXPECT_EQ(error_of(5, [&] { engine().run("Good mornin"); }),
              "there is no event 'Good mornin'; the nearest are Good morning");
    EXPECT_EQ(engine().events(), before);
    restart();
    EXPECT_EQ(engine().events(), before);
}

TEST_F(EventEngineTest, AStoreThatRefusesChangesNothing) {
    add("a", "phone 1", {"script a"});
    database_->execute("PRAGMA query_only=ON");
    const std::vector<Event> before = engine().events();
    EXPECT_THROW(add("b", "phone 1", {"script b"}), RunTimeError);
    EXPECT_THROW(engine().disable("a"), RunTimeError);
    EXPECT_THROW(engine().remove("a"), RunTimeError);
    EXPECT_EQ(engine().events(), before);
    engine().run("a");
    EXPECT_THAT(ran(), ElementsAre("10:00:00.000 script a")) << "a run needs no store";
    EXPECT_THAT(logged(), testing::Contains(HasSubstr("the run of 'a' is not stored: ")));
}

TEST_F(EventEngineTest, AnEventThatCannotBeReadIsALineAndStays) {
    add("a", "phone 1", {"script a"});
    add("b", "phone 1", {"script b"});
    database_->execute("UPDATE event SET cause='moon full' WHERE name='a'");
    restart();
    EXPECT_THAT(logged(),
                ElementsAre(HasSubstr("log Event: The stored event 'a' cannot be read: 'moon'")));
    EXPECT_EQ(engine().events().size(), 1U);
    database_->execute("UPDATE event SET cause='phone 1' WHERE name='a'");
    restart();
    EXPECT_EQ(engine().events().size(), 2U);
}

// --- what sets them off -------------------------------------------------------------------------

TEST_F(EventEngineTest, EachTriggerTakesItsOwnOccasions) {
    engine().start();
    for (const char* trigger :
         {"device [11", "device [11 = 1", "device [11 = awake", "device [11 = on", "device [12",
          "x10 B2 on", "x10 B2 any", "x10 B3 any", "phone 1", "phone 2"}) {
        add(trigger, trigger, {std::string("script ") + trigger});
    }

    struct Case {
        std::function<void()> occasion;
        std::vector<std::string> wanted;
    };

    const std::vector<Case> cases{
        {[&] { change("[11", DevicePart::Value, 1); },
         {"device [11", "device [11 = 1", "device [11 = awake"}},
        {[&] { change("[11", DevicePart::Value, 2); }, {"device [11"}},
        {[&] { change("[11", DevicePart::Status, 2); }, {"device [11", "device [11 = on"}},
        {[&] { change("[11", DevicePart::Status, 3); }, {"device [11"}},
        {[&] { change("[1", DevicePart::Value, 1); }, {}},
        {[&] { engine().x10_received("B2", "on"); }, {"x10 B2 on", "x10 B2 any"}},
        {[&] { engine().x10_received("B2", "off"); }, {"x10 B2 any"}},
        {[&] { engine().telephone_rings(2); }, {"phone 2"}},
    };
    for (const Case& c : cases) {
        c.occasion();
        EXPECT_THAT(runs_, IsEmpty()) << "a run is an event of its own";
        pump_.run_ready();
        std::vector<std::string> wanted;
        for (const std::string& trigger : c.wanted) {
            wanted.push_back("10:00:00.000 script " + trigger);
        }
        EXPECT_EQ(ran(), wanted);
    }
}

TEST_F(EventEngineTest, ADisabledEventRunsOnlyByHand) {
    engine().start();
    add("a", "phone 1", {"script a"});
    engine().telephone_rings(1);
    engine().disable("a");
    pump_.run_ready();
    engine().telephone_rings(1);
    pump_.run_ready();
    EXPECT_THAT(ran(), IsEmpty());
    engine().run("a");
    EXPECT_THAT(ran(), ElementsAre("10:00:00.000 script a"));
    engine().enable("a");
    engine().telephone_rings(1);
    pump_.run_ready();
    EXPECT_THAT(ran(), ElementsAre("10:00:00.000 script a"));
}

// --- the clock ----------------------------------------------------------------------------------

TEST_F(EventEngineTest, ATimeOfDayComesOnceADayInItsMinute) {
    add("midnight", "at 00:00", {"script midnight"});
    add("ten", "at 10:00", {"script ten"});
    engine().start();
    pump_.run_for(48h);
    EXPECT_THAT(ran(), ElementsAre("10:00:00.000 script ten", "00:00:00.000 script midnight",
                                   "10:00:00.000 script ten", "00:00:00.000 script midnight",
                                   "10:00:00.000 script ten"));
}

TEST_F(EventEngineTest, NothingComesBeforeTheStart) {
    add("ten", "at 10:01", {"script ten"});
    add("every", "every 1 minutes", {"script every"});
    add("x10", "x10 B2 on", {"script x10"});
    engine().x10_received("B2", "on");
    pump_.run_for(10min);
    EXPECT_THAT(ran(), IsEmpty());
}

TEST_F(EventEngineTest, AClockThatJumpsBringsNoSecondRunOfADay) {
    add("noon", "at 12:00", {"script noon"});
    engine().start();
    set_wall_clock(0 * std::chrono::days(1), 11h + 59min + 30s);
    pump_.run_for(2min);
    EXPECT_THAT(ran(), ElementsAre("12:00:30.000 script noon")) << "seen within its minute";
    set_wall_clock(0 * std::chrono::days(1), 11h + 59min);
    pump_.run_for(5min);
    EXPECT_THAT(ran(), IsEmpty()) << "set back";
    set_wall_clock(std::chrono::days(1), 13h);
    pump_.run_for(5min);
    EXPECT_THAT(ran(), IsEmpty()) << "a missed minute is skipped";
    set_wall_clock(std::chrono::days(2), 11h);
    pump_.jump(59min + 40s);
    pump_.run_for(1min);
    EXPECT_THAT(ran(), ElementsAre("12:00:00.000 script noon"));
    pump_.jump(48h);
    pump_.run_for(1h);
    EXPECT_THAT(ran(), ElementsAre("12:00:40.000 script noon")) << "a machine that slept";
}

TEST_F(EventEngineTest, ANewStartInTheMinuteBringsNoSecondRun) {
    add("noon", "at 10:01", {"script noon"});
    engine().start();
    pump_.run_for(1min + 10s);
    EXPECT_EQ(ran().size(), 1U);
    restart();
    engine().start();
    pump_.run_for(10min);
    EXPECT_THAT(ran(), IsEmpty());
    engine().replace("noon", definition("noon", "at 10:20", {"script noon"}));
    pump_.run_for(30min);
    EXPECT_THAT(ran(), ElementsAre("10:20:00.000 script noon")) << "another time of the same day";
}

TEST_F(EventEngineTest, AnIntervalKeepsItsPaceWhateverTheWallClockSays) {
    engine().start();
    pump_.run_for(30s);
    add("often", "every 5 minutes", {"script often"});
    pump_.run_for(11min);
    EXPECT_THAT(ran(), ElementsAre("10:05:30.000 script often", "10:10:30.000 script often"));
    set_wall_clock(0 * std::chrono::days(1), 3h);
    pump_.run_for(4min + 30s);
    EXPECT_THAT(ran(), ElementsAre("03:04:00.000 script often"));
    engine().disable("often");
    pump_.run_for(20min);
    EXPECT_THAT(ran(), IsEmpty());
    engine().enable("often");
    engine().replace("often", definition("often", "every 1 minutes", {"script often"}));
    pump_.run_for(2min);
    EXPECT_EQ(ran().size(), 2U);
    engine().remove("often");
    pump_.run_for(20min);
    EXPECT_THAT(ran(), IsEmpty());
}

TEST_F(EventEngineTest, AnIntervalGoesOnOverANewStart) {
    add("hourly", "every 60 minutes", {"script hourly"});
    engine().run("hourly");
    static_cast<void>(ran());
    restart();
    pump_.run_for(40min);
    engine().start();
    pump_.run_for(81min);
    EXPECT_THAT(ran(), ElementsAre("11:00:00.000 script hourly", "12:00:00.000 script hourly"));
    restart();
    pump_.run_for(3h);
    engine().start();
    pump_.run_for(61min);
    EXPECT_THAT(ran(), ElementsAre("15:01:00.000 script hourly", "16:01:00.000 script hourly"))
        << "one that would have run meanwhile runs at once";
}

// --- runs ---------------------------------------------------------------------------------------

TEST_F(EventEngineTest, ActionsRunInOrderAndAFailedOneDoesNotStopTheNext) {
    set_ = [](const std::string&, const std::string&) {
        throw RunTimeError(automation::ErrorNumber::InvalidProcedureCall, "there is no device");
    };
    add("all", "phone 1", {"script a", "set [99 = 1", "action x\\2y", "press b @ c Velora"});
    engine().run("all");
    EXPECT_THAT(ran(), ElementsAre("10:00:00.000 script a", "10:00:00.000 set [99 1",
                                   "10:00:00.000 action x\2y", "10:00:00.000 press b @ c Velora"));
    EXPECT_THAT(logged(),
                ElementsAre("log Event: 'all' runs (phone 1)",
                            "log Event: 'all', action 2 (set [99 = 1) failed: there is no device"));
}

TEST_F(EventEngineTest, AnActionThatNobodyCarriesOutIsALine) {
    engine().runner().set_script_runner(nullptr);
    add("a", "phone 1", {"script a", "press b"});
    engine().run("a");
    EXPECT_THAT(ran(), ElementsAre("10:00:00.000 press b"));
    EXPECT_THAT(logged(), ElementsAre("log Event: 'a' runs (phone 1)",
                                      "log Event: 'a', action 1 (script a) failed: nothing is "
                                      "installed that carries out scripts"));
}

TEST_F(EventEngineTest, AnEventThatSetsItselfOffIsCutOff) {
    engine().start();
    int value = 0;
    set_ = [&](const std::string& code, const std::string&) {
        change(code, DevicePart::Value, ++value);
    };
    add("self", "device [11", {"set [11 = 1"});
    change("[11", DevicePart::Value, 0);
    pump_.run_for(1h);
    EXPECT_EQ(ran().size(), 1U);
    EXPECT_THAT(logged(),
                ElementsAre("log Event: 'self' runs (device [11)",
                            "log Event: 'self' is still running and is not set off again"));
}

TEST_F(EventEngineTest, EventsThatSetEachOtherOffAreCutOff) {
    engine().start();
    int value = 0;
    set_ = [&](const std::string& code, const std::string&) {
        change(code, DevicePart::Value, ++value);
    };
    add("ping", "device [11", {"set [12 = 1"});
    add("pong", "device [12", {"set [11 = 1"});
    change("[11", DevicePart::Value, 0);
    pump_.run_for(1h);
    EXPECT_EQ(ran().size(), 2U * EventEngine::kOwnRuns);
    EXPECT_THAT(logged(),
                testing::Contains(
                    "log Event: 'ping' sets itself off again and again; cut off after 3 runs"));
    change("[11", DevicePart::Value, 0);
    pump_.run_for(1h);
    EXPECT_EQ(ran().size(), 2U * EventEngine::kOwnRuns) << "from outside it may come again";
}

TEST_F(EventEngineTest, ATriggerThatComesDuringARunOrAWaitingOneAddsNone) {
    engine().start();
    script_ = [&](const std::string&) {
        pump_.run_until([] { return false; }, 5min);
        note("done");
    };
    add("slow", "x10 B2 on", {"script a"});
    engine().x10_received("B2", "on");
    engine().x10_received("B2", "on");
    pump_.call_later(2min, [&] { engine().x10_received("B2", "on"); });
    pump_.call_later(3min, [&] {
        EXPECT_EQ(error_of(70, [&] { engine().run("slow"); }), "the event 'slow' is still running");
    });
    pump_.run_for(1h);
    EXPECT_THAT(ran(), ElementsAre("10:00:00.000 script a", "10:05:00.000 done"));
    EXPECT_THAT(logged(),
                ElementsAre("log Event: 'slow' runs (x10 B2 on)",
                            "log Event: 'slow' is still running and is not set off again"));
}

TEST_F(EventEngineTest, AnActionMayChangeItsOwnEvent) {
    script_ = [&](const std::string& text) {
        if (text == "a") {
            engine().remove("self");
            add("other", "phone 1", {"script c"});
        }
    };
    add("self", "every 1 minutes", {"script a", "script b"});
    engine().start();
    pump_.run_for(3min);
    EXPECT_THAT(ran(), ElementsAre("10:01:00.000 script a", "10:01:00.000 script b"));
    EXPECT_EQ(engine().events().size(), 1U);
}

TEST_F(EventEngineTest, AStopUnwindsARun) {
    script_ = [&](const std::string&) { pump_.run_until([] { return false; }, 5min); };
    add("slow", "phone 1", {"script a", "script b"});
    pump_.call_later(1min, [&] { pump_.stop(); });
    EXPECT_THROW(engine().run("slow"), host::PumpStopped);
    EXPECT_EQ(ran().size(), 1U);
    EXPECT_EQ(error_of(5, [&] { engine().remove("no"); }),
              "there is no event 'no'; there are slow");
}

TEST_F(EventEngineTest, AWaitingRunDoesNotOutliveTheEngine) {
    engine().start();
    add("a", "phone 1", {"script a"});
    engine().telephone_rings(1);
    engine_.reset();
    pump_.run_for(1h);
    EXPECT_THAT(ran(), IsEmpty());
}

}  // namespace
}  // namespace home
