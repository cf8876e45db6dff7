#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "pages/headers/header.h"

namespace core {
class Instance;
}

namespace host {
class ScriptControl;
}

namespace pages {

class HostPage;
class IncludeWalk;
class PageEngine;

// Fills the page engine with library code, and resolves the includes of pages, which the language
// does not know: each file's code goes into the engine before the code that names it. Owned by the
// plug-in. All failures are logged; members that take an engine may pump.
class HTMLIncludes {
  public:
    // Who makes the cells, headers and footers of pages: the functions of this program, or the
    // scripts of the include files.
    enum class Decoration : std::uint8_t { BuiltIn, Scripts };

    // All outlive the includes.
    HTMLIncludes(core::Instance& instance, PageEngine& pages, HostPage& page)
        : instance_(instance), pages_(pages), page_(page) {}

    HTMLIncludes(const HTMLIncludes&) = delete;
    HTMLIncludes& operator=(const HTMLIncludes&) = delete;

    // Loads the include files that all pages rely on. Requires: an engine.
    void HTMLBuild();

    [[nodiscard]] bool IncludesBuilt() const noexcept { return includes_built_; }

    // Loads an include file below HTML, or one with a drive letter or a share in its name. It must
    // be all code: marks of code vanish, its includes become comments, and what it writes goes to
    // the script object `fsg`. A missing file is passed over.
    void AccumulateHTMLReferences(std::string_view file, host::ScriptControl& engine);

    // Loads a plain script file of the folder Scripts.
    void AccumulateReferences(std::string_view file, host::ScriptControl& engine);

    // Loads the generated source of a page. Goes on after a failure with what it has.
    void AccumulateHTMLString(std::string_view text, host::ScriptControl& engine);

    // The program's own functions unless this says otherwise.
    void set_decoration(Decoration decoration) noexcept { decoration_ = decoration; }

    [[nodiscard]] std::string FormatCell(std::string_view text, std::string_view align,
                                         std::string_view colspan, std::string_view cell_class);
    [[nodiscard]] std::string CustomHeader(const HeaderArguments& arguments);
    [[nodiscard]] std::string CustomFooter();

  private:
    enum class Included : std::uint8_t { Page, Script };

    void load(std::string_view file, host::ScriptControl& engine, IncludeWalk& walk, int depth);
    void load_script(std::string_view file, host::ScriptControl& engine, IncludeWalk& walk,
                     int depth);
    Included include(std::string_view name, host::ScriptControl& engine, IncludeWalk& walk,
                     int depth);

    core::Instance& instance_;
    PageEngine& pages_;
    HostPage& page_;
    Decoration decoration_ = Decoration::BuiltIn;
    bool includes_built_ = false;
};

}  // namespace pages
