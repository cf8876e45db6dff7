#pragma once

#include <string>
#include <vector>

#include "vbscript/objects/native_object.h"

namespace vbscript {

// `WScript.Arguments`: what stands behind the script's name on the command line, counted from 0.
// `Named` are those of the form "/name" or "/name:value", `Unnamed` the others. A path such as
// "/home/x" is no name.
[[nodiscard]] Ref<Object> script_arguments(const std::vector<std::u16string>& arguments);

}  // namespace vbscript
