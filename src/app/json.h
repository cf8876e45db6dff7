#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "automation/value.h"

namespace app {

// Objects keep the order in which their members were added, so that a person can read them.
using Json = nlohmann::ordered_json;

// One line, whatever bytes the texts hold.
[[nodiscard]] std::string one_line(const Json& json);

// A late-bound value on its way out: nothing is null, a date its text, an object its type name.
[[nodiscard]] Json json_of(const automation::Value& value);

// An argument on its way in; null stands for one that is left out. Throws: RunTimeError 13 for an
// array or an object.
[[nodiscard]] automation::Value value_of(const Json& json);

}  // namespace app
