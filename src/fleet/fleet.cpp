#include "fleet/fleet.h"

#include <algorithm>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "host/host_interface.h"
#include "media/sound_files.h"

// The fleet as callers see it: selections, reach, speech. How it is built stands in
// define_veloras.cpp.
namespace fleet {

namespace {

using automation::guarded;

bool is_called(const Appliance& appliance, const std::string& name) {
    return appliance.unit != nullptr &&
           (appliance.VeloraName == name || appliance.VeloraIP == name);
}

}  // namespace

void wake_unless_always_awake(appliance::Velora& unit) {
    if (unit.Sleep() != "always awake") {
        unit.set_Sleep("awake");
    }
}

void Fleet::reset() {
    table_.assign(1, Appliance{});
    velora_high_index_ = 0;
}

void Fleet::shutdown() {
    if (is_empty()) {
        return;
    }
    for (Appliance& appliance : table_) {
        if (const auto unit = std::exchange(appliance.unit, nullptr)) {
            unit->Shutdown();
        }
    }
}

Fleet::Selection Fleet::all() const {
    Selection units;
    for (const Appliance& appliance : table_) {
        if (appliance.unit != nullptr) {
            units.push_back(appliance.unit);
        }
    }
    return units;
}

Fleet::Selection Fleet::GetVeloraObjects(const std::string& whichVeloras) {
    return guarded(services_.instance.log, "GetVeloraObjects ", [&] {
        Selection units;
        const std::string wanted = automation::to_lower(automation::trim(whichVeloras));
        if (wanted.empty()) {
            units = all();
        } else {
            const char separator = wanted.find(',') != std::string::npos ? ',' : ' ';
            for (const std::string& field : automation::split(wanted, separator)) {
                const std::string name = automation::trim(field);
                const auto found = std::find_if(
                    table_.begin(), table_.end(),
                    [&](const Appliance& appliance) { return is_called(appliance, name); });
                if (found != table_.end()) {
                    units.push_back(found->unit);
                }
            }
        }
        services_.instance.log.debug([&] {
            return "GetVeloraObjects " + whichVeloras + ", count=" + std::to_string(units.size());
        });
        return units;
    });
}

std::shared_ptr<appliance::Velora> Fleet::GetOneVeloraObject(const std::string& name) {
    return guarded(services_.instance.log, "GetOneVeloraObject ", [&] {
        const std::string wanted = automation::to_lower(automation::trim(name));
        if (wanted.empty()) {
            return table_.front().unit;
        }
        const auto found =
            std::find_if(table_.begin(), table_.end(),
                         [&](const Appliance& appliance) { return is_called(appliance, wanted); });
        return found == table_.end() ? nullptr : found->unit;
    });
}

bool Fleet::IsReachable(const appliance::Velora& unit) const {
    return unit.PowerCycleInProgress() || unit.PowerDevice().empty() ||
           services_.instance.hs().isOn(unit.PowerDevice());
}

std::string Fleet::command_each(const std::string& whichVeloras, const Command& command) {
    std::string tag = core::MakeTag(services_.instance);
    bool all_reached = true;
    for (const auto& unit : GetVeloraObjects(whichVeloras)) {
        if (IsReachable(*unit)) {
            command(*unit, tag);
        } else {
            all_reached = false;
        }
    }
    return all_reached ? tag : std::string();
}

std::string Fleet::InternalText(const std::string& whichVeloras, const std::string& text) {
    return command_each(whichVeloras, [&](appliance::Velora& unit, const std::string& tag) {
        unit.PushTextMessage(text, tag);
        wake_unless_always_awake(unit);
    });
}

std::string Fleet::InternalWav(const std::string& whichVeloras, const std::string& file) {
    return command_each(whichVeloras, [&](appliance::Velora& unit, const std::string& tag) {
        unit.Wav(file, tag);
    });
}

std::string Fleet::InternalSpeak(const std::string& whichVeloras, const std::string& text) {
    return guarded(services_.instance.log, "InternalSpeak ", [&] {
        const std::string file = services_.sound_files.next_shared_name();
        services_.sound_files.TextToWavFile(text, file);
        return InternalWav(whichVeloras, file);
    });
}

}  // namespace fleet
