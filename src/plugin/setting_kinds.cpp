#include "plugin/setting_kinds.h"

#include "automation/convert.h"
#include "automation/value.h"

namespace plugin {

namespace {

struct Taker {
    const std::string& text;
    core::UtilitySettings& settings;

    void operator()(const TextKind& kind) const { settings.*kind.field = text; }

    void operator()(const Int16Kind& kind) const {
        const auto number = automation::parse_number(text);
        settings.*kind.field = number ? automation::checked_int16(*number) : kind.fallback;
    }

    void operator()(const Int32Kind& kind) const {
        const auto number = automation::parse_number(text);
        settings.*kind.field = number ? automation::checked_int32(*number) : kind.fallback;
    }

    void operator()(const TruthKind& kind) const {
        settings.*kind.field = truth_of(kind.form, text);
    }
};

}  // namespace

bool truth_of(TruthForm form, const std::string& text) {
    const auto number = automation::parse_number(text);
    switch (form) {
        case TruthForm::EqualsOne:
            return text == "1";
        case TruthForm::Numeric:
            return number.value_or(0) != 0;
        case TruthForm::General:
            return automation::to_boolean(automation::Value(text));
        case TruthForm::NumberIsOne:
            return automation::to_double(automation::Value(text)) == 1;
        case TruthForm::Int16NotZero:
            return automation::checked_int16(number.value_or(0)) != 0;
    }
    return false;
}

void take_setting(const SettingKind& kind, const std::string& text,
                  core::UtilitySettings& settings) {
    std::visit(Taker{text, settings}, kind);
}

}  // namespace plugin
