#pragma once

#include <string_view>

namespace host {

// The power line: switches and sensors by X10 code, "A1" to "P16".
class X10 {
  public:
    virtual ~X10() = default;

    // Sends "on" or "off" and sets the status of the device that has the code, if there is one.
    virtual void ExecX10(std::string_view code, std::string_view command) = 0;

    // Last known state. A code that was never heard of is neither on nor off.
    [[nodiscard]] virtual bool isOn(std::string_view code) = 0;
    [[nodiscard]] virtual bool IsOff(std::string_view code) = 0;
};

}  // namespace host
