#include "app/setup_fields.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "automation/code_page.h"

namespace app {
namespace {

std::string text_of(const Json& control, const char* member) {
    return automation::utf8_to_code_page(control.at(member).get<std::string>());
}

FieldKind kind_of(const std::string& word) {
    if (word == "check") {
        return FieldKind::Check;
    }
    if (word == "option") {
        return FieldKind::Choice;
    }
    if (word == "label") {
        return FieldKind::Label;
    }
    return word == "button" ? FieldKind::Button : FieldKind::Text;
}

SetupField field_of(const Json& control) {
    SetupField field;
    field.kind = kind_of(control.at("kind").get<std::string>());
    field.page = text_of(control, "page");
    field.name = text_of(control, "name");
    field.index = control.at("index").get<std::size_t>();
    field.count = control.at("count").get<std::size_t>();
    field.caption = text_of(control, "caption");
    field.text = text_of(control, "text");
    field.value = control.at("value").get<bool>();
    field.enabled_by = text_of(control, "enabled_by");
    return field;
}

// A text box with texts to choose from; what stands there now is one of them.
void offer_choices(SetupField& field, const Json& choices) {
    for (const Json& choice : choices) {
        field.choices.push_back(automation::utf8_to_code_page(choice.get<std::string>()));
    }
    if (field.choices.empty()) {
        return;
    }
    auto present = std::ranges::find(field.choices, field.text);
    if (present == field.choices.end()) {
        present = field.choices.insert(field.choices.begin(), field.text);
    }
    field.kind = FieldKind::Choice;
    field.chosen = static_cast<std::size_t>(present - field.choices.begin());
}

bool is_same_group(const SetupField& group, const SetupField& button) {
    return group.is_group && group.name == button.name && button.index > 0;
}

void add_option_button(std::vector<SetupField>& fields, SetupField button,
                       const std::string& group_caption) {
    if (fields.empty() || !is_same_group(fields.back(), button)) {
        SetupField group = button;
        group.is_group = true;
        group.chosen = group.count;
        group.index = 0;
        if (!group_caption.empty()) {
            group.caption = group_caption;
        }
        fields.push_back(std::move(group));
    }
    SetupField& group = fields.back();
    if (button.value) {
        group.chosen = group.choices.size();
    }
    group.choices.push_back(std::move(button.caption));
}

std::string shown_choices(const SetupField& field) {
    std::string text;
    for (std::size_t i = 0; i < field.choices.size(); ++i) {
        text += (i == field.chosen ? "(*) " : "( ) ") + field.choices[i] + "  ";
    }
    return text.substr(0, text.size() - std::min<std::size_t>(text.size(), 2));
}

}  // namespace

std::string SetupField::shown() const {
    switch (kind) {
        case FieldKind::Check:
            return (value ? "[x] " : "[ ] ") + caption;
        case FieldKind::Button:
            return "[ " + caption + " ]";
        case FieldKind::Choice:
            if (is_group) {
                return shown_choices(*this);
            }
            return "< " + choices.at(chosen) + " >";
        case FieldKind::Text:
        case FieldKind::Label:
            break;
    }
    return text;
}

std::string SetupField::set_text() const {
    if (kind == FieldKind::Check) {
        return value ? "1" : "0";
    }
    if (kind == FieldKind::Choice) {
        return is_group ? "1" : choices.at(chosen);
    }
    return text;
}

std::vector<SetupField> setup_fields(const Json& setup) {
    std::vector<SetupField> fields;
    for (const Json& control : setup.at("controls")) {
        SetupField field = field_of(control);
        if (field.kind == FieldKind::Choice) {
            add_option_button(fields, std::move(field), text_of(control, "group"));
            continue;
        }
        if (field.kind == FieldKind::Text) {
            offer_choices(field, control.at("choices"));
        }
        fields.push_back(std::move(field));
    }
    return fields;
}

Json changes_between(const std::vector<SetupField>& before, const std::vector<SetupField>& now) {
    Json changes = Json::array();
    for (std::size_t i = 0; i < now.size(); ++i) {
        const SetupField& field = now[i];
        const bool is_same =
            field.set_index() == before[i].set_index() && field.set_text() == before[i].set_text();
        if (!is_same) {
            changes.push_back({{"name", automation::code_page_to_utf8(field.name)},
                               {"index", field.set_index()},
                               {"text", automation::code_page_to_utf8(field.set_text())}});
        }
    }
    return changes;
}

}  // namespace app
