#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/controls.h"
#include "dialogs/setup_controls.h"
#include "dialogs/setup_table.h"
#include "dialogs/unit_rows.h"
#include "host/dialogs.h"

namespace core {
class Instance;
}

namespace fleet {
class Fleet;
}

namespace dialogs {

// What the setup dialog works on. All of it outlives the dialog.
struct SetupServices {
    core::Instance& instance;
    const fleet::Fleet& fleet;
    std::function<void()> reload_settings;
    std::function<void(std::string_view command)> jukebox;
};

// The setup dialog: fills its controls from the settings file, and "OK" writes all of them back. It
// is loaded for each use and unloaded by "OK" and "Cancel"; one that is asked to store or change
// something without that loads itself first, so that no setting is ever lost to an empty control.
// Owned by the plug-in instance.
class VeloraSetup final : public Controls, public host::SetupDialog {
  public:
    explicit VeloraSetup(SetupServices services)
        : services_(std::move(services)), unit_rows_(services_.instance) {}

    // --- Controls --------------------------------------------------------------------------------

    [[nodiscard]] bool is_loaded() const override { return is_loaded_; }

    // An error is logged and leaves the dialog unloaded.
    void Load() override;

    [[nodiscard]] std::string Text(const ControlId& id) const override {
        return controls_.Text(id);
    }

    void set_Text(const ControlId& id, std::string_view text) override;

    [[nodiscard]] bool Value(const ControlId& id) const override { return controls_.Value(id); }

    void set_Value(const ControlId& id, bool value) override;
    [[nodiscard]] std::string Caption(const ControlId& id) const override;
    [[nodiscard]] std::size_t count(std::string_view name) const override;

    void OKButton_Click() override { (void)ok(); }

    // --- what a person does ----------------------------------------------------------------------

    // Changes nothing and unloads the dialog.
    void CancelButton_Click();

    void ShowOption(Page page) { page_ = page; }

    void aPlay_Click() { services_.jukebox("play"); }

    void aStop_Click() { services_.jukebox("stop"); }

    // Whether a control takes a new value.
    [[nodiscard]] bool is_enabled(std::string_view name) const;

    // --- host::SetupDialog -----------------------------------------------------------------------

    void open() override;
    [[nodiscard]] std::vector<std::string> labels() const override;
    [[nodiscard]] std::vector<std::string> pages() const override;
    [[nodiscard]] std::string shown_page() const override;
    void show_page(std::string_view page) override;
    [[nodiscard]] std::vector<host::DialogControl> controls() const override;
    void set(std::string_view name, std::size_t index, std::string_view text) override;
    void press(std::string_view button) override;
    bool ok() override;

    void cancel() override { CancelButton_Click(); }

  private:
    void load_settings();
    void load_voices();
    void load_slide_rows();

    void save_settings();
    void save_slide_rows();
    void save(std::string_view key, std::string_view text,
              std::string_view section = core::kSettingsSection);
    void offer_resize_component();
    void make_caller_event();
    void unload();

    [[nodiscard]] host::DialogControl shown_control(const ControlRow& row, std::size_t index) const;

    SetupServices services_;
    SetupControls controls_;
    UnitRows unit_rows_;
    std::vector<std::string> voices_;
    Page page_ = Page::General;
    bool is_loaded_ = false;
};

}  // namespace dialogs
