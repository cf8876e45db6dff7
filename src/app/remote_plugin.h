#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace automation {
class Object;
}

namespace app {

// The plug-in in the running daemon, for scripts of other programs: "zynVelora.hspi". Each call
// goes over the control socket of the home. None for another class name.
// Throws: RunTimeError 429 when no daemon answers.
[[nodiscard]] std::shared_ptr<automation::Object> remote_object(const std::string& home,
                                                                std::string_view class_name);

}  // namespace app
