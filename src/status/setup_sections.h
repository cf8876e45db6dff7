#pragma once

#include "core/instance.h"
#include "status/page_text.h"
#include "status/setup_fields.h"

namespace dialogs {
class Controls;
}

namespace status {

// The setup sections of the status page: every setting of the setup dialog as a field of the page's
// form. A value for the time of one page. A failure is logged under the routine's name and leaves
// the rest of that section out.
class SetupSections {
  public:
    // All outlive it. Requires: the dialog is loaded.
    SetupSections(core::Instance& instance, const dialogs::Controls& controls, PageText& page)
        : instance_(instance), controls_(controls), page_(page) {}

    void AddVeloras();

    void AddDefinitions() { add(kDefinitions, "<br>"); }

    void AddPower() { add(kPower, "<br><br>"); }

    void AddScreen() { add(kScreen, "<br>"); }

    void AddSlideGroup();

    void AddCID() { add(kCallers, "<br>"); }

  private:
    void add(const SetupSection& section, std::string_view opening);
    void add_group(const SetupGroup& group);
    void add_field(const SetupField& field);
    void add_text_row(const SetupField& field);
    void add_choice_row(const SetupField& field);
    void add_check(std::string_view name, std::string_view control, std::size_t index,
                   std::string_view label);

    [[nodiscard]] std::string radio_buttons(std::string_view name, std::string_view control) const;
    void add_unit_row(std::size_t row);
    [[nodiscard]] std::string unit_cell(const UnitField& field, std::size_t row) const;
    [[nodiscard]] std::string numbered_text_field(const UnitField& field, std::size_t row) const;
    void add_slide_rows(std::size_t group);

    core::Instance& instance_;
    const dialogs::Controls& controls_;
    PageText& page_;
    bool has_room_for_check_ = false;  // beside the check box before
};

}  // namespace status
