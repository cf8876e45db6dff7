#include "pages/include_walk.h"

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "core/instance.h"
#include "host/files.h"

namespace pages {

namespace {

constexpr std::string_view kInclude = "#include";

std::size_t next_include(std::string_view text, std::size_t from) {
    const std::size_t found = automation::find_ignoring_case(text.substr(from), kInclude);
    return found == std::string_view::npos ? found : from + found;
}

}  // namespace

BrokenInclude broken_include_rule(core::Instance& instance) {
    return instance.platform().protection.broken_include_is_an_error
               ? BrokenInclude::IsAnError
               : BrokenInclude::SearchesForEver;
}

void cut_includes(std::string& text, BrokenInclude broken,
                  const std::function<void(std::string_view name)>& include) {
    std::size_t place = next_include(text, 0);
    while (place != std::string::npos) {
        const std::size_t open = text.find('"', place);
        const std::size_t close = open == std::string::npos ? open : text.find('"', open + 1);
        if (close != std::string::npos) {
            include(automation::trim(std::string_view(text).substr(open + 1, close - open - 1)));
            text.erase(place, close + 1 - place);
        } else if (broken == BrokenInclude::IsAnError) {
            throw automation::RunTimeError(automation::ErrorNumber::InvalidProcedureCall,
                                           "#include without a name in quotes");
        }
        place = next_include(text, place);
    }
}

std::string without_includes(std::string text, BrokenInclude broken,
                             const std::function<void(std::string_view name)>& include) {
    cut_includes(text, broken, include);
    return text;
}

void read_script(core::Instance& instance, std::string_view where, std::string_view file,
                 const TakeCode& take) {
    IncludeWalk walk;
    read_script(instance, where, file, take, walk, 0);
}

void read_script(core::Instance& instance, std::string_view where, std::string_view file,
                 const TakeCode& take, IncludeWalk& walk, int depth) {
    automation::guarded(instance.log, where, [&] {
        if (!walk.goes_on(depth)) {
            return;
        }
        const std::string path = include_path(instance.application_path + "\\Scripts", file);
        host::Files& files = instance.platform().files;
        if (!files.FileExists(path)) {
            return;
        }
        const auto include = [&](std::string_view name) {
            read_script(instance, where, name, take, walk, depth + 1);
        };
        take(without_includes(files.read(path), broken_include_rule(instance), include), file);
    });
}

bool IncludeWalk::goes_on(int depth) {
    if (files_ > kMostIncludes) {
        return false;
    }
    ++files_;
    if (files_ > kMostIncludes) {
        throw automation::RunTimeError(automation::ErrorNumber::OutOfMemory,
                                       "#include names too many files");
    }
    if (depth > kIncludeDepth) {
        throw automation::RunTimeError(28, "Out of stack space");
    }
    return true;
}

std::string include_path(std::string_view folder, std::string_view file) {
    const bool is_path =
        file.find(':') != std::string_view::npos || file.find("\\\\") != std::string_view::npos;
    if (is_path) {
        return std::string(file);
    }
    return std::string(folder) + (file.starts_with('\\') ? "" : "\\") + std::string(file);
}

}  // namespace pages
