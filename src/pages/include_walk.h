#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace core {
class Instance;
}

namespace pages {

// What becomes of an "#include" that no quoted name follows.
enum class BrokenInclude : bool { SearchesForEver, IsAnError };

[[nodiscard]] BrokenInclude broken_include_rule(core::Instance& instance);

// Scripts name the files that they need in lines such as `'#include "menu.txt"`, which the
// language itself does not know. Calls `include` with each name, trimmed, in the order of the
// text, and cuts them out of it: all from "#include" to the second quote.
// Throws: RunTimeError 5 for a broken one, unless it is searched for ever, and what `include`
// throws; the names up to there have been cut then.
void cut_includes(std::string& text, BrokenInclude broken,
                  const std::function<void(std::string_view name)>& include);

// The same on a text of one's own.
[[nodiscard]] std::string without_includes(
    std::string text, BrokenInclude broken,
    const std::function<void(std::string_view name)>& include);

// Takes the code of one file, whose includes have been taken before.
using TakeCode = std::function<void(const std::string& code, std::string_view file)>;

// How deep files may include one another, and how many one walk reads in all.
inline constexpr int kIncludeDepth = 100;
inline constexpr int kMostIncludes = 1000;

// One walk through files that include one another. Made by whoever reads the first file.
class IncludeWalk {
  public:
    // Counts a file that is `depth` files below the first. False when the walk has ended: the
    // file is to be passed over. Throws: RunTimeError 28 for a file that is too deep, 7, once, for
    // one too many, which ends the walk; files that name themselves twice would never end it.
    [[nodiscard]] bool goes_on(int depth);

  private:
    int files_ = 0;
};

// Reads a script file with all its includes, each before the file that names it, from the folder
// Scripts or by its path. A missing file is passed over; a failure is logged under `where` and
// loses the file in which it is, with what follows there.
void read_script(core::Instance& instance, std::string_view where, std::string_view file,
                 const TakeCode& take);

// The same as a part of a walk.
void read_script(core::Instance& instance, std::string_view where, std::string_view file,
                 const TakeCode& take, IncludeWalk& walk, int depth);

// Where a file of a folder below the application path lies: a name with a drive letter or a share
// is a path by itself.
[[nodiscard]] std::string include_path(std::string_view folder, std::string_view file);

}  // namespace pages
