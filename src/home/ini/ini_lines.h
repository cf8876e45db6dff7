#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "home/ini/ini_encoding.h"

namespace home {

// A line that could not be taken as it stands.
struct IniProblem {
    std::size_t line = 0;  // from 1
    std::string text;      // "no '=' in 'abc'", code page 1252
};

// The text of a settings file as its lines, so that one key can be written and every other byte of
// the file stays: comments, order, spelling, lines that nobody understands. A value; owned by the
// file that it shows. Sections and keys compare without regard to case.
//
// Of a key that stands twice in a section the first counts. A section header without its bracket
// counts as if it had one, so that the keys below it do not fall to the section above.
class IniLines {
  public:
    explicit IniLines(std::string_view content);

    [[nodiscard]] const std::vector<IniProblem>& problems() const noexcept { return problems_; }

    // The settings alone, in code page 1252: headers and "key=value" lines, each ended by a line
    // feed; neither comments nor lines with a problem.
    [[nodiscard]] std::string settings_text() const;

    // Replaces the value in the key's line; a new key goes behind the last one of its section, a
    // new section to the end. Takes texts of code page 1252.
    void set(std::string_view section, std::string_view key, std::string_view value);

    // Makes these the only entries of a section, where its first one stood; comments stay where
    // they are.
    void replace_section(std::string_view section,
                         const std::vector<std::pair<std::string, std::string>>& entries);

    // The file's new bytes.
    [[nodiscard]] std::string content() const;

  private:
    enum class Kind : std::uint8_t { Other, Section, Entry };

    struct Line {
        Kind kind = Kind::Other;
        std::string bytes;  // as in the file, without the line's end
        std::string end;    // "\n", "\r\n", "\r" or, in the last line, ""
        std::string section;
        std::string key;
        std::string value;
        std::size_t value_start = 0;  // in `bytes`
    };

    // What the lines above tell about the next one.
    struct Context {
        std::string section;
        std::set<std::string> known_keys;  // of all sections, as `key_identity` spells them
    };

    void read_line(Line& line, Context& context);
    void read_header(Line& line, std::string_view text, Context& context);
    void read_entry(Line& line, std::string_view text, Context& context);
    void report(std::string text);
    [[nodiscard]] Line* find_entry(std::string_view section, std::string_view key);
    [[nodiscard]] std::size_t end_of_section(std::string_view section) const;
    [[nodiscard]] std::size_t entries_position(std::string_view section);
    void insert(std::size_t position, std::string_view text);

    IniEncoding encoding_;
    std::string mark_;  // the byte order mark of UTF-8, if the file has one
    std::string line_end_ = "\n";
    std::vector<Line> lines_;
    std::vector<IniProblem> problems_;
};

}  // namespace home
