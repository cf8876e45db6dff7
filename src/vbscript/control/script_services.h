#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "vbscript/objects/class_registry.h"

namespace automation {
class Object;
}

namespace host {
class Clock;
class Desktop;
}  // namespace host

namespace vbscript {

// What all script engines of a program share: its clock, whoever sits in front of it, and the
// objects that scripts get by a class name. Owned by the program, outlives the engines.
struct ScriptServices {
    // One of the program's own objects, such as the running plug-in; none for another name, which
    // is in code page 1252.
    using Lend = std::function<std::shared_ptr<automation::Object>(std::string_view class_name)>;

    host::Clock& clock;
    host::Desktop& desktop;
    ClassRegistry classes;
    Lend lend = [](std::string_view) { return nullptr; };
};

}  // namespace vbscript
