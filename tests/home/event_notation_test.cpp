#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/run_time_error.h"
#include "home/events/notation.h"

namespace home {
namespace {

template <typename Parse>
std::string error_of(const Parse& parse, const std::string& line) {
    try {
        static_cast<void>(parse(line));
    } catch (const automation::RunTimeError& error) {
        EXPECT_EQ(error.number(), 5);
        return error.description();
    }
    return "no error";
}

struct Spelling {
    const char* written;
    const char* printed;
};

TEST(EventNotation, PrintsTriggersInOneForm) {
    for (const Spelling& c : std::vector<Spelling>{
             {"at 07:30", "at 07:30"},
             {" AT  7:05 ", "at 07:05"},
             {"at 00:00", "at 00:00"},
             {"at 23:59", "at 23:59"},
             {"every 1 minute", "every 1 minutes"},
             {"Every 1440 Minutes", "every 1440 minutes"},
             {"device [11", "device [11"},
             {"device b2", "device B2"},
             {"device [11=1", "device [11 = 1"},
             {"device ]5 =  Turn Backlight On ", "device ]5 = Turn Backlight On"},
             {"x10 b02 ON", "x10 B2 on"},
             {"x10 P16 any", "x10 P16 any"},
             {"phone 1", "phone 1"},
         }) {
        const Trigger trigger = parse_trigger(c.written);
        EXPECT_EQ(text_of(trigger), c.printed);
        EXPECT_EQ(parse_trigger(text_of(trigger)), trigger) << c.printed;
    }
}

TEST(EventNotation, PrintsActionsInOneForm) {
    for (const Spelling& c : std::vector<Spelling>{
             {"script &hs.Plugin(\"zynVelora\").VeloraSpeak \"\", \"a = b\"",
              "script &hs.Plugin(\"zynVelora\").VeloraSpeak \"\", \"a = b\""},
             {"SCRIPT  x = \"\\2\" ", "script x = \"\\2\""},
             {"set [13=1", "set [13 = 1"},
             {"Set a1 = On", "set A1 = On"},
             {"press Play Copy Sound @ Kitchen Velora", "press Play Copy Sound @ Kitchen Velora"},
             {"action Velora\\2\\2[11-C:\\\\x\\2Awaken", "action Velora\\2\\2[11-C:\\\\x\\2Awaken"},
         }) {
        const Action action = parse_action(c.written);
        EXPECT_EQ(text_of(action), c.printed);
        EXPECT_EQ(parse_action(text_of(action)), action) << c.printed;
    }
    EXPECT_EQ(parse_action("action Velora\\2\\2[11-a\\\\b\\2Awaken"),
              Action(PluginAction{"Velora\2\2[11-a\\b\2"
                                  "Awaken"}));
}

struct Malformed {
    const char* line;
    const char* error;
};

TEST(EventNotation, NamesTheWrongWordOfATrigger) {
    for (const Malformed& c : std::vector<Malformed>{
             {"", "'' is no trigger; wanted one of at, every, device, x10, phone"},
             {"att 07:30", "'att' is no trigger; wanted one of at, every, device, x10, phone"},
             {"at", "something is missing behind 'at'; wanted a time of day, 00:00 to 23:59"},
             {"at 24:00", "'24:00' is wrong behind 'at'; wanted a time of day, 00:00 to 23:59"},
             {"at 7:5", "'7:5' is wrong behind 'at'; wanted a time of day, 00:00 to 23:59"},
             {"at 007:30", "'007:30' is wrong behind 'at'; wanted a time of day, 00:00 to 23:59"},
             {"at 07:30:00",
              "'07:30:00' is wrong behind 'at'; wanted a time of day, 00:00 to 23:59"},
             {"at -1:30", "'-1:30' is wrong behind 'at'; wanted a time of day, 00:00 to 23:59"},
             {"at 07:30 daily", "'daily' is wrong behind '07:30'; wanted the end of the line"},
             {"every 0 minutes",
              "'0' is wrong behind 'every'; wanted a number of minutes, 1 to 1440"},
             {"every 1441 minutes",
              "'1441' is wrong behind 'every'; wanted a number of minutes, 1 to 1440"},
             {"every 5", "something is missing behind '5'; wanted 'minutes'"},
             {"every 5 hours", "'hours' is wrong behind '5'; wanted 'minutes'"},
             {"device 11",
              "'11' is wrong behind 'device'; wanted a device code, a house code "
              "character and a number as in [11 or A1"},
             {"device [x",
              "'[x' is wrong behind 'device'; wanted a device code, a house code "
              "character and a number as in [11 or A1"},
             {"device [11 1", "'1' is wrong behind '[11'; wanted '='"},
             {"device [11 =", "something is missing behind '='; wanted a number or a word"},
             {"x10 Q1 on", "'Q1' is wrong behind 'x10'; wanted an X10 code, A1 to P16"},
             {"x10 B2", "something is missing behind 'B2'; wanted on, off or any"},
             {"x10 B2 dim", "'dim' is wrong behind 'B2'; wanted on, off or any"},
             {"phone 0", "'0' is wrong behind 'phone'; wanted the number of a line, 1 to 999"},
         }) {
        EXPECT_EQ(error_of(parse_trigger, c.line), c.error);
    }
}

TEST(EventNotation, NamesTheWrongWordOfAnAction) {
    for (const Malformed& c : std::vector<Malformed>{
             {"speak Hello", "'speak' is no action; wanted one of script, action, set, press"},
             {"script ", "something is missing behind 'script'; wanted a line of script"},
             {"script a\nb",
              "a control character stands in 'script a\nb'; wanted one line of text"},
             {"action a\\3b",
              "'\\3' is wrong behind 'action'; wanted \\2 for a separator or \\\\ "
              "for a backslash"},
             {"action a\\",
              "'\\' is wrong behind 'action'; wanted \\2 for a separator or \\\\ for "
              "a backslash"},
             {"set [13", "something is missing behind '[13'; wanted '=' and a value"},
             {"set = 1",
              "something is missing behind 'set'; wanted a device code, a house code "
              "character and a number as in [11 or A1"},
         }) {
        EXPECT_EQ(error_of(parse_action, c.line), c.error);
    }
}

}  // namespace
}  // namespace home
