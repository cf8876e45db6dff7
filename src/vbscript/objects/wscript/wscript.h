#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "vbscript/objects/console.h"
#include "vbscript/objects/files/text_stream.h"
#include "vbscript/objects/native_object.h"

namespace vbscript {

// What `WScript` tells a console script about its run. Paths may have slashes.
struct ScriptRun {
    std::u16string script_path;   // absolute
    std::u16string program_path;  // of the program that runs it, absolute
    std::vector<std::u16string> arguments;

    // `WScript.Timeout`: the script asks for another time limit; 0 for none. May be absent.
    std::function<void(std::chrono::seconds)> set_time_limit;
};

// `WScript`: the run, its terminal and its end. Lent to the script under that name; shared by the
// values that hold it.
class WScript final : public NativeObject {
  public:
    // `console` outlives the object.
    WScript(Console& console, ScriptRun run);

    Value arguments() const;
    Value build_version() const;
    Value create_object(Arguments& arguments);
    Value echo(Arguments& arguments);
    Value full_name() const;
    Value get_object(Arguments& arguments);
    Value interactive() const;
    Value let_interactive(Arguments& arguments);
    Value name() const;
    Value path() const;

    // Throws: ScriptQuit.
    Value quit(Arguments& arguments);
    Value script_full_name() const;
    Value script_name() const;

    // Throws beside the rest: what `check_time` throws.
    Value sleep(Arguments& arguments);
    Value standard_error() const;
    Value standard_input() const;
    Value standard_output() const;
    Value time_limit() const;
    Value let_time_limit(Arguments& arguments);
    Value version() const;

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    Console& console_;
    ScriptRun run_;
    Ref<Object> arguments_;
    Ref<TextStream> input_;
    Ref<TextStream> output_;
    Ref<TextStream> error_;
    std::int32_t time_limit_ = 0;  // seconds
    bool interactive_ = true;
};

}  // namespace vbscript
