#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "vbscript/machine/engine.h"
#include "vbscript/objects/class_registry.h"
#include "vbscript/objects/native_object.h"
#include "vbscript/syntax/syntax_errors.h"
#include "vbscript/value/convert.h"

// Runs every script below this folder. A comment "' expect: text" is a line that the script prints
// up to there; a last line "' error: NUMBER text" is the error that it ends in, the name of what is
// at fault behind the text left out.
namespace vbscript {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

// `WScript` with its `Echo`: blanks between the arguments.
class Printer final : public NativeObject {
  public:
    explicit Printer(Lines& lines) : lines_(lines) {}

    Value echo(Arguments& arguments) {
        std::string line;
        for (std::size_t index = 0; index < arguments.size(); ++index) {
            line += (index == 0 ? "" : " ") + to_utf8(arguments.text(index));
        }
        lines_.push_back(line);
        return {};
    }

  private:
    [[nodiscard]] const NativeClass& native_class() const noexcept override {
        static constexpr NativeMember kMembers[] = {
            native_method<&Printer::echo>(u"Echo", 0, kAnyNumber)};
        static const NativeClass kClass(u"Printer", kMembers);
        return kClass;
    }

    Lines& lines_;
};

class Host final : public EngineHost {
  public:
    Host() { add_standard_classes(classes_); }

    [[nodiscard]] Date now() override { return {46350.66878472222}; }

    [[nodiscard]] std::chrono::milliseconds uptime() override { return {}; }

    [[nodiscard]] Ref<Object> create_object(Context& context,
                                            std::u16string_view class_name) override {
        return classes_.create(context, class_name);
    }

    [[nodiscard]] Ref<Object> create_builtin_class(Context& context,
                                                   std::u16string_view class_name) override {
        return equals_ignoring_case(class_name, u"RegExp")
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
    ClassRegistry classes_;
};

std::string text_of(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string error_line(std::int32_t number, std::u16string_view description) {
    return "error: " + std::to_string(number) + " " + to_utf8(description);
}

Lines expected_lines(const std::string& source) {
    Lines lines;
    std::size_t begin = 0;
    while (begin < source.size()) {
        const std::size_t end = std::min(source.find('\n', begin), source.size());
        const std::string line = source.substr(begin, end - begin);
        constexpr std::string_view kExpect = "' expect: ";
        if (line.starts_with(kExpect)) {
            lines.push_back(line.substr(kExpect.size()));
        } else if (line.starts_with("' error: ")) {
            lines.push_back(line.substr(2));
        }
        begin = end + 1;
    }
    return lines;
}

Lines printed_lines(const std::string& source) {
    Lines lines;
    Host host;
    Engine engine(host);
    engine.add_object(u"WScript", make<Printer>(lines), Engine::Members::Prefixed);
    try {
        engine.add_code(engine.global_module(), from_utf8(source));
    } catch (const SyntaxError& error) {
        lines.push_back(error_line(static_cast<std::int32_t>(error.number()), error.description()));
    } catch (const ScriptError& error) {
        lines.push_back(error_line(error.number, error.message()));
    }
    return lines;
}

// "error: 13 Type mismatch: 'x'" without what is at fault.
void drop_detail(Lines& lines) {
    if (!lines.empty() && lines.back().starts_with("error: ")) {
        lines.back().resize(std::min(lines.back().find(": '", 7), lines.back().size()));
    }
}

class ConformanceTest : public testing::Test {
  public:
    explicit ConformanceTest(fs::path file) : file_(std::move(file)) {}

    void TestBody() override {
        const std::string source = text_of(file_);
        Lines printed = printed_lines(source);
        drop_detail(printed);
        EXPECT_EQ(printed, expected_lines(source)) << file_.string();
    }

  private:
    fs::path file_;
};

std::vector<fs::path> scripts() {
    std::vector<fs::path> found;
    for (const auto& entry : fs::recursive_directory_iterator(ZYN_SCRIPT_DIR)) {
        if (entry.path().extension() == ".vbs") {
            found.push_back(entry.path());
        }
    }
    std::ranges::sort(found);
    return found;
}

void register_scripts() {
    for (const fs::path& file : scripts()) {
        const std::string feature = file.parent_path().filename().string();
        testing::RegisterTest(feature.c_str(), file.stem().c_str(), nullptr, nullptr, file.c_str(),
                              1, [file]() -> testing::Test* { return new ConformanceTest(file); });
    }
}

}  // namespace
}  // namespace vbscript

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    vbscript::register_scripts();
    return RUN_ALL_TESTS();
}
