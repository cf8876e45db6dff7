#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/date.h"
#include "core/instance.h"
#include "status/page_text.h"
#include "status/status_state.h"

namespace devices {
class HostDevices;
}

namespace status {

// One device of the page, its fields as the page sorts by them.
struct DeviceRow {
    std::string DC;
    std::string Location;  // at most 255 characters, as the other texts
    std::string Name;
    automation::DateTime Changed;
    bool Control = false;
    std::string DCSort;  // the letter and two digits, so that numbers sort in order
    std::string Status;  // the start of the device's string
};

// The devices of one page, in the order in which they were added, or sorted. A value.
class DeviceRecordset {
  public:
    void AddNew(DeviceRow row) { rows_.push_back(std::move(row)); }

    // By a field's name and, behind a blank, "DESC" for the way round; rows that are equal keep
    // their order. Texts compare without regard to case. An unknown field sorts by DCSort.
    void Sort(std::string_view order);

    [[nodiscard]] bool empty() const noexcept { return rows_.empty(); }

    [[nodiscard]] auto begin() const noexcept { return rows_.begin(); }

    [[nodiscard]] auto end() const noexcept { return rows_.end(); }

  private:
    std::vector<DeviceRow> rows_;
};

// "Today 4:03:03 PM", "Yesterday ...", and the general form for what is earlier. `today` is
// midnight of today.
[[nodiscard]] std::string FormatChanged(automation::DateTime date, automation::DateTime today);

// The rows of the page's device table: all devices of the units that the settings name, and the
// device of the last caller, with the controls that set them. Part of the status page, for which it
// asks the host anew each time.
class DeviceRows {
  public:
    // Both outlive it.
    DeviceRows(core::Instance& instance, devices::HostDevices& host_devices)
        : instance_(instance), host_devices_(host_devices) {}

    // Throws: RunTimeError of the host.
    void add_rows(PageText& page, const StatusState& state);

    // Adds a device that the host knows.
    void AddDeviceRow(const std::string& sDC, std::string_view sLocation, std::string_view sName,
                      DeviceRecordset& recordset, bool bControl);

    // The choice of a device's commands; "" for a device that the host does not know, and after a
    // failure, which is logged.
    [[nodiscard]] std::string ControlPulldown(const PageText& page, const std::string& sDC);

  private:
    [[nodiscard]] DeviceRecordset all_devices();
    void add_unit(std::string_view location, std::string_view value, DeviceRecordset& recordset);
    [[nodiscard]] bool knows(std::string_view code) const;
    [[nodiscard]] bool is_own(std::string_view code) const;
    [[nodiscard]] std::vector<std::string> choices_of(const std::string& code,
                                                      const std::string& buttons) const;
    void add_code_cells(PageText& page, const std::string& code) const;

    core::Instance& instance_;
    devices::HostDevices& host_devices_;
};

}  // namespace status
