#include "dialogs/setup_controls.h"

#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"

namespace dialogs {

using automation::RunTimeError;

SetupControls::SetupControls() {
    clear();
}

void SetupControls::clear() {
    cells_.clear();
    for (const ControlRow& row : control_rows()) {
        cells_.emplace_back(row.size);
    }
}

void SetupControls::check(const ControlRow& row, std::size_t index) {
    constexpr std::int32_t kNoSuchElement = 340;
    if (index >= row.size) {
        throw RunTimeError(kNoSuchElement, "Control array element '" + std::to_string(index) +
                                               "' of " + std::string(row.name) + " doesn't exist");
    }
}

SetupControls::Place SetupControls::place(const ControlId& id, Kind kind, Kind other_kind) {
    const ControlRow& row = control_row(id.name);
    if (row.kind != kind && row.kind != other_kind) {
        throw RunTimeError(automation::ErrorNumber::PropertyOrMethodNotSupported);
    }
    check(row, id.index);
    return {static_cast<std::size_t>(&row - control_rows().data()), id.index};
}

const std::string& SetupControls::Text(const ControlId& id) const {
    return cell(place(id, Kind::Text, Kind::Label)).text;
}

void SetupControls::set_Text(const ControlId& id, std::string_view text) {
    cell(place(id, Kind::Text, Kind::Label)).text = text;
}

bool SetupControls::Value(const ControlId& id) const {
    return cell(place(id, Kind::Check, Kind::Option)).value;
}

void SetupControls::set_Value(const ControlId& id, bool value) {
    const Place changed = place(id, Kind::Check, Kind::Option);
    if (value && control_row(id.name).kind == Kind::Option) {
        choose_none(id.name);
    }
    cell(changed).value = value;
}

std::size_t SetupControls::chosen(std::string_view group) const {
    const std::size_t size = control_row(group).size;
    for (std::size_t index = 0; index < size; ++index) {
        if (Value({group, index})) {
            return index;
        }
    }
    return size;
}

void SetupControls::choose_none(std::string_view group) {
    for (std::size_t index = 0; index < control_row(group).size; ++index) {
        set_Value({group, index}, false);
    }
}

std::string SetupControls::stored_text(const ControlRow& row) const {
    if (row.kind == Kind::Text) {
        return Text({row.name});
    }
    if (row.kind == Kind::Option) {
        const std::size_t button = chosen(row.name);
        return std::to_string(button == row.size ? 0 : button);
    }
    std::vector<std::string> values;
    for (std::size_t index = 0; index < row.size; ++index) {
        values.emplace_back(Value({row.name, index}) ? "1" : "0");
    }
    return automation::join(values, ",");
}

void SetupControls::take_stored_text(const ControlRow& row, const std::string& text) {
    if (row.kind == Kind::Text) {
        set_Text({row.name}, text);
    } else if (row.kind == Kind::Option) {
        // As the settings load reads it: all but "1" is the first button.
        set_Value({row.name, text == "1" ? std::size_t{1} : 0}, true);
    } else {
        const std::vector<std::string> values =
            row.size == 1 ? std::vector{text} : automation::split(text, ',');
        for (std::size_t index = 0; index < row.size; ++index) {
            set_Value({row.name, index}, index < values.size() && is_tick(values[index]));
        }
    }
}

bool is_tick(std::string_view text) {
    return automation::parse_boolean(text).value_or(false);
}

}  // namespace dialogs
