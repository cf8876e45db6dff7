#include "app/control_service.h"

#include <optional>
#include <stdexcept>

#include "app/service_house.h"
#include "home/sqlite/sqlite_log.h"
#include "host/pump.h"

namespace app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ControlServiceTest : public ServiceHouse {
  protected:
    void write(int count, const std::string& text = "line ") {
        for (int i = 1; i <= count; ++i) {
            host_.Writelog("test", text + std::to_string(i));
        }
    }
};

struct Exchange {
    const char* name;
    std::string request;
    std::string answer;
};

class ControlServiceAnswers : public ControlServiceTest,
                              public testing::WithParamInterface<Exchange> {};

TEST_P(ControlServiceAnswers, OneLine) {
    EXPECT_THAT(ask(GetParam().request), ElementsAre(GetParam().answer));
}

std::string call(const std::string& operation, const std::string& arguments) {
    return R"({"do":"call","operation":")" + operation + R"(","arguments":)" + arguments + "}";
}

const auto error = error_line;

// UTF-8 on this side, one byte a character on the other; a character that has none is lost.
INSTANTIATE_TEST_SUITE_P(
    Calls, ControlServiceAnswers,
    testing::ValuesIn(std::vector<Exchange>{
        {"Texts", call("veloraspeak", R"(["K\u00fcche","5 \u20ac \u4e2d"])"),
         R"({"result":"Küche says 5 € ?"})"},
        {"TextToNumber", call("VeloraVolume", R"(["", " 49.5 "])"), R"({"result":50})"},
        {"Number", call("VeloraVolume", R"([1, 30000])"), R"({"result":30000})"},
        {"LeftOut", call("VeloraVolume", R"(["", null])"), R"({"result":-1})"},
        {"Single", call("VeloraTag", "[]"), R"({"result":1.705547})"},
        {"TruthValue", call("VeloraIsSpeaking", R"(["TRUE"])"), R"({"result":true})"},
        {"Nothing", R"({"do":"call","operation":"VeloraNothing"})", R"({"result":null})"},
        {"ErrorOfTheOperation", call("VeloraFail", "[]"), error(61, R"(Disk full: C:\\ü)")},
        {"TooBig", call("VeloraVolume", R"(["", 40000])"), error(6, "Overflow: 'percent'")},
        {"MuchTooBig", call("VeloraVolume", R"(["", 18446744073709551615])"),
         error(6, "Overflow: 'percent'")},
        {"NoValue", call("VeloraVolume", R"(["", {}])"), error(13, "Type mismatch")},
        {"TooFew", call("VeloraSpeak", R"(["hall"])"),
         error(450,
               "Wrong number of arguments or invalid property assignment: wanted "
               "VeloraSpeak(whichVeloras, text)")},
        {"Misspelt", call("VeloraSpeek", "[]"),
         error(438,
               "There is no operation 'VeloraSpeek'; the nearest are VeloraSpeak, "
               "VeloraTag, VeloraFail, VeloraWait")},
        {"NothingLikeIt", call("x", "[]"), error(438, "There is no operation 'x'")},
    }),
    [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(
    BadRequests, ControlServiceAnswers,
    testing::ValuesIn(std::vector<Exchange>{
        {"Empty", "", error(5, "The request is no JSON object in one line")},
        {"Torn", R"({"do":"call")", error(5, "The request is no JSON object in one line")},
        {"NoUtf8", "{\"do\":\"\xFF\"}", error(5, "The request is no JSON object in one line")},
        {"NoObject", "[1]", error(5, "The request is no JSON object in one line")},
        {"NothingToDo", "{}", error(5, R"(The request wants a text \"do\")")},
        {"Unknown", R"({"do":"dance"})",
         error(5,
               "Nobody can do 'dance'; there are log, call, operations, status, devices, "
               "device, set, x10, menu, select, press, events, add_event, remove_event, "
               "run_event, enable_event, disable_event, modem, modem_send, phonebook, "
               "look_up, ring, setup, setup_set, setup_press, setup_ok, setup_cancel, "
               "server_open, server_options, server_debug, server_press")},
        {"NoOperation", R"({"do":"call"})", error(5, R"(The request wants a text \"operation\")")},
        {"ArgumentsNoArray", call("VeloraTag", R"("x")"),
         error(5, R"(The request wants an array \"arguments\")")},
        {"LinesNegative", R"({"do":"log","lines":-1})",
         error(5, R"(The request wants a whole number \"lines\", 0 or more)")},
        {"AfterNoNumber", R"({"do":"log","after":"x"})",
         error(5, R"(The request wants a whole number \"after\", 0 or more)")},
    }),
    [](const auto& test) { return test.param.name; });

TEST_F(ControlServiceTest, OperationsAreListedWithTheirUsage) {
    const Json list = Json::parse(ask(R"({"do":"operations"})").at(0)).at("operations");
    EXPECT_EQ(list.size(), 7U);
    EXPECT_EQ(list.at(1).get<std::string>(), "VeloraVolume(which, [percent])");
}

TEST_F(ControlServiceTest, StatusTellsUnitsAndTimers) {
    plugin_.present.flags = {"StartupReady"};
    plugin_.present.units = {{.name = "k\xFC",
                              .address = "127.0.0.21:8080",
                              .queue_text = "Queue: 1)  | b",
                              .current_command = "a",
                              .current_url = "http://127.0.0.21:8080/a",
                              .waiting = {"b"},
                              .flags = {"awake"},
                              .retries_left = 2,
                              .timeout_count = 3,
                              .power_cycle_count = 1}};
    plugin_.present.timers = {{.name = "Timer2", .interval = std::chrono::minutes(1)}};
    EXPECT_THAT(
        ask(R"({"do":"status"})"),
        ElementsAre(
            R"({"status":{"role":"normal","flags":["StartupReady"],"units":[{"name":"kü",)"
            R"("address":"127.0.0.21:8080","queue":"Queue: 1)  | b","command":"a",)"
            R"("url":"http://127.0.0.21:8080/a","waiting":["b"],"retries_left":2,"timeouts":3,)"
            R"("power_cycles":1,"flags":["awake"]}],)"
            R"("timers":[{"name":"Timer2","interval_ms":60000}]}})"));
}

// --- calls that wait ----------------------------------------------------------------------------

TEST_F(ControlServiceTest, OtherRequestsAreServedDuringACall) {
    plugin_.on_wait = [this] {
        plugin_.on_wait = [] {};
        service_.take(call("VeloraWait", "[]"), terminal_);
        service_.take(call("VeloraTag", "[]"), terminal_);
        terminal_->send("outer goes on");
    };
    EXPECT_THAT(ask(call("VeloraWait", "[]")),
                ElementsAre(R"({"result":"waited"})", R"({"result":1.705547})", "outer goes on",
                            R"({"result":"waited"})"));
}

TEST_F(ControlServiceTest, CallsThatNestTooDeeplyAreRefusedUntilOneEnds) {
    plugin_.on_wait = [this] { service_.take(call("VeloraWait", "[]"), terminal_); };
    const std::vector<std::string> answers = ask(call("VeloraWait", "[]"));
    EXPECT_EQ(answers.size(), ControlService::kNestedCalls + 1U);
    EXPECT_THAT(answers.front(), HasSubstr("Too many operations"));
    plugin_.on_wait = [] {};
    EXPECT_THAT(ask(call("VeloraWait", "[]")), ElementsAre(R"({"result":"waited"})"));
}

TEST_F(ControlServiceTest, TheEndOfTheProgramPassesThroughACall) {
    plugin_.on_wait = [] { throw host::PumpStopped(); };
    EXPECT_THROW(ask(call("VeloraWait", "[]")), host::PumpStopped);
    EXPECT_THAT(terminal_->lines, IsEmpty());
}

// --- the log ------------------------------------------------------------------------------------

TEST_F(ControlServiceTest, TheNewestLinesOfTheLogComeOldestFirst) {
    EXPECT_THAT(ask_log(R"({"do":"log","lines":5})"),
                ElementsAre(R"({"end":{"after":0,"more":false}})"));
    write(3);
    EXPECT_THAT(ask_log(R"({"do":"log","lines":2})"),
                ElementsAre("line 2", "line 3", R"({"end":{"after":3,"more":false}})"));
    EXPECT_EQ(ask_log(R"({"do":"log","lines":9223372036854775807})").size(), 4U);
    EXPECT_THAT(ask(R"({"do":"log","lines":1})").front(),
                R"({"line":{"id":3,"time":"2026-11-24T16:03:03.042","type":"test",)"
                R"("message":"line 3"}})");
}

TEST_F(ControlServiceTest, ALongLogComesInPieces) {
    write(450);
    std::int64_t after = 0;
    std::vector<std::size_t> pieces;
    bool more = true;
    while (more) {
        const auto answers = ask(R"({"do":"log","after":)" + std::to_string(after) + "}");
        const Json end = Json::parse(answers.back()).at("end");
        pieces.push_back(answers.size() - 1);
        after = end.at("after").get<std::int64_t>();
        more = end.at("more").get<bool>();
    }
    EXPECT_THAT(pieces, ElementsAre(200U, 200U, 50U));
}

TEST_F(ControlServiceTest, LongLinesMakeSmallerPieces) {
    write(5, std::string(std::size_t{300} * 1024, 'x'));
    EXPECT_THAT(ask(R"({"do":"log","lines":5})").back(), R"({"end":{"after":2,"more":true}})");
}

TEST_F(ControlServiceTest, AFollowerGetsNewLinesUntilItIsGone) {
    write(2);
    EXPECT_THAT(ask_log(R"({"do":"log","lines":1,"follow":true})"), ElementsAre("line 2"));
    write(1, "new ");
    EXPECT_THAT(terminal_->log(), ElementsAre("new 1"));

    const std::weak_ptr<Terminal> gone = terminal_;
    terminal_->open = false;
    write(1);
    service_.drop_closed();
    terminal_ = std::make_shared<Terminal>();
    EXPECT_TRUE(gone.expired());
    write(1);
}

}  // namespace
}  // namespace app
