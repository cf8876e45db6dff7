#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "appliance/velora.h"

namespace fleet {

// One line of the appliance table: what the settings say of a unit, and the unit itself.
struct Appliance {
    std::string VeloraIP;
    std::string VeloraComputer;
    std::string VeloraName;  // lower case, trimmed: the unit's identity
    std::string VeloraDC;    // house code and first device number; empty for a unit without devices
    std::string VeloraPowerDevice;
    std::string VeloraMotionDevice;
    std::int16_t VeloraEnableSlideshow = 0;
    bool VeloraDoCID = false;
    std::string VeloraX10Server;
    bool VeloraActive = false;  // its line was seen in this pass
    std::shared_ptr<appliance::Velora> unit;
};

// Wakes the unit's screen, unless it never sleeps.
void wake_unless_always_awake(appliance::Velora& unit);

// The units of the house in the order of the settings, index 0 first. Owned by the plug-in's entry
// class. Selections are copies that share the units: they stay valid over waits.
class Fleet {
  public:
    using Selection = std::vector<std::shared_ptr<appliance::Velora>>;

    explicit Fleet(const appliance::ApplianceServices& services) : services_(services) { reset(); }

    // One empty element, as before the first load.
    void reset();

    // Reads the section "Velora Names", gives each unit its devices, creates new units, keeps those
    // that are known by name and drops the others. Entries without "=", key, value or name are
    // passed over. Errors are logged.
    void DefineVeloras();

    // Ends every unit.
    void shutdown();

    [[nodiscard]] bool is_empty() const { return table_.front().unit == nullptr; }

    [[nodiscard]] const std::vector<Appliance>& table() const noexcept { return table_; }

    // All units, index 0 first.
    [[nodiscard]] Selection all() const;

    // Units by names or addresses, separated by commas if there is one, else by blanks; all for an
    // empty text. A field that matches nothing is dropped, one that stands twice selects twice.
    [[nodiscard]] Selection GetVeloraObjects(const std::string& whichVeloras);

    // The unit of this name or address, the first for an empty text, else none.
    [[nodiscard]] std::shared_ptr<appliance::Velora> GetOneVeloraObject(const std::string& name);

    // False for a unit whose power switch is off outside a power cycle.
    [[nodiscard]] bool IsReachable(const appliance::Velora& unit) const;

    // Runs `command(unit, tag)` for each selected unit that is reachable, with one tag. Returns the
    // tag, "" when one of them was not reachable.
    using Command = std::function<void(appliance::Velora& unit, const std::string& tag)>;
    std::string command_each(const std::string& whichVeloras, const Command& command);

    // Shows a text as a page on the selected units and wakes them; plays a sound file on them.
    std::string InternalText(const std::string& whichVeloras, const std::string& text);
    std::string InternalWav(const std::string& whichVeloras, const std::string& file);

    // Speaks a text on the selected units from one sound file. Returns a tag, "" when one of them
    // was not reachable.
    std::string InternalSpeak(const std::string& whichVeloras, const std::string& text);

    // ",A1,,B2,": the power switches of the fleet.
    [[nodiscard]] const std::string& PowerDeviceList() const noexcept { return power_device_list_; }

    [[nodiscard]] const std::string& DoCIDNames() const noexcept { return do_cid_names_; }

  private:
    class DeviceNumbers;
    struct NameLine;

    [[nodiscard]] static std::vector<NameLine> lines_of(const std::string& section);
    Appliance& slot_for(const NameLine& line);
    void take_line(const NameLine& line, DeviceNumbers& numbers);
    void settle(Appliance& appliance, DeviceNumbers& numbers);
    void fill(Appliance& appliance, const NameLine& line);
    void allocate_block(Appliance& appliance, const NameLine& line);
    void update_unit(Appliance& appliance);
    void note_power_device(const Appliance& appliance);
    void remove_inactive();
    void build_silent_list();
    void remove_unused_devices(const DeviceNumbers& numbers);

    appliance::ApplianceServices services_;
    std::vector<Appliance> table_;
    std::int16_t velora_high_index_ = 0;
    std::string power_device_list_;
    std::string do_cid_names_;
};

}  // namespace fleet
