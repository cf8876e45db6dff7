#include "home/ini/ini_lines.h"

#include "fuzz/expect.h"
#include "home/ini/ini_document.h"

// Any bytes as a settings file: read, and written with one more key.
namespace {

std::optional<std::string> value_in(const home::IniLines& lines, const char* section,
                                    const char* key) {
    return home::IniDocument(lines.settings_text()).value(section, key);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::as_text(data, size);
    home::IniLines lines(bytes);
    fuzz::expect(lines.content() == bytes, "a file that is not changed keeps its bytes");
    for (const home::IniProblem& problem : lines.problems()) {
        fuzz::expect(problem.line >= 1 && problem.line <= size, "a problem has a line of the file");
    }
    for (const char* section : {"Settings", "a"}) {
        lines.set(section, "key", "\"one\" = 2;3");
        const std::string content = lines.content();
        fuzz::expect(value_in(home::IniLines(content), section, "KEY") == "\"one\" = 2;3",
                     "a value that was set is read again");
        lines.set(section, "key", "");
        fuzz::expect(value_in(lines, section, "key") == "", "a value can be emptied");
    }
    return 0;
}
