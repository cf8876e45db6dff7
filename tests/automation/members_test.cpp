#include "automation/members.h"

#include <gtest/gtest.h>

#include "automation/thrown_error.h"

namespace automation {
namespace {

class Panel : public TableObject {
  public:
    [[nodiscard]] std::string type_name() const override { return "Panel"; }

    [[nodiscard]] std::span<const Member> members() const override;

    std::string VeloraSpeak(const std::string& which, const std::string& text) {
        return which + ":" + text;
    }

    std::int32_t VeloraVolume(std::int16_t level, std::optional<std::string> which) {
        return which ? level + 1000 : level;
    }

    void next(std::int32_t& counter, Value& seen) {
        ++counter;
        seen = Value("seen");
    }

    [[nodiscard]] std::string title() const noexcept { return title_; }

    void set_title(const std::string& title) { title_ = title; }

    [[nodiscard]] std::string led(std::optional<std::int16_t> index) const {
        return leds_.at(static_cast<std::size_t>(index.value_or(0)));
    }

    void set_led(std::optional<std::int16_t> index, const std::string& colour) {
        leds_.at(static_cast<std::size_t>(index.value_or(0))) = colour;
    }

    std::shared_ptr<Object> itself() { return shared_from_this(); }

  protected:
    [[nodiscard]] std::string_view default_member() const override { return "title"; }

  private:
    std::string title_ = "hall";
    std::array<std::string, 2> leds_;
};

constexpr auto kMembers = std::to_array<Member>({
    method<&Panel::VeloraSpeak>("VeloraSpeak", "whichVeloras, text"),
    method<&Panel::VeloraVolume>("VeloraVolume", "iLevel, [which]"),
    method<&Panel::next>("Next", "counter, seen"),
    property<&Panel::title, &Panel::set_title>("Title"),
    property<&Panel::led, &Panel::set_led>("Led", "[index]"),
    property<&Panel::itself>("Itself"),
});

std::span<const Member> Panel::members() const {
    return kMembers;
}

class Members : public ::testing::Test {
  protected:
    Value call(std::string_view name, std::vector<Value> arguments = {}) {
        return panel->call(name, arguments);
    }

    void let(std::string_view name, std::vector<Value> arguments) {
        panel->invoke(panel->find_member(name).value(), Access::Let, arguments);
    }

    std::string complaint(std::string_view name, std::vector<Value> arguments,
                          Access access = Access::Call) {
        try {
            const MemberId member = panel->find_member(name).value();
            panel->invoke(member, access, arguments);
        } catch (const RunTimeError& error) {
            return std::to_string(error.number()) + " " + error.description();
        }
        return "none";
    }

    std::shared_ptr<Panel> panel = std::make_shared<Panel>();
};

TEST_F(Members, CallConvertsArgumentsAndIgnoresCase) {
    EXPECT_EQ(call("veloraSPEAK", {Value(std::int16_t{3}), Value(true)}), Value("3:True"));
    EXPECT_EQ(to_object(call("Itself")), panel);
    EXPECT_FALSE(panel->find_member("VeloraSpea"));
    EXPECT_FALSE(panel->find_member(""));
}

TEST_F(Members, OptionalArgumentsMayBeLeftOut) {
    EXPECT_EQ(call("VeloraVolume", {"7"}), Value(std::int32_t{7}));
    EXPECT_EQ(call("VeloraVolume", {"7", kMissingArgument}), Value(std::int32_t{7}));
    EXPECT_EQ(call("VeloraVolume", {"7", "hall"}), Value(std::int32_t{1007}));
}

TEST_F(Members, ReferencesAreWrittenBack) {
    std::vector<Value> arguments{Value("41"), Value()};
    EXPECT_TRUE(panel->call("Next", arguments).is_empty());
    EXPECT_EQ(arguments[0], Value(std::int32_t{42}));
    EXPECT_EQ(arguments[1], Value("seen"));
}

TEST_F(Members, PropertiesReadAndWrite) {
    panel->let("title", Value(std::int16_t{5}));
    EXPECT_EQ(call("Title"), Value("5"));
    EXPECT_EQ(panel->invoke(kDefaultMember, Access::Call, {}), Value("5"));
    let("Led", {Value(std::int16_t{1}), "red"});
    let("Led", {"green"});
    EXPECT_EQ(call("Led", {Value(std::int16_t{1})}), Value("red"));
    EXPECT_EQ(call("Led"), Value("green"));
}

TEST_F(Members, ErrorsTellWhatWasWrong) {
    const std::string wrong_count =
        "450 Wrong number of arguments or invalid property assignment: wanted ";
    const std::string speak = wrong_count + "VeloraSpeak(whichVeloras, text)";
    EXPECT_EQ(complaint("VeloraSpeak", {"a"}), speak);
    EXPECT_EQ(complaint("VeloraSpeak", {"a", "b", "c"}), speak);
    EXPECT_EQ(complaint("Title", {}, Access::Let), wrong_count + "Title");
    EXPECT_EQ(complaint("VeloraVolume", {"loud"}), "13 Type mismatch: 'iLevel'");
    EXPECT_EQ(complaint("VeloraVolume", {"70000"}), "6 Overflow: 'iLevel'");
    EXPECT_EQ(complaint("VeloraVolume", {"7", Null{}}), "94 Invalid use of Null: 'which'");
    EXPECT_EQ(complaint("Title", {Null{}}, Access::Let), "94 Invalid use of Null: 'Title'");
    EXPECT_EQ(complaint("Itself", {"a"}, Access::Let),
              "438 Object doesn't support this property or method: 'Itself'");
    EXPECT_EQ(thrown_error([&] { return call("Nothing"); }), 438);
    EXPECT_EQ(thrown_error([&] { return panel->invoke(99, Access::Call, {}); }), 438);
}

TEST_F(Members, NearestNamesFindTheMisspelt) {
    struct Case {
        std::string_view wrong;
        std::string_view nearest;
    };

    for (const Case& row : {Case{"veloraspek", "VeloraSpeak"},
                            {"Speak", "VeloraSpeak"},
                            {"VOLUME", "VeloraVolume"},
                            {"Titel", "Title"},
                            {"nxt", "Next"}}) {
        const auto names = nearest_names(kMembers, row.wrong, 3);
        ASSERT_FALSE(names.empty()) << row.wrong;
        EXPECT_EQ(names.front(), row.nearest) << row.wrong;
    }
    EXPECT_EQ(nearest_names(kMembers, "Velora", 1).size(), 1U);
    EXPECT_TRUE(nearest_names(kMembers, "quite another thing", 3).empty());
    EXPECT_TRUE(nearest_names(kMembers, "", 3).empty());
}

}  // namespace
}  // namespace automation
