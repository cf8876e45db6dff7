#include "status/setup_update.h"

#include <string>

#include "automation/guarded.h"
#include "dialogs/controls.h"

namespace status {

using automation::guarded;

void SetupUpdate::take_text(std::string_view name, std::string_view control, std::size_t index) {
    controls_.set_Text({control, index}, form_.text(name));
}

void SetupUpdate::take_check(std::string_view name, std::string_view control, std::size_t index) {
    controls_.set_Value({control, index}, form_.FormChecked(name));
}

// None is chosen after a form that names none of them.
void SetupUpdate::take_choice(std::string_view name, std::string_view control) {
    const std::string chosen = form_.text(name);
    for (std::size_t choice = 0; choice < controls_.count(control); ++choice) {
        controls_.set_Value({control, choice}, chosen == std::to_string(choice));
    }
}

// --- sections of single fields ------------------------------------------------------------------

void SetupUpdate::update(const SetupSection& section) {
    guarded(instance_.log, section.update, [&] {
        for (const SetupGroup& group : section.groups) {
            for (const SetupField& field : group.fields) {
                if (field.is_taken_back) {
                    take(field);
                }
            }
        }
    });
}

void SetupUpdate::take(const SetupField& field) {
    const std::string control = field.control_name();
    switch (field.kind) {
        case FieldKind::Text:
            take_text(field.name, control, 0);
            return;
        case FieldKind::Check:
            take_check(field.name, control, 0);
            return;
        case FieldKind::CheckList:
            for (std::size_t i = 0; i < controls_.count(control); ++i) {
                take_check(numbered(field.name, i), control, i);
            }
            return;
        case FieldKind::Choice:
            take_choice(field.name, control);
            return;
        case FieldKind::Shown:
            return;
    }
}

// --- rows ---------------------------------------------------------------------------------------

void SetupUpdate::take_numbered(const UnitField& field, std::size_t number) {
    const std::string name = numbered(field.name, number + field.first_number);
    if (field.kind == FieldKind::Text) {
        take_text(name, field.control, number);
    } else if (field.kind == FieldKind::Check) {
        take_check(name, field.control, number);
    } else if (field.kind == FieldKind::Choice) {
        take_choice(name, numbered(field.control, number + field.first_number));
    }
}

void SetupUpdate::UpdateVeloras() {
    guarded(instance_.log, "UpdateVeloras", [&] {
        for (std::size_t row = 0; row < controls_.count(kUnitFields.front().control); ++row) {
            for (const UnitField& field : kUnitFields) {
                take_numbered(field, row);
            }
            take_numbered(kX10Server, row);
        }
    });
}

void SetupUpdate::UpdateSlideGroup() {
    guarded(instance_.log, "UpdateSlideGroup", [&] {
        for (std::size_t row = 0; row < core::kSlideGroups * core::kSlideRows; ++row) {
            take_numbered(kSlideFile, row);
            take_numbered(kSlideDwell, row);
        }
        for (std::size_t group = 0; group < core::kSlideGroups; ++group) {
            for (const UnitField& field : kSlideGroupFields) {
                take_numbered(field, group);
            }
        }
    });
}

}  // namespace status
