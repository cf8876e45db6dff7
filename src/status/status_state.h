#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/instance.h"

namespace status {

// Section of zynVeloraUtilities.ini that belongs to the status page.
inline constexpr std::string_view kStatusSection = "STATUS";

// What the status page keeps from one request to the next. Owned by the plug-in.
struct StatusState {
    // What the page shows: the check boxes and the radio buttons on it. `ShowStatus` is 0 "Dont
    // Show Status", 1 "Show Status" or 2 "Show Status and Config"; nothing reads it.
    bool ShowControl = false;
    bool ShowSetup = false;
    bool ShowReceiveMessages = false;
    bool ShowReceiveDetail = false;
    std::int16_t ShowStatus = 0;

    bool FiltersOnPage = false;  // ShowReceiveMessages as of the last page

    // "DCSORT", "STATUS", "NAME" or "CHANGED" once a page was made; "" or "DESC".
    std::string StatusSortKey;
    std::string StatusSortDirection;
    std::string LastSortKey;  // of the last click

    // What the page shows, from the settings; at start-up.
    void load(const core::Instance& instance);

    // Throws: RunTimeError of the settings file.
    void save(core::Instance& instance) const;

    // Key and direction from the settings. A key that is none leaves that of the last click.
    void load_sorting(const core::Instance& instance);

    // A click on the column of this key: the same one again turns the direction. Saves both.
    // Throws: RunTimeError of the settings file.
    void sort_by(core::Instance& instance, const std::string& key);
};

}  // namespace status
