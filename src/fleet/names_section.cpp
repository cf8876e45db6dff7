#include "fleet/names_section.h"

#include "automation/strings.h"
#include "core/instance.h"
#include "host/host_interface.h"

namespace fleet {

using automation::replace_all;

std::string restore_brackets(std::string_view text) {
    return replace_all(replace_all(text, "~1", "["), "~2", "]");
}

std::string store_brackets(std::string_view text) {
    return replace_all(replace_all(text, "[", "~1"), "]", "~2");
}

std::string names_section(const core::Instance& instance) {
    return restore_brackets(
        core::without_quotes(instance.hs().GetINISection(kNamesSection, core::kSettingsFile)));
}

}  // namespace fleet
