#include "core/instance.h"

#include <gtest/gtest.h>

#include "automation/run_time_error.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"

namespace core {
namespace {

TEST(Instance, HasNoHostBeforeTheHostHandsItselfOver) {
    support::FakeMachine machine;
    Instance instance(machine.platform());
    const auto number_of = [](const auto& call) {
        try {
            call();
        } catch (const automation::RunTimeError& error) {
            return error.number();
        }
        return 0;
    };
    EXPECT_EQ(number_of([&] { static_cast<void>(instance.hs()); }), 91);
    EXPECT_EQ(number_of([&] { static_cast<void>(instance.callback()); }), 91);

    support::MemoryHost host;
    instance.attach(host, &host);
    EXPECT_EQ(&instance.hs(), &host);
}

TEST(Settings, LoseEveryQuote) {
    support::FakeMachine machine;
    support::MemoryHost host;
    Instance instance(machine.platform());
    instance.attach(host, &host);

    const struct {
        const char* stored;
        const char* read;
    } rows[] = {{"plain", "plain"}, {"\"quoted\"", "quoted"}, {"in\"ner", "inner"}, {"\"\"", ""}};

    for (const auto& row : rows) {
        host.put_setting("velora utilities", "KEY", row.stored);
        EXPECT_EQ(read_setting(instance, kSettingsSection, "Key", "fallback"), row.read);
    }
    EXPECT_EQ(read_setting(instance, kSettingsSection, "missing", "\"fallback\""), "fallback");
}

TEST(Tags, AreOnePlusARandomSingle) {
    support::FakeMachine machine;
    Instance instance(machine.platform());
    machine.random.push(0.705547F);
    machine.random.push(0.5F);
    machine.random.push(0.0F);
    EXPECT_EQ(MakeTag(instance), "1.705547");
    EXPECT_EQ(MakeTag(instance), "1.5");
    EXPECT_EQ(MakeTag(instance), "1");
}

TEST(UnitPort, IsThatOfTheServerInUse) {
    UtilitySettings settings;
    settings.ServerPort = "8080";
    settings.HomeseerPort = "81";
    EXPECT_EQ(settings.unit_port(), "81");
    settings.UseOwnServer = true;
    EXPECT_EQ(settings.unit_port(), "8080");
}

}  // namespace
}  // namespace core
