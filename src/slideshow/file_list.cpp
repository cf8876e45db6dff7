#include "slideshow/file_list.h"

#include <algorithm>
#include <string>

#include "automation/code_page.h"
#include "automation/guarded.h"
#include "host/files.h"

namespace slideshow {

namespace {

// A path as the file service tells it: backslashes, none of them double but at the start of a
// share, none at the end.
std::string plain_path(std::string_view path) {
    std::string plain;
    for (const char character : path) {
        const bool separates = character == '\\' || character == '/';
        if (!separates) {
            plain += character;
        } else if (plain.size() < 2 || plain.back() != '\\') {
            plain += '\\';
        }
    }
    while (plain.ends_with('\\')) {
        plain.pop_back();
    }
    return plain;
}

bool has_picture_ending(const core::UtilitySettings& settings, std::string_view name) {
    constexpr std::size_t kEnding = 4;
    if (name.size() < kEnding) {
        return false;
    }
    const std::string ending = automation::to_lower(name.substr(name.size() - kEnding));
    return (settings.jpg && (ending == ".jpg" || ending == "jpeg")) ||
           (settings.gif && ending == ".gif") || (settings.bmp && ending == ".bmp");
}

class Walk {
  public:
    Walk(core::Instance& instance, std::string_view base, PictureList& list)
        : instance_(instance),
          base_text_(base),
          base_(automation::to_lower(plain_path(base))),
          list_(list) {}

    // Each folder is a routine of its own: when one fails, the others go on.
    void add_folder(const std::string& folder) {
        automation::guarded(instance_.log, "BuildFileList ", [&] {
            log([&] {
                return "Folder Slideshow List: " + folder.substr(folder.rfind('\\') + 1) +
                       ", Base=" + base_text_;
            });
            const host::FolderNames names = instance_.platform().files.names_in(folder);
            const std::string lowered_folder = automation::to_lower(folder) + "\\";
            for (const std::string& file : names.files) {
                if (has_picture_ending(instance_.settings, file)) {
                    add_file(folder + "\\" + file, lowered_folder + automation::to_lower(file));
                }
            }
            for (const std::string& subfolder : names.folders) {
                add_folder(folder + "\\" + subfolder);
            }
        });
    }

  private:
    void add_file(const std::string& path, const std::string& lowered_path) {
        std::string name = without_base(path, lowered_path);
        log([&] { return "Added to Slideshow List: " + name; });
        list_.add(std::move(name));
    }

    // Wherever the base occurs.
    [[nodiscard]] std::string without_base(const std::string& path,
                                           const std::string& lowered_path) const {
        if (base_.empty()) {
            return path;
        }
        std::string rest;
        std::size_t done = 0;
        for (std::size_t at = lowered_path.find(base_); at != std::string::npos;
             at = lowered_path.find(base_, done)) {
            rest.append(path, done, at - done);
            done = at + base_.size();
        }
        return rest.append(path, done, std::string::npos);
    }

    template <typename MakeText>
    void log(MakeText&& make_text) {
        if (instance_.settings.ShowSlides) {
            instance_.log.VeloraWriteLog(core::kDebugLogType, make_text());
        }
    }

    core::Instance& instance_;
    std::string base_text_;
    std::string base_;  // as it is looked for
    PictureList& list_;
};

}  // namespace

void BuildFileList(core::Instance& instance, std::string_view folder, std::string_view base,
                   PictureList& list) {
    Walk(instance, base, list).add_folder(plain_path(folder));
}

}  // namespace slideshow
