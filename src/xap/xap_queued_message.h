#pragma once

#include <string>

namespace xap {

// One message for the xAP network, as it waits to be sent.
struct xapQueuedMessage {
    std::string MsgTarget;
    std::string MsgUID;  // two hex digits
    std::string MsgClass;
    std::string MsgSection;
    std::string MsgData;
    std::string MsgSubAddress;
};

}  // namespace xap
