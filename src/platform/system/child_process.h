#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace platform {

enum class ChildEnd : std::uint8_t { Success, Failure, NotStarted, TimedOut };

// Runs the program `words[0]`, found by PATH, with the rest as its arguments and without input, and
// blocks until it has ended, well (exit code 0) or not. After `limit` it is killed.
// Requires: at least one word.
[[nodiscard]] ChildEnd run_child(std::vector<std::string> words, std::chrono::milliseconds limit);

}  // namespace platform
