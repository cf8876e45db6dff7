#include "home/asp/asp_source.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/strings.h"
#include "home/asp/asp_failure.h"
#include "home/asp/asp_marks.h"

namespace home {
namespace {

constexpr std::size_t kDeepest = 16;  // includes within includes
constexpr std::size_t kMostBytes = std::size_t{4} * 1024 * 1024;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLanguage = "vbscript";

bool is_blank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

// The script engine counts each of the three line ends as one.
std::string with_line_feeds(std::string_view code) {
    return automation::replace_all(automation::replace_all(code, "\r\n", "\n"), "\r", "\n");
}

// Nothing may stand between the two, but people begin a new line there.
bool awaits_case(std::string_view code) {
    const std::size_t end = code.find_last_not_of(" \t\n");
    const std::string_view whole = code.substr(0, end == std::string_view::npos ? 0 : end + 1);
    const std::size_t line_end = whole.rfind('\n');
    const std::string line = automation::to_lower(
        automation::trim(line_end == std::string_view::npos ? whole : whole.substr(line_end + 1)));
    return line.starts_with("select case ");
}

class AspReader {
  public:
    explicit AspReader(const SiteFiles& files) : files_(files) {}

    AspSource read(const WebPath& page) {
        const auto entry = files_.find(page);
        source_.files.push_back(text_of(page));
        if (!entry || entry->is_folder) {
            fail(0, "the page is not there");
        }
        add_file(page, *entry);
        return std::move(source_);
    }

  private:
    [[noreturn]] void fail(std::int32_t line, const std::string& description) const {
        AspFailure failure;
        failure.file = source_.files.at(file_);
        failure.line = line;
        failure.description = description;
        throw failure;
    }

    void add_file(const WebPath& path, const SiteEntry& entry) {
        std::string text = SiteFiles::read(entry);
        read_bytes_ += text.size();
        if (read_bytes_ > kMostBytes) {
            fail(0, "the page with its includes is larger than 4 MB");
        }
        if (text.starts_with(kUtf8Mark)) {
            text = automation::utf8_to_code_page(std::string_view(text).substr(kUtf8Mark.size()));
        }
        open_.push_back(entry.path);
        add_text(path, text);
        open_.pop_back();
    }

    void add_text(const WebPath& path, std::string_view text) {
        std::int32_t line = 1;
        std::size_t at = 0;
        while (at < text.size()) {
            const AspMark mark = next_mark(text, at);
            const std::string_view block = text.substr(at, mark.begin - at);
            add_block(block, line);
            if (mark.kind == AspMarkKind::None) {
                return;
            }
            line += lines_in(block);
            if (mark.end == std::string_view::npos) {
                fail(line, mark.kind == AspMarkKind::IncludeFile ||
                                   mark.kind == AspMarkKind::IncludeVirtual
                               ? "the include has no name in quotes, or is not closed"
                               : "the script is not closed with %>");
            }
            add_mark(path, mark, line);
            line += lines_in(text.substr(mark.begin, mark.end - mark.begin));
            at = mark.end;
        }
    }

    static std::int32_t lines_in(std::string_view text) {
        return static_cast<std::int32_t>(std::ranges::count(with_line_feeds(text), '\n'));
    }

    // The first statements of a script must not have a text in front of them.
    void add_block(std::string_view text, std::int32_t line) {
        const bool is_idle = source_.code.empty() || awaits_case(source_.code);
        if (text.empty() || (is_idle && is_blank(text))) {
            return;
        }
        source_.blocks.emplace_back(text);
        add_code("Response.WriteBlock " + std::to_string(source_.blocks.size() - 1), line);
    }

    void add_code(const std::string& code, std::int32_t line) {
        for (const std::string& each : automation::split(code, '\n')) {
            source_.code.append(each).append("\n");
            source_.places.push_back({.file = file_, .line = line++});
        }
    }

    void add_mark(const WebPath& path, const AspMark& mark, std::int32_t line) {
        switch (mark.kind) {
            case AspMarkKind::Code:
                add_code(with_line_feeds(mark.content), line);
                break;
            case AspMarkKind::Expression:
                add_code("Response.Write(" + with_line_feeds(mark.content) + ")", line);
                break;
            case AspMarkKind::Directive:
                check_directive(mark.content, line);
                break;
            default:
                include(path, mark, line);
                break;
        }
    }

    void check_directive(std::string_view directive, std::int32_t line) const {
        const std::string language = attribute(directive, "LANGUAGE");
        if (!language.empty() && language != kLanguage) {
            fail(line, "the language is VBScript, not " + language);
        }
    }

    void include(const WebPath& path, const AspMark& mark, std::int32_t line) {
        WebPath base;
        if (mark.kind == AspMarkKind::IncludeFile) {
            base.assign(path.begin(), path.end() - 1);
        }
        const std::string name(mark.content);
        const auto target = SiteFiles::resolve(base, name);
        if (!target) {
            fail(line, "the include " + name + " lies outside of the site");
        }
        const auto entry = files_.find(*target);
        if (!entry || entry->is_folder) {
            fail(line, "the include " + name + " is not there");
        }
        if (std::ranges::find(open_, entry->path) != open_.end()) {
            fail(line, "the include " + name + " is within itself");
        }
        if (open_.size() > kDeepest) {
            fail(line, "the include " + name + " is more than 16 files deep");
        }
        const std::size_t outer = std::exchange(file_, source_.files.size());
        source_.files.push_back(text_of(*target));
        add_file(*target, *entry);
        file_ = outer;
    }

    const SiteFiles& files_;
    AspSource source_;
    std::size_t file_ = 0;  // the one that is being read, in source_.files
    std::size_t read_bytes_ = 0;
    std::vector<std::filesystem::path> open_;  // the includes around the present place
};

}  // namespace

const AspSource::Place& AspSource::place_of(std::int32_t line) const {
    const auto last = static_cast<std::int32_t>(places.size());
    return places.at(static_cast<std::size_t>(std::clamp(line, 1, last) - 1));
}

AspSource read_asp(const SiteFiles& files, const WebPath& page) {
    return AspReader(files).read(page);
}

}  // namespace home
