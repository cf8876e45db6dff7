#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "home/file_replacer.h"
#include "host/settings.h"

namespace home {

class IniLines;

// The settings files of one folder. Owned by the host. A file is read when it is first asked for
// and read anew when somebody else has changed it on disk; a name is found without regard to case.
// Two programs may write the files of one folder: each write holds the folder's lock from the
// reading to the renaming, so that none loses what the other has written.
// A file that is well-formed UTF-8 is read and written so, any other as code page 1252.
class IniFiles : public host::Settings {
  public:
    // Told once for each reading of a file of each line that could not be taken, with file and
    // line ("settings.ini, line 12: no '=' in 'abc'"), and of a file that cannot be read. The text
    // is in code page 1252. May be called from within every operation.
    using ProblemListener = std::function<void(const std::string& text)>;

    IniFiles(std::filesystem::path folder, ProblemListener on_problem,
             std::unique_ptr<FileReplacer> replacer = std::make_unique<FileReplacer>());
    ~IniFiles() override;

    // A file that cannot be read reads as an empty one.
    [[nodiscard]] std::string GetIniSetting(std::string_view section, std::string_view key,
                                            std::string_view fallback,
                                            std::string_view file) override;

    // Does not touch the disk when the key has the value already. Blanks around the value are not
    // kept. Throws also: RunTimeError 5 for a text that would not read back (a line end or NUL, a
    // key that is empty or looks like a comment, a header or an assignment), 52 for a name with a
    // folder, 57 for a file that is there but cannot be read.
    void SaveIniSetting(std::string_view section, std::string_view key, std::string_view value,
                        std::string_view file) override;

    [[nodiscard]] std::string GetINISection(std::string_view section,
                                            std::string_view file) override;

    void SaveINISection(std::string_view section, const host::SettingsEntries& entries,
                        std::string_view file) override;

  private:
    struct File;

    // What a write does to a file's lines.
    using Change = std::function<void(IniLines& lines)>;

    void change(std::string_view file, const Change& change);

    [[nodiscard]] std::filesystem::path path_of(std::string_view file) const;
    std::shared_ptr<const File> current(const std::filesystem::path& path);
    void report_problems(const std::filesystem::path& path, const File& file) const;

    std::filesystem::path folder_;
    ProblemListener on_problem_;
    std::unique_ptr<FileReplacer> replacer_;
    // Shared, since a listener of problems may ask again while a file is being looked at.
    std::map<std::filesystem::path, std::shared_ptr<const File>> files_;
};

}  // namespace home
