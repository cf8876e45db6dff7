#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "vbscript/machine/engine.h"
#include "vbscript/syntax/syntax_errors.h"
#include "vbscript/value/convert.h"
#include "vbscript/value/script_error.h"

namespace vbscript::testing {

// A program around the engine: no clock but the one that a test moves.
class TestHost final : public EngineHost {
  public:
    Date now() override { return Date{45000.5}; }

    // Each look at the clock takes a millisecond.
    std::chrono::milliseconds uptime() override { return ++time_; }

    Ref<Object> create_object(Context& /*context*/, std::u16string_view /*name*/) override {
        throw ScriptError(ErrorNumber::CannotCreateObject);
    }

    std::int32_t message_box(std::u16string_view /*prompt*/, std::int32_t /*buttons*/,
                             std::u16string_view /*title*/) override {
        return 1;
    }

    std::u16string input_box(std::u16string_view /*prompt*/, std::u16string_view /*title*/,
                             std::u16string_view initial) override {
        return std::u16string(initial);
    }

  private:
    std::chrono::milliseconds time_{0};
};

// `Echo a, b` writes a line of the output. Has members as well: `Echo.Line`, `Echo.Twice(x)`,
// `Echo.Change v`, which sets its argument to "changed", and `Echo.Held`, a property.
class Echo final : public Object {
  public:
    std::u16string type_name() const override { return u"Echo"; }

    const Counted* class_identity() const noexcept override { return this; }

    std::optional<MemberId> find_member(std::u16string_view name) const override {
        constexpr std::u16string_view kNames[] = {u"line", u"twice", u"change", u"held"};
        for (MemberId member = 0; member < 4; ++member) {
            if (equals_ignoring_case(kNames[member], name)) return member + 1;
        }
        return std::nullopt;
    }

    Value invoke(Context& context, MemberId member, Access access,
                 std::span<Value> arguments) override {
        if (member == 4) return held(access, arguments);
        if (access != Access::Call) throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported);
        if (member == 2) return Value(to_double(context, arguments[0]) * 2);
        if (member == 3) {
            arguments[0] = Value(u"changed");
            return {};
        }
        std::string line;
        for (const Value& argument : arguments) {
            if (!line.empty()) line += ' ';
            line += argument.is(Type::Null) ? "Null" : to_utf8(to_units(context, argument));
        }
        lines_ += (lines_.empty() ? "" : "|") + line;
        return {};
    }

    bool has_default_member() const override { return true; }

    [[nodiscard]] std::string& lines() noexcept { return lines_; }

    void forget() noexcept { held_ = Value(); }

  private:
    Value held(Access access, std::span<Value> arguments) {
        if (access == Access::Call) return held_;
        held_ = arguments.back();
        return {};
    }

    std::string lines_;
    Value held_;
};

// One engine with an `Echo`.
class ScriptRun {
  public:
    ScriptRun() { engine->add_object(u"Echo", Ref<Object>(echo), Engine::Members::Prefixed); }

    ~ScriptRun() { echo->forget(); }

    ScriptRun(const ScriptRun&) = delete;
    ScriptRun& operator=(const ScriptRun&) = delete;

    // Runs a script in the global module. Gives all output so far, and the error that ended it.
    std::string add(std::string_view script) { return add(engine->global_module(), script); }

    std::string add(Module& module, std::string_view script) {
        return guarded([&] { engine->add_code(module, from_utf8(script)); });
    }

    std::string call(std::string_view procedure, std::vector<Value> arguments = {}) {
        return guarded([&] {
            const Value result =
                engine->run(engine->global_module(), from_utf8(procedure), arguments);
            if (!result.is(Type::Empty)) echo->lines() += to_utf8(to_units(*engine, result));
        });
    }

    // Destroys the engine; its objects may still say something.
    std::string end() {
        echo->forget();
        engine.reset();
        return echo->lines();
    }

    TestHost host;
    Ref<Echo> echo = make<Echo>();
    std::unique_ptr<Engine> engine = std::make_unique<Engine>(host);

  private:
    template <typename Action>
    std::string guarded(const Action& action) {
        std::string failure;
        try {
            action();
        } catch (const ScriptError& error) {
            failure = "!" + std::to_string(error.number) + " " + to_utf8(error.message()) + " @" +
                      std::to_string(error.line);
        } catch (const SyntaxError& error) {
            failure = "!syntax " + std::to_string(static_cast<int>(error.number()));
        }
        std::string text = echo->lines();
        if (!failure.empty()) text += (text.empty() ? "" : "|") + failure;
        return text;
    }
};

[[nodiscard]] inline std::string output_of(std::string_view script) {
    ScriptRun run;
    return run.add(script);
}

}  // namespace vbscript::testing
