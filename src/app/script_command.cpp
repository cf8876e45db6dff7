#include <CLI/CLI.hpp>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>

#include "app/command.h"
#include "app/control_client.h"
#include "app/remote_plugin.h"
#include "app/terminal_console.h"
#include "automation/code_page.h"
#include "platform/system/log_desktop.h"
#include "platform/system/system_clock.h"
#include "vbscript/control/control_host.h"
#include "vbscript/control/source_text.h"
#include "vbscript/machine/engine.h"
#include "vbscript/objects/automation_bridge.h"
#include "vbscript/objects/files/file_system_object.h"
#include "vbscript/objects/script_quit.h"
#include "vbscript/objects/wscript/wscript.h"
#include "vbscript/syntax/syntax_errors.h"
#include "vbscript/value/convert.h"

namespace app {
namespace {

namespace fs = std::filesystem;

struct Options {
    std::string home;
    std::vector<std::string> words;  // the script's file and its arguments
};

// Everything around one console script.
struct ScriptConsole {
    explicit ScriptConsole(const std::string& home)
        : services{.clock = clock,
                   .desktop = desktop,
                   .classes = {},
                   .lend = [home](std::string_view name) { return remote_object(home, name); }} {
        host.set_bridge(bridge);
        vbscript::add_standard_classes(services.classes);
        vbscript::add_file_classes(services.classes, fs::current_path(), &terminal);
    }

    TerminalConsole terminal;
    platform::SystemClock clock;
    platform::LogDesktop desktop{[this](const std::string& line) {
        terminal.write_error(automation::code_page_to_utf16(line + "\n"));
    }};
    vbscript::ScriptServices services;
    vbscript::ControlHost host{services};
    vbscript::Engine engine{host};
    vbscript::AutomationBridge bridge{engine};
};

std::u16string read_source(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    if (fs::is_directory(file) || !stream || !(bytes << stream.rdbuf(), stream)) {
        throw CommandFailure("cannot read the script " + file.string());
    }
    return vbscript::source_text(bytes.view());
}

vbscript::ScriptRun describe_run(const Options& options, vbscript::Engine& engine) {
    vbscript::ScriptRun run;
    run.script_path = vbscript::from_utf8(fs::absolute(options.words.front()).string());
    run.program_path = vbscript::from_utf8(fs::read_symlink("/proc/self/exe").string());
    for (auto word = options.words.begin() + 1; word != options.words.end(); ++word) {
        run.arguments.push_back(vbscript::from_utf8(*word));
    }
    run.set_time_limit = [&engine](std::chrono::seconds limit) {
        engine.set_time_limit(limit.count() == 0 ? std::nullopt
                                                 : std::optional<std::chrono::milliseconds>(limit));
    };
    return run;
}

// "greet.vbs(3, 7) Microsoft VBScript runtime error: Division by zero"
[[noreturn]] void fail_at(const std::string& file, std::int64_t line, std::int64_t column,
                          std::u16string_view source, std::u16string_view description) {
    std::cout.flush();
    std::cerr << file << "(" << line << ", " << column << ") " << vbscript::to_utf8(source) << ": "
              << vbscript::to_utf8(description) << std::endl;
    throw ExitCode{EXIT_FAILURE};
}

void run_script(const Options& options) {
    const std::string& file = options.words.front();
    const std::u16string source = read_source(file);
    ScriptConsole console(options.home);
    vbscript::Engine& engine = console.engine;
    engine.add_object(
        u"WScript",
        vbscript::make<vbscript::WScript>(console.terminal, describe_run(options, engine)),
        vbscript::Engine::Members::Prefixed);
    try {
        engine.add_code(engine.global_module(), source);
    } catch (const vbscript::ScriptQuit& quit) {
        throw ExitCode{quit.exit_code};
    } catch (const vbscript::ScriptError& error) {
        fail_at(file, error.line, error.column, error.source, error.message());
    } catch (const vbscript::SyntaxError& error) {
        fail_at(file, error.line(), error.column(), u"Microsoft VBScript compilation error",
                error.description());
    }
}

}  // namespace

void add_script_command(CLI::App& program, Run& run, const std::vector<std::string>& verbatim) {
    CLI::App* command = program.add_subcommand(
        "script", "Run a VBScript file on this terminal: zynvelora script FILE [ARG...]");
    command->footer(
        "All words behind FILE are the script's, as WScript.Arguments. CreateObject gives\n"
        "Scripting.Dictionary, Scripting.FileSystemObject, VBScript.RegExp, ADODB.Recordset, and\n"
        "zynVelora.hspi: the plug-in in the running daemon. The exit code is that of "
        "WScript.Quit,\n"
        "1 after an error.");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    command->prefix_command();
    command->callback([command, options, &run, &verbatim] {
        options->words = command->remaining();
        options->words.insert(options->words.end(), verbatim.begin(), verbatim.end());
        if (options->words.empty()) {
            throw CLI::ValidationError("script", "FILE is required");
        }
        run = [options] { run_script(*options); };
    });
}

}  // namespace app
