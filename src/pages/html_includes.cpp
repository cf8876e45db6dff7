#include "pages/html_includes.h"

#include <algorithm>
#include <array>
#include <span>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "core/instance.h"
#include "host/files.h"
#include "host/script_control.h"
#include "pages/headers/cells.h"
#include "pages/headers/footer.h"
#include "pages/include_walk.h"
#include "pages/page_engine.h"
#include "pages/text_search.h"

namespace pages {

using automation::guarded;

namespace {

constexpr std::array<std::string_view, 4> kStandardIncludes{
    "includes\\style.asp", "includes\\misc_functions.asp", "includes\\header.asp",
    "includes\\menu_functions.asp"};

constexpr std::string_view kScripts = "..\\Scripts";  // how a name says that it is a plain script

// The engine, held for the length of a call. Throws: RunTimeError 91 before the first page.
std::shared_ptr<host::ScriptControl> required_engine(const PageEngine& pages) {
    std::shared_ptr<host::ScriptControl> engine = pages.engine();
    if (engine == nullptr) {
        throw automation::RunTimeError(automation::ErrorNumber::ObjectVariableNotSet);
    }
    return engine;
}

std::string run_script(const PageEngine& pages, std::string_view procedure,
                       std::span<const automation::Value> arguments) {
    return automation::to_text(required_engine(pages)->Run(procedure, arguments));
}

// An include file without what only a web server understands.
std::string as_code(std::string_view text) {
    std::string code = automation::replace_all(text, "<%", "");
    code = automation::replace_all(code, "%>", "");
    code = automation::replace_all(code, "<!--", "'");
    return automation::replace_ignoring_case(code, "Response.Write", "fsg.Add");
}

}  // namespace

void HTMLIncludes::HTMLBuild() {
    guarded(instance_.log, "HTMLBuild: ", [&] {
        const std::shared_ptr<host::ScriptControl> engine = required_engine(pages_);
        for (const std::string_view file : kStandardIncludes) {
            AccumulateHTMLReferences(file, *engine);
        }
        includes_built_ = true;
    });
}

void HTMLIncludes::AccumulateHTMLReferences(std::string_view file, host::ScriptControl& engine) {
    IncludeWalk walk;
    load(file, engine, walk, 0);
}

void HTMLIncludes::load(std::string_view file, host::ScriptControl& engine, IncludeWalk& walk,
                        int depth) {
    guarded(instance_.log, "AccumulateHTMLReferences: ", [&] {
        if (!walk.goes_on(depth)) {
            return;
        }
        const std::string path = include_path(core::html_root(instance_), file);
        host::Files& files = instance_.platform().files;
        if (!files.FileExists(path)) {
            return;
        }
        engine.AddCode(without_includes(
            as_code(files.read(path)), broken_include_rule(instance_),
            [&](std::string_view name) { include(name, engine, walk, depth + 1); }));
    });
}

HTMLIncludes::Included HTMLIncludes::include(std::string_view name, host::ScriptControl& engine,
                                             IncludeWalk& walk, int depth) {
    std::string file(name);
    std::ranges::replace(file, '/', '\\');
    if (in_str_any_case(1, file, kScripts) == 0) {
        load(file, engine, walk, depth);
        return Included::Page;
    }
    // A doubled backslash would make a share of what is left.
    file = automation::replace_all(automation::replace_ignoring_case(file, kScripts, ""), "\\\\",
                                   "\\");
    load_script(file, engine, walk, depth);
    return Included::Script;
}

void HTMLIncludes::AccumulateReferences(std::string_view file, host::ScriptControl& engine) {
    IncludeWalk walk;
    load_script(file, engine, walk, 0);
}

void HTMLIncludes::load_script(std::string_view file, host::ScriptControl& engine,
                               IncludeWalk& walk, int depth) {
    read_script(
        instance_, "AccumulateReferences: ", file,
        [&engine](const std::string& code, std::string_view /*of*/) { engine.AddCode(code); }, walk,
        depth);
}

void HTMLIncludes::AccumulateHTMLString(std::string_view text, host::ScriptControl& engine) {
    constexpr std::string_view kWhere = "AccumulateHTMLString: ";
    std::string code(text);
    bool names_script = false;
    IncludeWalk walk;
    guarded(instance_.log, kWhere, [&] {
        cut_includes(code, broken_include_rule(instance_), [&](std::string_view name) {
            names_script = include(name, engine, walk, 1) == Included::Script || names_script;
        });
    });
    if (names_script) {
        code = automation::replace_all(code, "\\\\", "\\");
    }
    code = automation::replace_all(code, "<!---->", "");
    guarded(instance_.log, kWhere, [&] { engine.AddCode(code); });
}

std::string HTMLIncludes::FormatCell(std::string_view text, std::string_view align,
                                     std::string_view colspan, std::string_view cell_class) {
    if (decoration_ == Decoration::BuiltIn) {
        return pages::FormatCell(page_, text, align, colspan, cell_class);
    }
    return run_script(pages_, "FormatCell",
                      std::array<automation::Value, 4>{text, align, colspan, cell_class});
}

std::string HTMLIncludes::CustomHeader(const HeaderArguments& arguments) {
    return guarded(instance_.log, "CustomHeader: ", [&] {
        if (decoration_ == Decoration::BuiltIn) {
            return pages::CustomHeader(page_, arguments);
        }
        return run_script(pages_, "CustomHeader",
                          std::array<automation::Value, 5>{arguments.title, arguments.links,
                                                           arguments.style_sheet, arguments.header,
                                                           arguments.background});
    });
}

std::string HTMLIncludes::CustomFooter() {
    const std::string footer = decoration_ == Decoration::BuiltIn
                                   ? XCustomFooter(page_)
                                   : run_script(pages_, "CustomFooter", {});
    return automation::replace_ignoring_case(footer, "\"powered.jpg\"", "\"/powered.jpg\"");
}

}  // namespace pages
