#include "pages/include_walk.h"

#include <algorithm>
#include <optional>
#include <string>

#include "automation/run_time_error.h"
#include "core/instance.h"
#include "fuzz/expect.h"
#include "support/fake_platform.h"

// Any bytes as a script with includes, and as four script files, divided by a zero, that include
// one another.
namespace {

constexpr std::size_t kMostFiles = 4;

std::optional<std::string> walked(std::string_view text, pages::BrokenInclude broken) {
    try {
        return pages::without_includes(std::string(text), broken, [](std::string_view) {});
    } catch (const automation::RunTimeError&) {
        return std::nullopt;
    }
}

void read_files(std::string_view text) {
    support::FakeMachine machine;
    machine.protection = host::Protection::hardened();
    core::Instance instance(machine.platform());
    instance.application_path = "C:\\House";
    for (std::size_t file = 0; file < kMostFiles && !text.empty(); ++file) {
        const std::size_t end = std::min(text.find('\0'), text.size());
        machine.files.put("C:\\House\\Scripts\\" + std::to_string(file), text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    std::size_t bytes = 0;
    pages::read_script(instance, "Fuzz ", "0", [&bytes](const std::string& code, std::string_view) {
        bytes += code.size();
    });
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::as_text(data, size);
    const std::optional<std::string> rest = walked(text, pages::BrokenInclude::IsAnError);
    if (rest) {
        fuzz::expect(rest->size() <= size, "includes are cut out");
        fuzz::expect(rest == walked(text, pages::BrokenInclude::SearchesForEver),
                     "the protection changes nothing where the search ends");
    }
    read_files(text);
    return 0;
}
