#include "status/setup_sections.h"

#include <string>

#include "automation/guarded.h"
#include "dialogs/controls.h"

namespace status {

namespace {

using automation::guarded;

constexpr std::string_view kCentre = "Center";
constexpr std::string_view kBlank = "&nbsp;";

}  // namespace

// --- sections of single fields, in two columns --------------------------------------------------

void SetupSections::add(const SetupSection& section, std::string_view opening) {
    guarded(instance_.log, section.add, [&] {
        page_.begin_table(opening);
        page_.begin_heading();
        page_.cell(section.title, {kCentre, "2"});
        for (const SetupGroup& group : section.groups) {
            add_group(group);
        }
        page_.end_table();
    });
}

void SetupSections::add_group(const SetupGroup& group) {
    page_.begin_heading();
    page_.cell(group.title, {kCentre, "2"});
    has_room_for_check_ = false;
    for (const SetupField& field : group.fields) {
        add_field(field);
    }
    if (has_room_for_check_) {
        page_.row_cell(kBlank);
    }
}

void SetupSections::add_field(const SetupField& field) {
    switch (field.kind) {
        case FieldKind::Check:
            add_check(field.name, field.control_name(), 0, field.label);
            return;
        case FieldKind::CheckList:
            for (std::size_t i = 0; i < controls_.count(field.control); ++i) {
                add_check(numbered(field.name, i), field.control, i, field.label);
            }
            return;
        case FieldKind::Choice:
            add_choice_row(field);
            return;
        case FieldKind::Text:
        case FieldKind::Shown:
            add_text_row(field);
            return;
    }
}

// Two check boxes share a row.
void SetupSections::add_check(std::string_view name, std::string_view control, std::size_t index,
                              std::string_view label) {
    if (!has_room_for_check_) {
        page_.begin_row();
    }
    has_room_for_check_ = !has_room_for_check_;
    const dialogs::ControlId id{control, index};
    const std::string caption = label.empty() ? controls_.Caption(id) : std::string(label);
    page_.row_cell(page_.check_box(name, controls_.Value(id), page_.value(caption)));
}

void SetupSections::add_text_row(const SetupField& field) {
    if (has_room_for_check_) {
        page_.row_cell(kBlank);
        has_room_for_check_ = false;
    }
    page_.begin_row();
    const std::string control = field.control_name();
    std::string html = page_.text_field(field.name, controls_.Text({control}), field.size);
    if (!field.words.empty()) {
        html.append(kBlank).append(field.words);
    }
    if (field.label.empty()) {
        page_.row_cell(html, "Left", "2");
        return;
    }
    page_.row_cell(field.label);
    page_.row_cell(html);
}

void SetupSections::add_choice_row(const SetupField& field) {
    page_.begin_row();
    page_.row_cell(radio_buttons(field.name, field.control_name()), "Left", "2");
}

// One for each option button of a group.
std::string SetupSections::radio_buttons(std::string_view name, std::string_view control) const {
    std::string html;
    for (std::size_t i = 0; i < controls_.count(control); ++i) {
        const dialogs::ControlId id{control, i};
        html += page_.radio_button(name, std::to_string(i), controls_.Value(id),
                                   page_.value(controls_.Caption(id)));
        html += kBlank;
    }
    return html;
}

// --- units --------------------------------------------------------------------------------------

void SetupSections::AddVeloras() {
    guarded(instance_.log, "AddVeloras", [&] {
        page_.begin_table();
        page_.begin_heading();
        page_.cell("Velora Units Setup", {kCentre, "7"});
        page_.begin_heading();
        for (const UnitField& field : kUnitFields) {
            page_.cell(field.heading, {kCentre, "1"});
        }
        for (std::size_t row = 0; row < controls_.count(kUnitFields.front().control); ++row) {
            add_unit_row(row);
        }
        page_.end_table();
    });
}

void SetupSections::add_unit_row(std::size_t row) {
    page_.begin_row();
    for (const UnitField& field : kUnitFields) {
        page_.row_cell(unit_cell(field, row));
    }
    const bool has_unit = !controls_.Text({kUnitFields.front().control, row}).empty();
    if (instance_.XapHosted && has_unit) {
        page_.begin_heading();  // of the same colour
        page_.row_cell(kX10Server.heading, "Right", "4");
        page_.row_cell(numbered_text_field(kX10Server, row), "Left", "3");
    }
}

std::string SetupSections::numbered_text_field(const UnitField& field, std::size_t row) const {
    return page_.text_field(numbered(field.name, row), controls_.Text({field.control, row}),
                            field.size);
}

std::string SetupSections::unit_cell(const UnitField& field, std::size_t row) const {
    if (field.kind == FieldKind::Shown) {
        return page_.value(controls_.Text({field.control, row}));
    }
    if (field.kind == FieldKind::Check) {
        const dialogs::ControlId id{field.control, row};
        return page_.check_box(numbered(field.name, row), controls_.Value(id),
                               page_.value(controls_.Caption(id)));
    }
    if (field.kind != FieldKind::Choice) {
        return numbered_text_field(field, row);
    }
    return radio_buttons(numbered(field.name, row + field.first_number),
                         numbered(field.control, row + field.first_number));
}

// --- slide groups -------------------------------------------------------------------------------

void SetupSections::AddSlideGroup() {
    guarded(instance_.log, "AddSlideGroup", [&] {
        page_.begin_table();
        page_.begin_heading();
        page_.cell("Slide Group", {kCentre, "3"});
        for (std::size_t group = 0; group < core::kSlideGroups; ++group) {
            add_slide_rows(group);
        }
        page_.end_table();
    });
}

void SetupSections::add_slide_rows(std::size_t group) {
    page_.begin_heading();
    page_.cell(numbered("Group ", group + 1) + " FilePath", {kCentre, "2"});
    page_.cell(kSlideDwell.heading, {kCentre, "1"});
    for (std::size_t row = group * core::kSlideRows; row < (group + 1) * core::kSlideRows; ++row) {
        page_.begin_heading();
        page_.set_row_class(row % 2 == 0 ? kEvenRow : kOddRow);
        page_.row_cell(numbered_text_field(kSlideFile, row), "Left", "2");
        page_.row_cell(numbered_text_field(kSlideDwell, row));
    }
    for (const UnitField& field : kSlideGroupFields) {
        page_.begin_row();
        page_.row_cell(field.heading);
        page_.row_cell(numbered_text_field(field, group), "Left", "2");
    }
}

}  // namespace status
