#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace home {

// The settings of one file, to be asked by section and key without regard to case. Owned by the
// file that it shows; texts are in code page 1252, quotes are kept as they are written.
class IniDocument {
  public:
    using Entry = std::pair<std::string, std::string>;

    // Takes headers and "key=value" lines, each ended by a line feed.
    // Throws: RunTimeError 7 when there is no room for them.
    explicit IniDocument(std::string_view settings_text);

    IniDocument(IniDocument&&) noexcept;
    IniDocument& operator=(IniDocument&&) noexcept;
    ~IniDocument();

    // Absent when section or key is not there.
    [[nodiscard]] std::optional<std::string> value(std::string_view section,
                                                   std::string_view key) const;

    // In the order of the file; empty for a section that is not there.
    [[nodiscard]] std::vector<Entry> entries(std::string_view section) const;

  private:
    struct Settings;
    std::unique_ptr<Settings> settings_;
};

}  // namespace home
