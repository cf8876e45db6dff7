#include "plugin/setting_kinds.h"

#include <gtest/gtest.h>

#include <optional>

#include "automation/run_time_error.h"

namespace plugin {
namespace {

constexpr std::optional<bool> kError = std::nullopt;

struct TruthRow {
    const char* text;
    std::optional<bool> equals_one, numeric, general, number_is_one, int16_not_zero;
};

const TruthRow kTruths[] = {
    {"1", true, true, true, true, true},           {"0", false, false, false, false, false},
    {"-1", false, true, true, false, true},        {" 1 ", false, true, true, true, true},
    {"1.0", false, true, true, true, true},        {"0.4", false, true, true, false, false},
    {"", false, false, kError, kError, false},     {"True", false, false, true, kError, false},
    {"false", false, false, false, kError, false}, {"yes", false, false, kError, kError, false},
    {"40000", false, true, true, false, kError},
};

std::optional<bool> truth_or_error(TruthForm form, const char* text) {
    try {
        return truth_of(form, text);
    } catch (const automation::RunTimeError&) {
        return kError;
    }
}

TEST(SettingKinds, TruthValuesHaveFiveForms) {
    for (const TruthRow& row : kTruths) {
        EXPECT_EQ(truth_or_error(TruthForm::EqualsOne, row.text), row.equals_one) << row.text;
        EXPECT_EQ(truth_or_error(TruthForm::Numeric, row.text), row.numeric) << row.text;
        EXPECT_EQ(truth_or_error(TruthForm::General, row.text), row.general) << row.text;
        EXPECT_EQ(truth_or_error(TruthForm::NumberIsOne, row.text), row.number_is_one) << row.text;
        EXPECT_EQ(truth_or_error(TruthForm::Int16NotZero, row.text), row.int16_not_zero)
            << row.text;
    }
}

TEST(SettingKinds, NumbersRoundFallBackAndKeepTheirFieldOnOverflow) {
    const SettingKind kind = Int16Kind{&core::UtilitySettings::PushDelay, 5};

    const struct {
        const char* text;
        int wanted;
    } rows[] = {{"7", 7}, {"2.5", 2}, {"3.5", 4}, {"abc", 5}, {"", 5}, {"-3", -3}};

    for (const auto& row : rows) {
        core::UtilitySettings settings;
        take_setting(kind, row.text, settings);
        EXPECT_EQ(settings.PushDelay, row.wanted) << row.text;
    }
    core::UtilitySettings settings;
    settings.PushDelay = 9;
    EXPECT_THROW(take_setting(kind, "32768", settings), automation::RunTimeError);
    EXPECT_EQ(settings.PushDelay, 9);
}

}  // namespace
}  // namespace plugin
