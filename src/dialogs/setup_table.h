#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/instance.h"
#include "host/dialogs.h"

// What the setup dialog consists of.
namespace dialogs {

// The pages of the tab control.
enum class Page : std::uint8_t {
    General,
    CallerId,
    ImagesAndText,
    ApplianceBehaviour,
    Power,
    Speech,
    Units,
    SlideGroups,
};

inline constexpr std::array<std::string_view, 8> kPageTitles{
    "General", "Caller ID", "Images and text", "Appliance behaviour",
    "Power",   "Speech",    "Units",           "Slide groups",
};

inline constexpr std::size_t kUnitRows = 9;
inline constexpr std::size_t kSlideshowButtons = 4;  // of each unit row: none and three groups

enum class Quotes : std::uint8_t { Without, With };

// The key of the settings file that a control edits; no key for a control that is no setting by
// itself.
struct Setting {
    std::string_view key{};
    std::string_view fallback{};
    Quotes quotes = Quotes::Without;
    std::string_view section = core::kSettingsSection;
};

// A control, or a control array, with all that is fixed about it.
struct ControlRow {
    std::string_view name;
    std::size_t size;  // places; 1 for a control alone
    host::DialogControlKind kind;
    Page page;
    std::string_view caption;
    Setting setting{};
};

// All controls. Those with a key come first, in the order in which they are stored; one control
// stands there twice and is stored twice.
[[nodiscard]] std::span<const ControlRow> control_rows() noexcept;

// The row of a control by its name, without regard to case. Throws: RunTimeError 438.
[[nodiscard]] const ControlRow& control_row(std::string_view name);

// What stands on one place of a control array, or beside it.
[[nodiscard]] std::string caption_of(const ControlRow& row, std::size_t index);

// "Option1" for the first unit's row: the slideshow group of that unit.
[[nodiscard]] std::string slideshow_group_name(std::size_t unit_row);

}  // namespace dialogs
