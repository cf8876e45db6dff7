#include "pages/script.h"

#include <array>
#include <optional>

#include "automation/convert.h"
#include "automation/guarded.h"
#include "core/instance.h"
#include "host/script_control.h"
#include "pages/include_walk.h"

namespace pages {

namespace {

// Where the engine saw the fault: "Expected ')'@ Line 3 col 7".
std::string place_of(const host::ScriptFailure& failure) {
    return failure.Description + "@ Line " + std::to_string(failure.Line) + " col " +
           std::to_string(failure.Column);
}

// Runs one step of the engine. Gives the report of its failure: `describe` turns the error's own
// description, "" when only the engine knows of one, and the engine's error into a line.
template <typename Step, typename Describe>
void reporting(core::VeloraLog& log, host::ScriptControl& engine, Step&& step,
               Describe&& describe) {
    std::optional<automation::RunTimeError> error;
    try {
        step();
    } catch (const automation::RunTimeError& failure) {
        error = failure;
    }
    const host::ScriptFailure& failure = engine.Error();
    if (!error && failure.Number == 0) {
        return;
    }
    const std::string line = describe(error ? error->description() : std::string(), failure);
    engine.Clear();
    if (error) {
        log.report(line, *error);
    } else {
        log.VeloraWriteLog(core::kLogType, line);
    }
}

}  // namespace

Script::Script(core::Instance& instance, std::shared_ptr<host::ScriptControl> engine)
    : instance_(instance), engine_(std::move(engine)) {}

automation::DateTime Script::FileDate() const noexcept {
    using namespace std::chrono;
    return local_days{1980y / January / 1};
}

void Script::Add(std::string_view file, std::string_view module) {
    file_ = file;
    module_ = &engine_->add_module(module);
    AccumulateReferences(file);
}

void Script::AccumulateReferences(std::string_view file) {
    read_script(instance_, "Script-AccumulateReferences ", file,
                [this](const std::string& code, std::string_view of) { add_code(code, of); });
}

void Script::add_code(const std::string& text, std::string_view file) {
    reporting(
        instance_.log, *engine_, [&] { module_->AddCode(text); },
        [&](const std::string& description, const host::ScriptFailure& failure) {
            return "Error in script syntax " + description + " / " + std::string(file) + " " +
                   place_of(failure);
        });
}

automation::Value Script::Run(std::string_view procedure, std::string_view argument) {
    return automation::guarded(instance_.log, "Script-Run ", [&] {
        automation::Value result;
        engine_->Clear();
        reporting(
            instance_.log, *engine_,
            [&] {
                const std::array<automation::Value, 1> arguments{automation::Value(argument)};
                result = module_->Run(procedure, arguments);
            },
            [](const std::string& description, const host::ScriptFailure& failure) {
                return "Script Run Error " + description + " / " + std::to_string(failure.Number) +
                       " - " + place_of(failure);
            });
        return result;
    });
}

}  // namespace pages
