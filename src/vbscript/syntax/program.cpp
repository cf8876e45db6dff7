#include "vbscript/syntax/program.h"

#include "vbscript/syntax/arena.h"

namespace vbscript {

Program::Program(std::unique_ptr<Arena> arena, const Content& content) noexcept
    : arena_(std::move(arena)), content_(content) {}

Program::Program(Program&&) noexcept = default;
Program& Program::operator=(Program&&) noexcept = default;
Program::~Program() = default;

}  // namespace vbscript
