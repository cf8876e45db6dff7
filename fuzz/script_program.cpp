#include <chrono>
#include <span>

#include "fuzz/expect.h"
#include "vbscript/control/source_text.h"
#include "vbscript/machine/engine.h"
#include "vbscript/objects/class_registry.h"
#include "vbscript/objects/native_object.h"
#include "vbscript/syntax/syntax_errors.h"

// Any bytes as a whole program with little time, run to its end. No object that it can make reaches
// out of the engine: there are neither files nor programs.
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr auto kTimeLimit = 200ms;

class Host final : public vbscript::EngineHost {
  public:
    Host() { vbscript::add_standard_classes(classes_); }

    [[nodiscard]] vbscript::Date now() override { return {46350.66878472222}; }

    [[nodiscard]] std::chrono::milliseconds uptime() override {
        return std::chrono::duration_cast<std::chrono::milliseconds>(
            steady_clock::now().time_since_epoch());
    }

    [[nodiscard]] vbscript::Ref<vbscript::Object> create_object(
        vbscript::Context& context, std::u16string_view class_name) override {
        return classes_.create(context, class_name);
    }

    [[nodiscard]] vbscript::Ref<vbscript::Object> create_builtin_class(
        vbscript::Context& context, std::u16string_view class_name) override {
        return class_name == u"RegExp" || class_name == u"regexp"
                   ? classes_.create(context, u"VBScript.RegExp")
                   : nullptr;
    }

    std::int32_t message_box(std::u16string_view, std::int32_t, std::u16string_view) override {
        return 1;
    }

    std::u16string input_box(std::u16string_view, std::u16string_view,
                             std::u16string_view initial) override {
        return std::u16string(initial);
    }

  private:
    vbscript::ClassRegistry classes_;
};

// `WScript.Echo`, which makes texts of its arguments and forgets them.
class Console final : public vbscript::NativeObject {
  public:
    vbscript::Value echo(vbscript::Arguments& arguments) {
        for (std::size_t index = 0; index < arguments.size(); ++index) {
            (void)arguments.text(index);
        }
        return {};
    }

  private:
    [[nodiscard]] const vbscript::NativeClass& native_class() const noexcept override {
        static constexpr vbscript::NativeMember kMembers[] = {
            vbscript::native_method<&Console::echo>(u"Echo", 0, vbscript::kAnyNumber)};
        static const vbscript::NativeClass kClass(u"Console", kMembers);
        return kClass;
    }
};

template <typename Step>
void run(Step&& step) {
    try {
        step();
    } catch (const vbscript::SyntaxError& error) {
        fuzz::expect(error.line() >= 1 && error.column() >= 1, "a syntax error has a place");
    } catch (const vbscript::ScriptError& error) {
        fuzz::expect(error.number != 0, "an error has a number");
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string source = vbscript::source_text(fuzz::as_text(data, size));
    Host host;
    vbscript::Engine engine(host);
    engine.set_time_limit(kTimeLimit);
    engine.add_object(u"WScript", vbscript::make<Console>(), vbscript::Engine::Members::Prefixed);
    vbscript::Module& module = engine.global_module();
    run([&] { engine.add_code(module, source); });
    fuzz::expect(!engine.is_running(), "a script that has ended runs no more");
    for (const vbscript::ProcedureDescription& procedure : engine.procedures(module)) {
        if (procedure.parameters == 0) {
            run([&] { engine.run(module, procedure.name, {}); });
            break;
        }
    }
    fuzz::expect(engine.eval(module, u"1 + 1").is(vbscript::Type::Integer),
                 "an engine goes on after whatever it has run");
    return 0;
}
