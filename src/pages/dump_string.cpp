#include "pages/dump_string.h"

#include <string>

#include "automation/guarded.h"
#include "core/instance.h"
#include "host/files.h"

namespace pages {

void DumpStringToFile(core::Instance& instance, std::string_view name, std::string_view text) {
    automation::guarded(instance.log, "DumpStringToFile: ", [&] {
        const std::string file = core::html_root(instance) + "\\" + std::string(name) + ".html";
        instance.platform().files.open_for_appending(file)->Write(text);
    });
}

}  // namespace pages
