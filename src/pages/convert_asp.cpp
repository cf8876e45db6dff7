#include "pages/convert_asp.h"

#include <algorithm>
#include <array>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "core/instance.h"
#include "host/files.h"
#include "host/script_control.h"
#include "pages/asp_converter.h"
#include "pages/custom_header_calls.h"
#include "pages/dump_string.h"
#include "pages/html_includes.h"
#include "pages/meta_replace.h"
#include "pages/page_engine.h"

namespace pages {

using automation::guarded;
using automation::Value;

std::string ConvertASP::ASPSlide(const std::shared_ptr<automation::Object>& request,
                                 const std::shared_ptr<automation::Object>& response,
                                 const std::string& page, const std::string& seconds) {
    return guarded(instance_.log, "ASPSlide ", [&] {
        prepare(request, response);
        if (isNewASPFile(page)) {
            ASPAdd(page, seconds);
        }
        std::string text = run_page(asp_function_name(page));
        if (instance_.log.DebugLog()) {
            DumpStringToFile(instance_, "VeloraSlideshowHTML", text);
        }
        return text;
    });
}

void ConvertASP::prepare(const Objects& request, const Objects& response) {
    const bool is_first_page = pages_.engine() == nullptr;
    if (is_first_page) {
        pages_.HTMLInit();
    }
    // Held here, since what runs may reload the settings and with them the engine.
    const std::shared_ptr<host::ScriptControl> engine = pages_.engine();
    if (engine == nullptr) {
        throw automation::RunTimeError(automation::ErrorNumber::ObjectVariableNotSet);
    }
    engine->Run("setObjects", std::array<Value, 2>{request, response});
    if (is_first_page) {
        asp_pages_.assign(1, "");
        includes_.HTMLBuild();
        engine->Run("startmiscfunctionsasp", {});
    }
    engine->Run("SecurityCheck", {});
    header_result_ = automation::to_boolean(engine->Run("startheaderasp", {}));
}

std::string ConvertASP::run_page(const std::string& function) {
    const std::shared_ptr<host::ScriptControl> engine = pages_.engine();
    if (engine == nullptr) {
        throw automation::RunTimeError(automation::ErrorNumber::ObjectVariableNotSet);
    }
    return automation::to_text(engine->Run(function, {}));
}

bool ConvertASP::isNewASPFile(const std::string& page) {
    return guarded(instance_.log, "isNewASPFile: ", [&] {
        const std::string name = (page.starts_with('\\') ? "" : "\\") + automation::to_lower(page);
        if (std::ranges::count(asp_pages_, name) > 0) {
            return false;
        }
        asp_pages_.push_back(name);
        return true;
    });
}

std::string ConvertASP::page_source(const std::string& page, const std::string& seconds) {
    const std::string text =
        instance_.platform().files.read(core::html_root(instance_) + "\\" + page);
    const std::string function = asp_function_name(page);
    RewrittenCalls calls =
        rewrite_custom_header_calls(AspConverter(instance_.log, function).convert(text), seconds);
    return calls.has_calls
               ? std::move(calls.source)
               : metaReplace(instance_.log, instance_.platform().protection, calls.source, seconds);
}

void ConvertASP::ASPAdd(const std::string& page, const std::string& seconds) {
    guarded(instance_.log, "ASPAdd ", [&] {
        const std::string source = page_source(page, seconds);
        if (instance_.log.DebugLog()) {
            DumpStringToFile(instance_, asp_function_name(page), source);
        }
        if (const std::shared_ptr<host::ScriptControl> engine = pages_.engine()) {
            includes_.AccumulateHTMLString(source, *engine);
        }
    });
}

}  // namespace pages
