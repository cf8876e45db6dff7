#pragma once

#include <cstdint>
#include <exception>

namespace vbscript {

// `WScript.Quit` on its way out of the script. No error: `On Error Resume Next` does not see it,
// and whoever runs the script takes it as its end.
class ScriptQuit final : public std::exception {
  public:
    explicit ScriptQuit(std::int32_t code) noexcept : exit_code(code) {}

    [[nodiscard]] const char* what() const noexcept override { return "the script has quit"; }

    std::int32_t exit_code;
};

}  // namespace vbscript
