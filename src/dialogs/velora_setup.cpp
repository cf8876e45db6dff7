#include "dialogs/velora_setup.h"

#include <algorithm>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"
#include "callerid/cid_event.h"
#include "core/instance.h"
#include "core/numbered_reports.h"
#include "devices/host_devices.h"
#include "dialogs/stored_text.h"
#include "fleet/fleet.h"
#include "host/desktop.h"
#include "host/host_interface.h"
#include "host/image_resize.h"
#include "host/speech.h"

namespace dialogs {

namespace {

using automation::ErrorNumber;
using automation::RunTimeError;
using Kind = host::DialogControlKind;

constexpr std::string_view kResizeComponent = "SfImageResize.ImageResize";
constexpr std::string_view kResizeQuestion =
    "Images can be rescaled to work with Velora.  sfImageResize is used  to perform this function. "
    " Click Yes to download this component for personal use only.";

bool has_component(host::ImageResizer& resizer) {
    try {
        return resizer.create() != nullptr;
    } catch (const RunTimeError&) {  // how one finds that an optional component is not there
        return false;
    }
}

// The port of the own server counts only with that server chosen.
std::string_view enabling_options(std::string_view name) {
    return automation::equals_ignoring_case(name, "aServerPort") ? "aTCPServerOption" : "";
}

std::string slide_key(std::size_t number, std::string_view name) {
    return std::to_string(number).append(name);
}

}  // namespace

// --- opening ------------------------------------------------------------------------------------

void VeloraSetup::Load() {
    if (is_loaded_) {
        return;
    }
    controls_.clear();
    core::NumberedReports reports(services_.instance.log);
    is_loaded_ = automation::guarded(reports, "Setup ", [&] {
        load_settings();
        unit_rows_.load(controls_);
        load_slide_rows();
        return true;
    });
    if (is_loaded_) {
        // On its own: without speech there are no voices, but all the rest.
        automation::guarded(reports, "Setup ", [&] { load_voices(); });
    } else {
        controls_.clear();
    }
}

void VeloraSetup::load_settings() {
    for (const ControlRow& row : control_rows()) {
        const Setting& setting = row.setting;
        if (!setting.key.empty()) {
            controls_.take_stored_text(row, core::read_setting(services_.instance, setting.section,
                                                               setting.key, setting.fallback));
        }
    }
}

void VeloraSetup::load_voices() {
    voices_ = services_.instance.platform().speech.GetVoices();
}

void VeloraSetup::load_slide_rows() {
    const auto read = [this](const std::string& key) {
        return core::read_setting(services_.instance, core::kSettingsSection, key, "");
    };
    controls_.set_Value({"aGroupSelect", 0}, true);
    for (std::size_t group = 0; group < core::kSlideGroups; ++group) {
        controls_.set_Text({"aServerPathGroup", group}, read(slide_key(group, "ServerPathGroup")));
        controls_.set_Text({"aFolderPathGroup", group}, read(slide_key(group, "FolderPathGroup")));
    }
    for (std::size_t row = 0; row < count("aSlideASP"); ++row) {
        const std::vector<std::string> parts =
            automation::split(read(slide_key(row, "SlideASP")) + ",", ',');
        controls_.set_Text({"aSlideASP", row}, parts[0]);
        controls_.set_Text({"aDwell", row}, parts[1]);
    }
}

// --- "OK" and "Cancel" --------------------------------------------------------------------------

bool VeloraSetup::ok() {
    Load();
    if (!is_loaded_) {
        return false;
    }
    core::NumberedReports reports(services_.instance.log);
    return automation::guarded(reports, "OK Button ", [&] {
        save_settings();
        unit_rows_.save(controls_);
        offer_resize_component();
        save_slide_rows();
        make_caller_event();
        services_.reload_settings();
        unload();
        return true;
    });
}

void VeloraSetup::CancelButton_Click() {
    unload();
}

void VeloraSetup::unload() {
    controls_.clear();
    is_loaded_ = false;
}

void VeloraSetup::save(std::string_view key, std::string_view text, std::string_view section) {
    services_.instance.hs().SaveIniSetting(section, key, text, core::kSettingsFile);
}

void VeloraSetup::save_settings() {
    const host::Protection& protection = services_.instance.platform().protection;
    for (const ControlRow& row : control_rows()) {
        const Setting& setting = row.setting;
        if (setting.key.empty()) {
            continue;
        }
        const std::string text = stored_value(protection, controls_.stored_text(row));
        save(setting.key, setting.quotes == Quotes::With ? "\"" + text + "\"" : text,
             setting.section);
    }
}

void VeloraSetup::save_slide_rows() {
    const host::Protection& protection = services_.instance.platform().protection;
    const auto text = [&](std::string_view name, std::size_t index) {
        return stored_value(protection, controls_.Text({name, index}));
    };
    for (std::size_t group = 0; group < core::kSlideGroups; ++group) {
        for (std::size_t i = 0; i < core::kSlideRows; ++i) {
            const std::size_t row = group * core::kSlideRows + i;
            save(slide_key(row, "SlideASP"), text("aSlideASP", row) + "," + text("aDwell", row));
        }
        save(slide_key(group, "ServerPathGroup"), text("aServerPathGroup", group));
        save(slide_key(group, "FolderPathGroup"), text("aFolderPathGroup", group));
    }
}

// Asks once in the life of a house that needs the component.
void VeloraSetup::offer_resize_component() {
    constexpr std::string_view kAsked = "ResizeQuestion";
    core::Instance& instance = services_.instance;
    if (core::read_setting(instance, core::kSettingsSection, kAsked, "") == "1" ||
        services_.fleet.is_empty() || has_component(instance.platform().image_resizer)) {
        return;
    }
    save(kAsked, "1");
    host::Desktop& desktop = instance.platform().desktop;
    if (desktop.question(kResizeQuestion) == host::Answer::Yes) {
        desktop.download_component(instance.application_path + "\\Scripts\\DownloadAndExecute.vbs",
                                   kResizeComponent);
    }
}

void VeloraSetup::make_caller_event() {
    const std::string group = controls_.Text({"aCIDEventGroup"});
    const std::string line = controls_.Text({"aLineNumber"});
    if (!group.empty() && (line == "1" || line == "2")) {
        callerid::CidEvent(services_.instance)
            .CreateCIDEvent(group, static_cast<std::int16_t>(line == "1" ? 1 : 2));
    }
}

// --- controls -----------------------------------------------------------------------------------

void VeloraSetup::set_Text(const ControlId& id, std::string_view text) {
    Load();
    controls_.set_Text(id, text);
}

void VeloraSetup::set_Value(const ControlId& id, bool value) {
    Load();
    controls_.set_Value(id, value);
}

std::string VeloraSetup::Caption(const ControlId& id) const {
    const ControlRow& row = control_row(id.name);
    SetupControls::check(row, id.index);
    return caption_of(row, id.index);
}

std::size_t VeloraSetup::count(std::string_view name) const {
    return control_row(name).size;
}

bool VeloraSetup::is_enabled(std::string_view name) const {
    const std::string_view options = enabling_options(name);
    return options.empty() || controls_.Value({options, 0});
}

// --- for a program that shows the dialog --------------------------------------------------------

void VeloraSetup::open() {
    unload();
    Load();
}

std::vector<std::string> VeloraSetup::labels() const {
    return {"Version " + std::string(devices::kProgramVersion),
            "Plugin House Code is " + services_.instance.HouseCode};
}

std::vector<std::string> VeloraSetup::pages() const {
    return {kPageTitles.begin(), kPageTitles.end()};
}

std::string VeloraSetup::shown_page() const {
    return std::string(kPageTitles.at(static_cast<std::size_t>(page_)));
}

void VeloraSetup::show_page(std::string_view page) {
    const auto* const title = std::ranges::find_if(kPageTitles, [page](std::string_view known) {
        return automation::equals_ignoring_case(known, page);
    });
    if (title == kPageTitles.end()) {
        throw RunTimeError(ErrorNumber::InvalidProcedureCall,
                           "There is no page '" + std::string(page) + "'; there are " +
                               automation::join(pages(), ", "));
    }
    ShowOption(static_cast<Page>(title - kPageTitles.begin()));
}

std::vector<host::DialogControl> VeloraSetup::controls() const {
    std::vector<host::DialogControl> shown;
    for (std::size_t page = 0; page < kPageTitles.size(); ++page) {
        for (const ControlRow& row : control_rows()) {
            const bool stands_twice = &row != &control_row(row.name);
            for (std::size_t i = 0; i < row.size && !stands_twice; ++i) {
                if (static_cast<std::size_t>(row.page) == page) {
                    shown.push_back(shown_control(row, i));
                }
            }
        }
    }
    return shown;
}

host::DialogControl VeloraSetup::shown_control(const ControlRow& row, std::size_t index) const {
    host::DialogControl control;
    control.kind = row.kind;
    control.page = kPageTitles.at(static_cast<std::size_t>(row.page));
    control.name = row.name;
    control.index = index;
    control.count = row.size;
    control.setting = row.setting.key;
    control.caption = caption_of(row, index);
    control.is_enabled = is_enabled(row.name);
    control.enabled_by = enabling_options(row.name);
    if (control.caption != row.caption) {
        control.group = row.caption;
    }
    if (row.kind == Kind::Check || row.kind == Kind::Option) {
        control.value = controls_.Value({row.name, index});
    } else if (row.kind != Kind::Button) {
        control.text = controls_.Text({row.name, index});
    }
    if (row.name == "aVoiceCB") {
        control.choices = voices_;
    }
    return control;
}

void VeloraSetup::set(std::string_view name, std::size_t index, std::string_view text) {
    const Kind kind = control_row(name).kind;
    if (kind == Kind::Text) {
        set_Text({name, index}, text);
    } else if (const auto value = automation::parse_boolean(text);
               !value && (kind == Kind::Check || kind == Kind::Option)) {
        throw RunTimeError(ErrorNumber::TypeMismatch,
                           "Type mismatch: '" + std::string(text) + "' for " + std::string(name));
    } else {
        set_Value({name, index}, value.value_or(false));  // an error for labels and buttons
    }
}

void VeloraSetup::press(std::string_view button) {
    const ControlRow& row = control_row(button);
    if (row.kind != Kind::Button) {
        throw RunTimeError(ErrorNumber::PropertyOrMethodNotSupported);
    }
    if (row.name == "aPlay") {
        aPlay_Click();
    } else {
        aStop_Click();
    }
}

}  // namespace dialogs
