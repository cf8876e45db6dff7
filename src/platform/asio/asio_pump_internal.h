#pragma once

#include <boost/asio/io_context.hpp>

#include "platform/asio/asio_pump.h"

namespace platform {

// The way in for the adapters of this folder. The context lives as long as the pump, and only the
// pump runs it.
class AsioPumpAccess {
  public:
    [[nodiscard]] static boost::asio::io_context& io_context_of(AsioPump& pump);
};

}  // namespace platform
