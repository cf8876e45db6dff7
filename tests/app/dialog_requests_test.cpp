#include <gmock/gmock.h>

#include "app/service_house.h"
#include "host/dialogs.h"

namespace app {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Dialogs that remember what is done to them.
class FakeSetup final : public host::SetupDialog {
  public:
    void open() override { calls.emplace_back("open"); }

    [[nodiscard]] std::vector<std::string> labels() const override { return {"caf\xE9"}; }

    [[nodiscard]] std::vector<std::string> pages() const override { return {"Power"}; }

    [[nodiscard]] std::string shown_page() const override { return "Power"; }

    void show_page(std::string_view page) override { calls.push_back("page " + std::string(page)); }

    [[nodiscard]] std::vector<host::DialogControl> controls() const override {
        host::DialogControl control;
        control.kind = host::DialogControlKind::Option;
        control.name = "aServer";
        control.index = 1;
        control.value = true;
        return {control};
    }

    void set(std::string_view name, std::size_t index, std::string_view text) override {
        if (name == "aNothing") {
            throw automation::RunTimeError(438, "There is no control 'aNothing'");
        }
        calls.push_back("set " + std::string(name) + "(" + std::to_string(index) +
                        ")=" + std::string(text));
    }

    void press(std::string_view button) override {
        calls.push_back("press " + std::string(button));
    }

    bool ok() override {
        calls.emplace_back("ok");
        return stores;
    }

    void cancel() override { calls.emplace_back("cancel"); }

    std::vector<std::string> calls;
    bool stores = true;
};

class FakeServer final : public host::ServerDialog {
  public:
    void open() override { opened = true; }

    [[nodiscard]] bool is_open() const override { return opened; }

    [[nodiscard]] std::string status_box() const override { return pressed; }

    [[nodiscard]] bool debug_box() const override { return debug; }

    void set_debug_box(bool value) override { debug = value; }

    [[nodiscard]] std::vector<std::string> buttons() const override { return {"cmdArray(0)"}; }

    void press(std::string_view button) override { pressed = button; }

    bool opened = false;
    bool debug = false;
    std::string pressed;
};

class DialogRequestsTest : public ServiceHouse {
  protected:
    void give_dialogs() {
        plugin_.setup = &setup_;
        plugin_.server = &server_;
    }

    FakeSetup setup_;
    FakeServer server_;
};

TEST_F(DialogRequestsTest, APluginWithoutDialogsSaysSo) {
    for (const char* request : {R"({"do":"setup"})", R"({"do":"setup_ok"})",
                                R"({"do":"setup_cancel"})", R"({"do":"server_open"})"}) {
        EXPECT_THAT(ask(request), ElementsAre(error_line(438, "The plug-in has no dialogs here")));
    }
}

TEST_F(DialogRequestsTest, SetupIsOpenedChangedAndClosed) {
    give_dialogs();
    EXPECT_THAT(ask(R"({"do":"setup","page":"Power"})"),
                ElementsAre(AllOf(HasSubstr("\"labels\":[\"caf\u00e9\"]"),
                                  HasSubstr(R"("name":"aServer","index":1,"count":1,)"
                                            R"("kind":"option")"))));
    EXPECT_THAT(ask(R"({"do":"setup_set","name":"aIP","index":2,"text":"caf\u00e9"})"),
                ElementsAre(R"({"done":"set"})"));
    EXPECT_THAT(ask(R"({"do":"setup_press","button":"aPlay"})"),
                ElementsAre(R"({"done":"aPlay"})"));
    EXPECT_THAT(ask(R"({"do":"setup_cancel"})"), ElementsAre(R"({"done":"cancelled"})"));
    EXPECT_THAT(setup_.calls,
                ElementsAre("page Power", "open", "set aIP(2)=caf\xE9", "press aPlay", "cancel"));
}

TEST_F(DialogRequestsTest, OkSetsFirstAndStoresOnlyWhatCouldAllBeSet) {
    give_dialogs();
    EXPECT_THAT(ask(R"({"do":"setup_ok","controls":[{"name":"a","text":"1"}]})"),
                ElementsAre(R"({"done":"saved"})"));
    EXPECT_THAT(setup_.calls, ElementsAre("set a(0)=1", "ok"));
    setup_.calls.clear();
    for (const char* controls : {R"([{"name":"aNothing","text":"1"}])", R"([{"name":"a"}])",
                                 R"([{"name":"a","index":-1,"text":"1"}])", R"(["a"])", R"("a")"}) {
        EXPECT_THAT(ask(std::string(R"({"do":"setup_ok","controls":)") + controls + "}"),
                    ElementsAre(HasSubstr("error")))
            << controls;
    }
    EXPECT_THAT(setup_.calls, IsEmpty());
    setup_.stores = false;
    EXPECT_THAT(ask(R"({"do":"setup_ok"})"),
                ElementsAre(error_line(57, "Not all settings could be stored; the log tells why")));
}

TEST_F(DialogRequestsTest, TheServerDialogIsOpenedSwitchedAndPressed) {
    give_dialogs();
    EXPECT_THAT(ask(R"({"do":"server_open"})"),
                ElementsAre(HasSubstr(R"({"open":true,"box":"","debug":false,"buttons":[)")));
    EXPECT_THAT(ask(R"({"do":"server_debug","value":true})"),
                ElementsAre(HasSubstr(R"("debug":true)")));
    EXPECT_THAT(ask(R"({"do":"server_debug","value":1})"), ElementsAre(HasSubstr("error")));
    EXPECT_THAT(ask(R"({"do":"server_press","button":"x"})"),
                ElementsAre(HasSubstr(R"("box":"x")")));
}

}  // namespace
}  // namespace app
