#pragma once

#include "host/clock.h"

namespace platform {

// The machine's clock in local time. A change of TZ is seen at the next call.
class SystemClock final : public host::Clock {
  public:
    [[nodiscard]] automation::DateTime now() const override;
};

}  // namespace platform
