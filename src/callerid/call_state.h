#pragma once

#include <string>

namespace callerid {

// The call that is being put together, by the modem's lines or by a message of another program.
// Empty between calls.
struct CallState {
    std::string CIDName;
    std::string CIDNumber;  // as FormatPhoneNumber gives it
    bool NameDetected = false;
    bool NumberDetected = false;
};

// Takes a call whose lines have all come, and empties the state.
class CallListener {
  public:
    virtual ~CallListener() = default;

    virtual void ProcessModemInput() = 0;
};

}  // namespace callerid
